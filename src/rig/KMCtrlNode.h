#pragma once

#include "core/KMNullNode.h"

#include <QList>

class KMBone;
class KMBoneContainer;
class KMMeshNode;

/// Base of bones and of their container: where it belongs, and the meshes by which the views show it.
class KMCtrlNode : public KMNullNode
{
    Q_OBJECT
public:
    KMCtrlNode();
    ~KMCtrlNode() override;

    KMBoneContainer *container() const { return m_container; } ///< null on the container itself
    void setContainer(KMBoneContainer *container) { m_container = container; }
    KMBone *parentBone() const { return m_parent; } ///< null at the top; follows the rows of the container's tree
    void setParentBone(KMBone *parent) { m_parent = parent; }

    const QList<KMMeshNode *> &pickMeshes() const { return m_pickMeshes; }   ///< drawn, and found by the mouse
    const QList<KMMeshNode *> &guideMeshes() const { return m_guideMeshes; } ///< only drawn

protected:
    QList<KMMeshNode *> m_pickMeshes;  // owned
    QList<KMMeshNode *> m_guideMeshes; // owned

private:
    KMBoneContainer *m_container = nullptr; // not owned
    KMBone *m_parent = nullptr;             // not owned
};
