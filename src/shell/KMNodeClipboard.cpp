#include "shell/KMNodeClipboard.h"

#include "core/KMCommand.h"
#include "core/KMContainerNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagBase.h"
#include "core/KMUndoMacro.h"
#include "core/KMWaitingMacro.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMRigTags.h"
#include "shell/KMNodeEdits.h"
#include "shell/KMNodeTemplates.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

namespace {

QList<KMContainerNode *> selectedNodes()
{
    QList<KMContainerNode *> nodes;
    for (const QTreeWidgetItem *row : gProject->tree()->selectedItems())
        nodes << KMTreeWidget::nodeOf(row);
    return nodes;
}

QList<KMContainerNode *> selectedBones()
{
    QList<KMContainerNode *> nodes;
    if (const KMBoneContainer *rig = KMBoneContainer::activeBoneContainer()) {
        for (KMBone *bone : rig->selectedBones())
            nodes << bone;
    }
    return nodes;
}

} // namespace

KMNodeClipboard::KMNodeClipboard(QObject *parent)
    : QObject(parent)
{
}

KMNodeClipboard::~KMNodeClipboard() = default;

void KMNodeClipboard::copy(const QList<KMContainerNode *> &nodes)
{
    auto templates = std::make_unique<KMNodeTemplates>(nodes);
    if (templates->isEmpty())
        return;
    clear();
    m_templates = std::move(templates);
    mark(KMTreeWidget::NodeMimeType);
}

void KMNodeClipboard::copyTags(const QList<KMTagBase *> &tags)
{
    clear();
    KMRigTags::Copies copies;
    for (KMTagBase *tag : tags) {
        m_tags.emplace_back(tag->clone());
        m_tags.back()->setName(tag->name());
        m_isOfBone = tag->owner() && tag->owner()->type() == KMNodeType::Bone;
        copies << KMRigTags::Copied{tag, m_tags.back().get()};
    }
    KMRigTags::relinkCopies(copies);
    mark(m_isOfBone ? KMBoneTreeWidget::BoneTagMimeType : KMTreeWidget::TagMimeType);
}

void KMNodeClipboard::mark(const QString &format)
{
    auto *data = new QMimeData;
    data->setData(format, {});
    QGuiApplication::clipboard()->setMimeData(data); // takes the data
}

bool KMNodeClipboard::isEmpty() const
{
    const QMimeData *data = QGuiApplication::clipboard()->mimeData();
    if (!data)
        return true;
    const bool hasNodes = m_templates && data->hasFormat(KMTreeWidget::NodeMimeType);
    const bool hasTag =
        data->hasFormat(KMTreeWidget::TagMimeType) || data->hasFormat(KMBoneTreeWidget::BoneTagMimeType);
    return !hasNodes && !(!m_tags.empty() && hasTag);
}

void KMNodeClipboard::paste()
{
    if (isEmpty())
        return;
    if (!m_tags.empty())
        pasteTags();
    else
        pasteNodes();
}

void KMNodeClipboard::pasteNodes()
{
    QList<KMContainerNode *> rows;
    const KMUndoMacro macro(tr("Paste"));
    for (KMContainerNode *node : m_templates->instantiate()) {
        if (node->item())
            rows << node;
    }
    if (!rows.isEmpty())
        KMNodeEdits::selectOnly(rows);
}

void KMNodeClipboard::pasteTags()
{
    const KMWaitingMacro macro(tr("Paste"));
    for (KMContainerNode *node : m_isOfBone ? selectedBones() : selectedNodes()) {
        KMRigTags::Copies copies;
        for (const auto &tag : m_tags) {
            if (KMTagBase *copy = KMNodeEdits::copyTag(tag.get(), node))
                copies << KMRigTags::Copied{tag.get(), copy};
        }
        KMRigTags::relinkCopies(copies);
    }
    if (!macro.hasBegun())
        gSolution->showMessage(tr("Select a node that can hold %1").arg(m_tags.front()->name()),
                               KMCommand::MessageLevel);
}

void KMNodeClipboard::clear()
{
    m_templates.reset();
    m_tags.clear();
}
