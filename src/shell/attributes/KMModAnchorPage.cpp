#include "shell/attributes/KMModAnchorPage.h"

#include "core/KMIcon.h"
#include "rig/KMBone.h"
#include "rig/KMDisplayAnchorNode.h"

#include <QListWidget>
#include <QMenu>

#include <algorithm>

namespace {

constexpr int placeRole = Qt::UserRole; // in the modifier's list
constexpr int shownRows = 6;

constexpr QLatin1String addName("anchorAdd");

} // namespace

KMModAnchorPage::KMModAnchorPage(KMModAnchorNode *node)
    : KMParameterPage(node, tr("AnchorNode"))
    , m_anchor(node)
    , m_list(new QListWidget)
{
    addRelations();
    bindChoice(tr("Calc Method"), QStringLiteral("calcMethod"), {tr("Nearest face"), tr("All faces in range")},
               &Parameters::calcMethod);
    bindCheck(tr("OverWrite"), QStringLiteral("overwrite"), &Parameters::overwrite);
}

void KMModAnchorPage::addRelations()
{
    m_list->setSelectionMode(QAbstractItemView::ExtendedSelection);
    m_list->setContextMenuPolicy(Qt::CustomContextMenu);
    m_list->setUniformItemSizes(true);
    m_list->setFixedHeight(m_list->fontMetrics().lineSpacing() * shownRows + 2 * m_list->frameWidth());
    m_list->setToolTip(tr("The bones whose helpers weigh the mesh; a right click adds the current bone"));
    addRow(tr("Relations"), m_list, QStringLiteral("relations"));
    connect(m_list, &QWidget::customContextMenuRequested, this, &KMModAnchorPage::modAnchorContextMenu);
    onRefresh([this] { showAnchors(); });
}

void KMModAnchorPage::showAnchors()
{
    struct Row
    {
        QString name;
        int place;
    };
    QVector<Row> rows;
    for (int i = 0; i < m_anchor->anchors().size(); ++i) {
        if (m_anchor->anchors().at(i)->isLive())
            rows.append({m_anchor->anchors().at(i)->bone()->name(), i});
    }
    while (m_list->count() > rows.size())
        delete m_list->takeItem(m_list->count() - 1);
    for (int i = 0; i < rows.size(); ++i) {
        if (i == m_list->count())
            m_list->addItem(QString());
        m_list->item(i)->setText(rows.at(i).name);
        m_list->item(i)->setData(placeRole, rows.at(i).place);
    }
}

KMBone *KMModAnchorPage::boneToAdd() const
{
    auto *bone = qobject_cast<KMBone *>(gSolution->currentBone());
    const KMModAnchorNode::Anchors &anchors = m_anchor->anchors();
    const bool isThere = std::any_of(anchors.begin(), anchors.end(),
                                     [bone](const KMModAnchorNode::Anchor &anchor) { return anchor->bone() == bone; });
    return isThere ? nullptr : bone;
}

void KMModAnchorPage::modAnchorContextMenu(const QPoint &position)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction *add = menu->addAction(KMIcon::icon(QStringLiteral("anchor")), tr("Add Current Bone"));
    add->setObjectName(addName);
    add->setStatusTip(tr("Put a helper around the current bone"));
    add->setEnabled(boneToAdd());
    QAction *remove = menu->addAction(tr("Remove"));
    remove->setObjectName(QStringLiteral("anchorRemove"));
    remove->setStatusTip(tr("Remove the helpers of the chosen bones"));
    remove->setEnabled(!m_list->selectedItems().isEmpty());
    connect(menu, &QMenu::triggered, this, &KMModAnchorPage::modAnchorMenuDone);
    menu->popup(m_list->viewport()->mapToGlobal(position));
}

void KMModAnchorPage::modAnchorMenuDone(const QAction *action)
{
    if (action->objectName() == addName)
        addCurrentBone();
    else
        removeChosen();
}

void KMModAnchorPage::addCurrentBone()
{
    if (KMBone *bone = boneToAdd())
        gSolution->push(new modAnchorAddBoneCommand(m_anchor, bone));
}

void KMModAnchorPage::removeChosen()
{
    QVector<int> places;
    for (const QListWidgetItem *item : m_list->selectedItems())
        places << item->data(placeRole).toInt();
    std::sort(places.rbegin(), places.rend());
    KMModAnchorNode::Anchors left = m_anchor->anchors();
    for (const int place : std::as_const(places)) {
        if (place < left.size())
            left.removeAt(place);
    }
    if (left.size() != m_anchor->anchors().size())
        gSolution->push(new modAnchorAddBoneCommand(m_anchor, left));
}
