#include "core/KMSolution.h"

#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSessionTool.h"
#include "core/KMSessionViews.h"
#include "core/KMSessionWindow.h"
#include "core/KMSettings.h"
#include "core/KMTagBase.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoCommand.h"
#include "core/KMWaitingMacro.h"
#include "math/Quaternion.h"

#include <QAction>
#include <QApplication>
#include <QDebug>
#include <QFileInfo>
#include <QUndoStack>

#include <cmath>
#include <limits>

KMSolution *gSolution = nullptr;

namespace {

constexpr int unreachable = std::numeric_limits<int>::min(); // a saved count that no history comes back to

} // namespace

KMSolution::KMSolution()
{
    setType(KMNodeType::Container);
    setLightAngles({});
}

KMSolution::~KMSolution()
{
    if (gSolution == this)
        gSolution = nullptr;
}

void KMSolution::setUndoStack(QUndoStack *stack)
{
    m_stack = stack;
    connect(stack, &QUndoStack::indexChanged, this, &KMSolution::update);
}

void KMSolution::setProject(KMProject *project)
{
    if (m_project)
        m_project->tree()->disconnect(this);
    m_project = project;
    if (project)
        connect(project->tree(), &KMTreeWidget::onNodeUpdate, this, &KMSolution::setCurrentNode);
}

void KMSolution::push(KMUndoCommand *command)
{
    Q_ASSERT(m_stack);
    KMWaitingMacro::beginAll();
    m_history.insert(command);
    announceAddonStep();
    dropUnreachableSave();
    m_stack->push(command);
}

void KMSolution::beginMacro(const QString &text)
{
    KMWaitingMacro::beginAll();
    announceAddonStep();
    m_stack->beginMacro(text);
    ++m_macroDepth;
}

void KMSolution::endMacro()
{
    --m_macroDepth;
    m_stack->endMacro();
}

void KMSolution::announceAddonStep()
{
    if (!m_inAddon || m_addonStacked)
        return;
    m_addonStacked = true;
    emit addonFirstStack();
}

void KMSolution::setInAddon(bool running)
{
    m_inAddon = running;
    m_addonStacked = false;
}

/// A new step cuts off what could be redone. When the saved state lies there, no way leads back to it, and
/// the counts must not meet again on another document.
void KMSolution::dropUnreachableSave()
{
    if (m_savedCount > m_commandCount)
        m_savedCount = unreachable;
}

void KMSolution::markUnsaved()
{
    m_savedCount = unreachable;
    updateTitle();
}

void KMSolution::clearHistory()
{
    m_history.clear();
    // Emptying the stack runs update(), where an autosave may wait: it must not write what is given up here.
    m_commandCount = 0;
    m_savedCount = 0;
    if (m_project)
        m_project->tree()->setCurrentItem(nullptr); // else a click on that row would announce no change
    setCurrentNode(nullptr);
    if (m_stack)
        m_stack->clear();
    for (KMNode *mesh : gProject->meshNodes().nodes())
        nodeAs<KMContainerNode>(mesh)->forceFullRefresh();
    updateTitle();
}

void KMSolution::update(int undoIndex)
{
    if (!m_project || m_project->isDestroying())
        return;
    refreshNodes();
    if (m_tool)
        m_tool->historyChanged(undoIndex);
    m_project->announceShelves();
    if (m_window)
        m_window->refreshSetup();
    refreshViews(31);
    if (m_window)
        m_window->refreshAttributes();
    updateTitle();
    if (m_autoSavePending && gSettings->enableAutoSave)
        autoSave();
    if (m_window)
        m_window->repaintTrees();
}

QSet<KMNode *> KMSolution::nodesOfHistory() const
{
    QSet<KMNode *> nodes;
    for (const KMUndoCommand *command : m_history) {
        nodes.insert(command->node());
        nodes.unite(command->touchedNodes());
    }
    return nodes;
}

