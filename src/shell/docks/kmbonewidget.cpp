#include "shell/docks/kmbonewidget.h"

#include "core/KMCommand.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneEdit.h"
#include "shell/KMBoneMoves.h"
#include "tools/KMBoneComContainer.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QMenu>

namespace {

QList<KMBone *> bonesOf(const QList<KMContainerNode *> &nodes)
{
    QList<KMBone *> bones;
    for (KMContainerNode *node : nodes)
        bones << nodeAs<KMBone>(node);
    return bones;
}

} // namespace

kmbonewidget::kmbonewidget(QWidget *parent)
    : KMTreeDock(QStringLiteral("kmbonewidget"), tr("Bones"), QStringLiteral("bone"), QStringLiteral("bone"), parent)
    , m_rigs(new QComboBox)
{
    m_rigs->setObjectName(QStringLiteral("boneRigs"));
    m_rigs->setToolTip(tr("The rig whose bones are shown"));
    m_rigs->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    filterRow()->addWidget(m_rigs, 1);
    connect(m_rigs, qOverload<int>(&QComboBox::activated), this, &kmbonewidget::chooseRig);
    connect(gSolution, &KMSolution::currentNodeChanged, this, &kmbonewidget::refresh);
    connect(this, &QDockWidget::visibilityChanged, this, &kmbonewidget::showCurrentBone);
    listRigs();
}

KMBoneContainer *kmbonewidget::rigToShow() const
{
    const QList<KMBoneContainer *> all = KMBoneContainer::inTree();
    KMNode *node = gSolution->currentNode();
    if (node && node->type() == KMNodeType::BoneContainer && all.contains(nodeAs<KMBoneContainer>(node)))
        return nodeAs<KMBoneContainer>(node);
    KMNode *bone = gSolution->currentBone();
    if (bone && all.contains(nodeAs<KMBone>(bone)->container()))
        return nodeAs<KMBone>(bone)->container();
    return all.contains(m_rig) ? m_rig : all.value(0);
}

void kmbonewidget::refresh()
{
    if (!gProject || gProject->isDestroying())
        return;
    m_rig = rigToShow();
    showTree(m_rig ? m_rig->tree() : nullptr);
    listRigs();
    showCurrentBone();
    KMTreeDock::refresh();
}

void kmbonewidget::resetDocument()
{
    KMTreeDock::resetDocument();
    m_rig = nullptr;
    showTree(nullptr);
    listRigs();
}

/// One rig needs no choice.
void kmbonewidget::listRigs()
{
    const QList<KMBoneContainer *> all = KMBoneContainer::inTree();
    m_rigs->clear();
    for (const KMBoneContainer *rig : all)
        m_rigs->addItem(rig->name());
    m_rigs->setCurrentIndex(all.indexOf(m_rig));
    m_rigs->setVisible(all.size() > 1);
}

void kmbonewidget::chooseRig(int entry)
{
    KMBoneContainer *rig = KMBoneContainer::inTree().value(entry);
    if (rig && rig->item())
        gProject->tree()->setCurrentItem(rig->item()); // and with it the current node, which this panel follows
}

void kmbonewidget::connectTree()
{
    connect(tree(), &QTreeWidget::itemSelectionChanged, this, &kmbonewidget::selectionChanged);
}

void kmbonewidget::selectionChanged()
{
    QList<KMBone *> bones;
    const QTreeWidgetItem *current = tree()->currentItem();
    for (const QTreeWidgetItem *row : tree()->selectedItems()) {
        if (row != current)
            bones << KMBoneTreeWidget::boneOf(row);
    }
    if (current && current->isSelected())
        bones << KMBoneTreeWidget::boneOf(current);
    KMBoneEdit::pushSelected(m_rig, bones);
    if (!bones.isEmpty())
        emit onNodeChanged(bones.last(), KMNodeType::Bone);
}

/// Rows show by themselves what is selected; the current one says where the keys go on. A hidden panel opens no rows.
void kmbonewidget::showCurrentBone()
{
    KMNode *node = gSolution->currentBone();
    const auto *bone = node ? nodeAs<KMBone>(node) : nullptr;
    if (!isVisible() || !tree() || !bone || bone->container() != m_rig || !bone->item()
        || tree()->currentItem() == bone->item())
        return;
    const QSignalBlocker quiet(tree());
    tree()->setCurrentItem(bone->item(), KMTreeWidget::NameColumn, QItemSelectionModel::NoUpdate);
    tree()->scrollToItem(bone->item());
}

void kmbonewidget::run(const char *command)
{
    if (KMCommand *action = m_commands->command(QLatin1String(command)))
        action->trigger();
}

bool kmbonewidget::editRows(Edit edit)
{
    switch (edit) {
    case Edit::Delete:
        run("BoneComDeleteSelBone");
        break;
    case Edit::Duplicate:
        run("BoneComClone");
        break;
    case Edit::Rename:
        renameCurrent();
        break;
    default: // the nodes of the other tree aren't meant
        gSolution->showMessage(tr("Bones are copied by Duplicate, and moved to another rig by their menu"),
                               KMCommand::MessageLevel);
    }
    return true;
}

void kmbonewidget::addEntries(QMenu *menu, const QTreeWidgetItem *row)
{
    menu->addSeparator();
    menu->addActions(m_commands->actions());
    for (KMCommand *command : m_commands->unlisted())
        menu->addAction(command);
    if (row)
        addMoveMenu(menu);
}

void kmbonewidget::addMoveMenu(QMenu *menu)
{
    const QList<KMBoneContainer *> all = KMBoneContainer::inTree();
    if (all.size() < 2)
        return;
    QMenu *others = menu->addMenu(tr("Move to Rig"));
    others->setObjectName(QStringLiteral("moveToRig"));
    for (KMBoneContainer *other : all) {
        if (other == m_rig)
            continue;
        QAction *entry = others->addAction(other->name(), this, [this, other] { moveToRig(other); });
        entry->setStatusTip(tr("Move the selected bones with all below them to this rig"));
        entry->setEnabled(!other->isLocked() && !m_rig->isLocked());
    }
}

bool kmbonewidget::isRefused(const KMBoneContainer *rig) const
{
    if (rig->isLocked())
        gSolution->showMessage(tr("%1 is locked").arg(rig->name()), KMCommand::MessageLevel);
    return rig->isLocked();
}

void kmbonewidget::moveToRig(KMBoneContainer *other)
{
    if (!isRefused(m_rig) && !isRefused(other))
        KMBoneMoves::moveToRig(m_rig, other);
}

void kmbonewidget::dropNodes(const QList<KMContainerNode *> &nodes, KMContainerNode *target, KMTreeWidget::Place place,
                             bool asCopy)
{
    auto *bone = target ? nodeAs<KMBone>(target) : nullptr;
    if (isRefused(m_rig))
        return;
    if (asCopy)
        KMBoneMoves::copy(m_rig, bone, place);
    else
        KMBoneMoves::move(bonesOf(nodes), bone, place);
}
