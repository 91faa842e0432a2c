#include "support/SmallScene.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMValueNodeContainer.h"
#include "support/LiveObjects.h"
#include "support/TestTag.h"

namespace {

template <class Node>
Node *added(Node *node)
{
    gProject->addToScene(node);
    return node;
}

QString rowText(const QTreeWidgetItem *row)
{
    QStringList children;
    for (int i = 0; i < row->childCount(); ++i)
        children << rowText(row->child(i));
    const QString name = KMTreeWidget::nodeOf(row)->name();
    return children.isEmpty() ? name : name + QLatin1Char('(') + children.join(QLatin1Char(' ')) + QLatin1Char(')');
}

} // namespace

SmallScene::SmallScene(int undoLimit)
    : session(undoLimit)
{
    a = addNull(QStringLiteral("A"), nullptr);
    b = addNull(QStringLiteral("B"), a);
    c = addNull(QStringLiteral("C"), b);
    d = addNull(QStringLiteral("D"), a);
    e = addNull(QStringLiteral("E"), nullptr);
    integer = added(new Counted<KMIntNodeContainer>);
    boolean = added(new Counted<KMBoolNodeContainer>);
    number = added(new Counted<KMFloatNodeContainer>);
    for (KMBasicShaderNode *&shader : shaders)
        shader = added(new Counted<KMBasicShaderNode>);
    file = added(new Counted<KMFileTextureNode>(QStringLiteral("skin.png")));
    embedded = added(new Counted<KMEmbeddedTextureNode>);
    first = addTag(a, QStringLiteral("first"));
    second = addTag(a, QStringLiteral("second"));
    other = addTag(e, QStringLiteral("other"));
    a->item()->setExpanded(true);
    b->item()->setExpanded(true);
    d->item()->setHidden(true);
    gSolution->clearHistory();
}

KMNullNode *SmallScene::addNull(const QString &name, KMContainerNode *parent)
{
    auto *node = new Counted<KMNullNode>;
    gProject->addRaw(node);
    node->setName(name);
    gSolution->push(new insertNodeCommand(node, parent));
    return node;
}

KMTagBase *SmallScene::addTag(KMContainerNode *node, const QString &name)
{
    auto *tag = new Counted<TestTag>(name);
    node->addTagKeepName(tag);
    return tag;
}

QString SmallScene::treeText()
{
    QStringList rows;
    for (int i = 0; i < gProject->tree()->topLevelItemCount(); ++i) {
        const QTreeWidgetItem *row = gProject->tree()->topLevelItem(i);
        if (KMTreeWidget::nodeOf(row)->type() == KMNodeType::Null)
            rows << rowText(row);
    }
    return rows.join(QLatin1Char(' '));
}
