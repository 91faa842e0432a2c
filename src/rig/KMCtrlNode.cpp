#include "rig/KMCtrlNode.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"

KMCtrlNode::KMCtrlNode()
{
    setType(KMNodeType::Ctrl);
}

KMCtrlNode::~KMCtrlNode()
{
    qDeleteAll(m_pickMeshes);
    qDeleteAll(m_guideMeshes);
}