void KMSolution::refreshNodes()
{
    // Few nodes put their refresh off, and a long history has many commands: it is searched only when one does.
    QSet<KMNode *> edited;
    const auto isEdited = [this, &edited](KMNode *node) {
        if (edited.isEmpty())
            edited = nodesOfHistory();
        return edited.contains(node);
    };
    for (const QList<KMNode *> &nodes :
         {m_project->meshNodes().nodes(), m_project->primitiveNodes().nodes(), m_project->ctrlNodes().nodes()}) {
        for (KMNode *node : nodes) {
            auto *container = nodeAs<KMContainerNode>(node);
            if (!(container->isRefreshDeferred() && isEdited(node)))
                container->refreshAfterEdit();
        }
    }
    for (const QList<KMNode *> &nodes : {m_project->meshesInTree().nodes(), m_project->modifiersInTree().nodes()}) {
        for (KMNode *node : nodes)
            nodeAs<KMContainerNode>(node)->notifyDependents();
    }
}

void KMSolution::setCurrentNode(KMNode *node)
{
    if (node == m_currentNode)
        return;
    if (node)
        m_previousNode = m_currentNode;
    m_currentNode = node;
    const auto isGone = [](KMNode *n) {
        return n && isContainer(n->type()) && nodeAs<KMContainerNode>(n)->isDeleted();
    };
    if (isGone(m_previousNode))
        m_previousNode = nullptr;
    if (isGone(m_currentNode))
        m_currentNode = nullptr;
    emit currentNodeChanged(m_currentNode);
}

void KMSolution::forgetNode(const KMNode *node)
{
    for (KMNode **current : {&m_previousNode, &m_currentBone, &m_currentShader, &m_currentTexture}) {
        if (*current == node)
            *current = nullptr;
    }
    if (m_currentTag && m_currentTag->owner() == node)
        m_currentTag = nullptr;
    if (m_currentNode == node)
        setCurrentNode(nullptr);
}

void KMSolution::forgetTag(const KMTagBase *tag)
{
    if (m_currentTag == tag)
        m_currentTag = nullptr;
}

void KMSolution::setLightAngles(const kvm::Vector3 &degrees)
{
    constexpr float radians = float(M_PI / 180.0);
    m_lightAngles = degrees;
    const kvm::Quaternion rotation = kvm::Quaternion::fromEuler(degrees * radians);
    m_lightMatrix.setRotation(rotation);
    m_lightDirection = rotation.rotate({0.0f, 0.0f, 1.0f});
}

void KMSolution::setTool(KMSessionTool *tool)
{
    m_tool = tool;
    emit commandChanged(tool);
}

void KMSolution::refreshViews(int mask)
{
    if (m_views)
        m_views->refreshViews(mask);
}

void KMSolution::showMessage(const QString &text, int level)
{
    if (m_window)
        m_window->showMessage(text, level);
    else
        qCritical().noquote() << text; // nobody looks at a status bar
}

void KMSolution::setProgress(const QString &text)
{
    if (m_window)
        m_window->setProgress(text);
}

QString KMSolution::titleText() const
{
    const QString base = m_fileName.isEmpty() ? tr("untitled") : QFileInfo(m_fileName).baseName();
    return QApplication::applicationName() + QStringLiteral(" - [") + base
           + (isModified() ? QStringLiteral("*") : QString()) + QStringLiteral("]");
}

void KMSolution::updateTitle()
{
    if (!m_window)
        return;
    const QString title = titleText();
    if (m_window->documentTitle() != title)
        m_window->setDocumentTitle(title);
}

void KMSolution::doCommand()
{
    auto *action = qobject_cast<QAction *>(sender());
    QAction *repeat = m_window ? m_window->repeatAction() : nullptr;
    if (action && repeat && action->objectName() != QLatin1String("ComDoLastCommand")) {
        repeat->setText(action->text());
        repeat->setToolTip(action->toolTip());
        m_lastCommand = action;
    }
    if (m_tool)
        m_tool->commandRun();
}

QAction *KMSolution::lastCommand() const
{
    return m_lastCommand;
}

void KMSolution::speech(const QString &text)
{
    emit speechRequested(text);
}
