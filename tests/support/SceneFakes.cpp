#include "support/SceneFakes.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"

#include <utility>

namespace {

class ShiftShadersCommand : public KMUndoCommand
{
public:
    ShiftShadersCommand(FakeNode *node, QVector<int> shaders)
        : KMUndoCommand(QStringLiteral("Shift Shaders"), node)
        , m_target(node)
        , m_shaders(std::move(shaders))
    {
    }

protected:
    void apply(Direction) override { m_target->faceShaders.swap(m_shaders); }

private:
    FakeNode *m_target;
    QVector<int> m_shaders;
};

} // namespace

FakeNode::FakeNode(int type, const QString &name, CallLog *log)
    : m_log(log)
{
    setType(type);
    setName(name);
}

KMContainerNode *FakeNode::clone() const
{
    return new FakeNode(type(), name(), m_log);
}

void FakeNode::pushDeleteCommand()
{
    note("pushDelete");
    KMNullNode::pushDeleteCommand();
}

QList<KMContainerNode *> FakeNode::evaluatedMeshes() const
{
    return evaluated ? QList<KMContainerNode *>{evaluated} : QList<KMContainerNode *>{};
}

bool FakeNode::isChainStale() const
{
    note("isChainStale");
    return std::exchange(hasOtherChain, false);
}

KMUndoCommand *FakeNode::makeBuildCommand()
{
    return new FakeCommand(QStringLiteral("build ") + name(), m_log, this);
}

void FakeNode::pushShaderRemoved(int index)
{
    QVector<int> shifted = faceShaders;
    for (int &shader : shifted)
        shader = shader == index ? -1 : shader > index ? shader - 1 : shader;
    gSolution->push(new ShiftShadersCommand(this, shifted));
}

void FakeNode::note(const char *hook) const
{
    if (m_log)
        *m_log << QString::fromLatin1(hook) + QLatin1Char(' ') + name();
}

FakeTag::FakeTag(const QString &name, int type)
{
    setName(name);
    if (type)
        setType(type);
}

KMTagBase *FakeTag::clone() const
{
    return new FakeTag(name(), type());
}

FakeCommand::FakeCommand(const QString &text, CallLog *log, KMNode *node, KMNode *touched)
    : KMUndoCommand(text, node)
    , m_log(log)
{
    if (touched)
        touch(touched);
}

void FakeCommand::apply(Direction direction)
{
    if (m_log)
        *m_log << (direction == Direction::Redo ? QStringLiteral("redo ") : QStringLiteral("undo ")) + text();
}
