#include "modifiers/KMPrimitiveNode.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMVariantNode.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimitiveCommands.h"

#include <QDebug>
#include <QLocale>

KMPrimitiveNode::KMPrimitiveNode()
    : m_mesh(new KMMeshNode)
{
    setType(KMNodeType::Primitive);
    m_mesh->setOwner(this);
    connect(visibleNode(), &KMVariantNode::refresh, this, [this] { m_mesh->setVisible(isVisible()); });
}

KMPrimitiveNode::~KMPrimitiveNode()
{
    delete m_mesh;
}

void KMPrimitiveNode::setShader(int shader)
{
    m_shader = shader;
    rebuild();
}

void KMPrimitiveNode::setTransform(const KMTransform &transform)
{
    KMNullNode::setTransform(transform);
    rebuild();
}

QList<KMContainerNode *> KMPrimitiveNode::evaluatedMeshes() const
{
    return {m_mesh};
}

void KMPrimitiveNode::refreshAfterEdit()
{
    m_mesh->refreshAfterEdit();
}

void KMPrimitiveNode::forceFullRefresh()
{
    m_mesh->forceFullRefresh();
}

QSet<int> KMPrimitiveNode::shaderReferences() const
{
    return m_shader >= 0 ? QSet<int>{m_shader} : QSet<int>{};
}

void KMPrimitiveNode::pushShaderRemoved(int index)
{
    if (m_shader >= index)
        gSolution->push(new primAssignShaderCommand(this, m_shader == index ? -1 : m_shader - 1));
}

void KMPrimitiveNode::onParameterChanged()
{
    if (m_holds == 0)
        rebuild();
}

bool KMPrimitiveNode::isWithinLimit(qint64 faces) const
{
    if (faces <= MaxFaces)
        return true;
    const QLocale locale;
    report(
        tr("%1 would have %2 faces; the limit is %3").arg(name(), locale.toString(faces), locale.toString(MaxFaces)));
    return false;
}

void KMPrimitiveNode::report(const QString &what) const
{
    constexpr int warningLevel = 4;
    qDebug().noquote() << what;
    if (gSolution)
        gSolution->showMessage(what, warningLevel);
}

void KMPrimitiveNode::copyPrimitiveTo(KMPrimitiveNode *destination) const
{
    copyNullTo(destination);
    destination->m_shader = m_shader;
}
