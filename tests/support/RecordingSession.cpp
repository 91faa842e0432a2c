#include "support/RecordingSession.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"

#include <utility>

void RecordingWindow::setDocumentTitle(const QString &text)
{
    title = text;
    ++titleChanges;
    *m_log << QStringLiteral("setDocumentTitle");
}

bool RecordingFormat::write(const QString &path, double)
{
    if (canWrite)
        written << path;
    return canWrite;
}

void RecordingBlocks::pushAddBlock(KMNode *node)
{
    nodesWithBlock.insert(node);
    gSolution->push(new FakeCommand(QStringLiteral("add block"), m_log, node));
}

void RecordingBlocks::pushDeleteBlock(KMNode *node)
{
    if (nodesWithBlock.remove(node))
        gSolution->push(new FakeCommand(QStringLiteral("delete block"), m_log, node));
}

RecordingSession::RecordingSession(int undoLimit)
    : session(undoLimit)
{
    gSolution->setWindow(&window);
    gSolution->setViews(&views);
    gSolution->setTool(&tool);
    gSolution->setDocumentFormat(&format);
    gProject->setBlockModel(&blocks);
}

FakeNode *RecordingSession::addFake(int type, const QString &name)
{
    auto *node = new FakeNode(type, name, &m_log);
    gProject->addNode(node);
    return node;
}

CallLog RecordingSession::takeLog()
{
    return std::exchange(m_log, {});
}
