#include "shell/docks/kmmorphwidget.h"

#include "core/KMCommandContainer.h"
#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMTagMorph.h"
#include "shell/docks/KMMorphTree.h"
#include "shell/docks/kmmorphreoderdialog.h"
#include "tools/KMMorphTargets.h"

#include <QLabel>
#include <QMenu>
#include <QVBoxLayout>

kmmorphwidget::kmmorphwidget(QWidget *parent)
    : KMDockWidget(QStringLiteral("kmmorphwidget"), tr("Morphs"), QStringLiteral("node-morph"), parent)
    , m_mesh(new QLabel)
    , m_tree(new KMMorphTree)
{
    auto *panel = new QWidget;
    auto *layout = new QVBoxLayout(panel);
    layout->setContentsMargins({});
    layout->setSpacing(0);
    m_mesh->setObjectName(QStringLiteral("morphMesh"));
    m_mesh->setMargin(4);
    layout->addWidget(m_mesh);
    layout->addWidget(m_tree);
    setWidget(panel);
    m_tree->setContextMenuPolicy(Qt::CustomContextMenu);
    connect(m_tree, &QWidget::customContextMenuRequested, this, &kmmorphwidget::showMenu);
    connect(m_tree, &KMMorphTree::morphsDropped, this, &kmmorphwidget::moveRows);
    connect(gSolution, &KMSolution::currentNodeChanged, this, &kmmorphwidget::refresh);
    resetDocument();
}

void kmmorphwidget::refresh()
{
    KMTagMorph *tag = KMMorphTargets::tag();
    m_tree->showTag(tag);
    m_mesh->setText(tag ? tr("%1: %2").arg(tag->mesh()->name(), tag->name())
                        : tr("Select a mesh that has a morph tag."));
}

void kmmorphwidget::commit()
{
    m_tree->commit();
}

void kmmorphwidget::resetDocument()
{
    m_tree->forget();
    m_mesh->setText(tr("Select a mesh that has a morph tag."));
}

bool kmmorphwidget::edit(Edit edit)
{
    QTreeWidgetItem *row = m_tree->currentItem();
    if (edit == Edit::Rename && row)
        m_tree->editItem(row, KMMorphTree::NameColumn);
    else if (edit == Edit::Rename)
        gSolution->showMessage(tr("Select a morph first"), KMCommand::MessageLevel);
    else if (edit != Edit::Delete)
        gSolution->showMessage(tr("Morphs can't be copied by themselves"), KMCommand::MessageLevel);
    else if (m_commands)
        m_commands->command(QStringLiteral("MorphComRemoveMorph"))->trigger();
    return true; // the nodes of the tree are safe from here
}

void kmmorphwidget::showMenu(const QPoint &position)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    if (m_commands)
        menu->addActions(m_commands->actions());
    menu->addSeparator();
    QAction *order = menu->addAction(tr("Reorder MorphNode..."), this, &kmmorphwidget::askOrder);
    order->setObjectName(QStringLiteral("reorderMorphs"));
    order->setStatusTip(tr("Bring the morphs into another order"));
    order->setEnabled(m_tree->topLevelItemCount() > 1);
    menu->popup(m_tree->viewport()->mapToGlobal(position));
}

void kmmorphwidget::askOrder()
{
    const KMTagMorph *tag = m_tree->tag();
    if (!tag)
        return;
    kmmorphreoderdialog dialog(tag->liveMorphs(), this);
    if (KMPrompt::current().dialog(dialog))
        pushOrder(dialog.order());
}

void kmmorphwidget::moveRows(const QList<KMMorph *> &morphs, int place)
{
    const KMTagMorph *tag = m_tree->tag();
    if (!tag)
        return;
    QList<KMMorph *> before;
    QList<KMMorph *> after;
    const QList<KMMorph *> live = tag->liveMorphs();
    for (int i = 0; i < live.size(); ++i) {
        if (!morphs.contains(live[i]))
            (i < place ? before : after) << live[i];
    }
    pushOrder(before + morphs + after);
}

void kmmorphwidget::pushOrder(const QList<KMMorph *> &order)
{
    KMTagMorph *tag = m_tree->tag();
    if (tag && order != tag->liveMorphs())
        gSolution->push(new reorderMorphCommand(tag, order));
}
