#include "shell/attributes/KMModAnchorPage.h"

#include "core/KMCommand.h"
#include "core/KMIcon.h"
#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayAnchorNode.h"

#include <QLabel>
#include <QListWidget>
#include <QMenu>

#include <algorithm>

namespace {

constexpr int entryRole = Qt::UserRole; // the helper, to be compared
constexpr int shownRows = 6;

using Anchors = KMModAnchorNode::Anchors;

quintptr keyOf(const KMModAnchorNode::Anchor &anchor)
{
    return reinterpret_cast<quintptr>(anchor.get());
}

bool hasHelper(const Anchors &anchors, const KMBone *bone)
{
    return std::any_of(anchors.begin(), anchors.end(),
                       [bone](const KMModAnchorNode::Anchor &anchor) { return anchor->bone() == bone; });
}

QList<KMBone *> currentBone()
{
    auto *bone = qobject_cast<KMBone *>(gSolution->currentBone());
    return bone ? QList<KMBone *>{bone} : QList<KMBone *>();
}

QList<KMBone *> selectedBones()
{
    QList<KMBone *> bones;
    const QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    for (const KMBoneContainer *rig : rigs)
        bones << rig->selectedBones();
    return bones;
}

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
    m_list->setToolTip(tr("The bones whose helpers weigh the mesh; a right click adds bones"));
    addRow(tr("Relations"), m_list, QStringLiteral("relations"));
    connect(m_list, &QWidget::customContextMenuRequested, this, &KMModAnchorPage::modAnchorContextMenu);
    auto *fault = new QLabel;
    fault->setWordWrap(true);
    addRow({}, fault, QStringLiteral("anchorFault"));
    onRefresh([this, fault] {
        showAnchors();
        fault->setText(this->fault());
        fault->setVisible(!fault->text().isEmpty());
    });
}

/// Rows stand for the same helper as long as there is one, so that the choice never wanders to another.
void KMModAnchorPage::showAnchors()
{
    const QVector<quintptr> chosen = chosenEntries();
    Anchors live = m_anchor->anchors();
    const auto isDead = [](const KMModAnchorNode::Anchor &anchor) { return !anchor->isLive(); };
    live.erase(std::remove_if(live.begin(), live.end(), isDead), live.end());
    while (m_list->count() > live.size())
        delete m_list->takeItem(m_list->count() - 1);
    while (m_list->count() < live.size())
        m_list->addItem(QString());
    for (int i = 0; i < live.size(); ++i) {
        QListWidgetItem *item = m_list->item(i);
        item->setText(live.at(i)->bone()->name());
        item->setData(entryRole, QVariant::fromValue(keyOf(live.at(i))));
        item->setSelected(chosen.contains(keyOf(live.at(i))));
    }
}

QVector<quintptr> KMModAnchorPage::chosenEntries() const
{
    QVector<quintptr> entries;
    for (const QListWidgetItem *item : m_list->selectedItems())
        entries << item->data(entryRole).value<quintptr>();
    return entries;
}

/// Without weights there is nothing to give other weights to.
QString KMModAnchorPage::fault() const
{
    const KMMeshNode *input = m_anchor->input();
    if (!input || input->findTag(KMNodeType::TagBoneWeight))
        return {};
    for (KMMeshModifier *stage = m_anchor->previous(); stage; stage = stage->previous()) {
        const KMContainerNode *node = stage->modifierNode();
        if (node->type() == KMNodeType::ModBoneDeform)
            return tr("The anchor stands behind %1 and does nothing: move it before that").arg(node->name());
    }
    return tr("%1 has no bone weight tag here: the anchor does nothing").arg(m_anchor->source()->name());
}

void KMModAnchorPage::modAnchorContextMenu(const QPoint &position)
{
    const bool isChosen = !m_list->selectedItems().isEmpty();
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto addEntry = [menu](const QString &text, const char *name, const QString &tip, bool isEnabled) {
        QAction *action = menu->addAction(text);
        action->setObjectName(QLatin1String(name));
        action->setStatusTip(tip);
        action->setEnabled(isEnabled);
        return action;
    };
    addEntry(tr("Add Current Bone"), "anchorAdd", tr("Put a helper around the current bone"),
             !withoutHelper(currentBone()).isEmpty())
        ->setIcon(KMIcon::icon(QStringLiteral("anchor")));
    addEntry(tr("Add Selected Bones"), "anchorAddSelected", tr("Put a helper around each selected bone"),
             !withoutHelper(selectedBones()).isEmpty());
    addEntry(tr("Fit to Bone"), "anchorFit", tr("Put new helpers around the chosen bones, as these stand now"),
             isChosen);
    addEntry(tr("Remove"), "anchorRemove", tr("Remove the helpers of the chosen bones"), isChosen);
    connect(menu, &QMenu::triggered, this, &KMModAnchorPage::modAnchorMenuDone);
    menu->popup(m_list->viewport()->mapToGlobal(position));
}

void KMModAnchorPage::modAnchorMenuDone(const QAction *action)
{
    const QString name = action->objectName();
    if (name == QLatin1String("anchorAdd"))
        addBones(currentBone());
    else if (name == QLatin1String("anchorAddSelected"))
        addBones(selectedBones());
    else if (name == QLatin1String("anchorFit"))
        fitChosen();
    else
        removeChosen();
}

QList<KMBone *> KMModAnchorPage::withoutHelper(QList<KMBone *> bones) const
{
    const auto isThere = [this](const KMBone *bone) { return hasHelper(m_anchor->anchors(), bone); };
    bones.erase(std::remove_if(bones.begin(), bones.end(), isThere), bones.end());
    return bones;
}

void KMModAnchorPage::addBones(const QList<KMBone *> &bones)
{
    Anchors anchors = m_anchor->anchors();
    for (KMBone *bone : withoutHelper(bones))
        anchors << m_anchor->makeHelper(bone);
    pushAnchors(anchors);
    if (!fault().isEmpty())
        gSolution->showMessage(fault(), KMCommand::MessageLevel);
}

void KMModAnchorPage::fitChosen()
{
    const QVector<quintptr> chosen = chosenEntries();
    Anchors anchors = m_anchor->anchors();
    for (KMModAnchorNode::Anchor &anchor : anchors) {
        if (chosen.contains(keyOf(anchor)) && anchor->isLive())
            anchor = m_anchor->makeHelper(anchor->bone());
    }
    pushAnchors(anchors);
}

void KMModAnchorPage::removeChosen()
{
    const QVector<quintptr> chosen = chosenEntries();
    Anchors left = m_anchor->anchors();
    const auto isChosen = [&chosen](const KMModAnchorNode::Anchor &anchor) { return chosen.contains(keyOf(anchor)); };
    left.erase(std::remove_if(left.begin(), left.end(), isChosen), left.end());
    pushAnchors(left);
}

void KMModAnchorPage::pushAnchors(const Anchors &anchors)
{
    if (anchors != m_anchor->anchors())
        gSolution->push(new modAnchorAddBoneCommand(m_anchor, anchors));
}
