// How the time of one edit grows with the document: nodes are added one by one, grouped under nulls, deleted,
// and all of it is undone. Beside it stands a bare tree widget that is led through the same rows.

#include "core/KMHeadlessSession.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "measure.h"

#include <QAction>
#include <QTreeWidget>
#include <QUndoStack>

#include <string>
#include <vector>

namespace {

constexpr int groupSize = 50;

/// Stands for what the project keeps in lists by the order of the tree: primitives, meshes and the like.
class ListedNode : public KMNullNode
{
public:
    ListedNode() { setType(KMNodeType::PrimCube); }
};

/// The document's side of each phase; a phase needs the ones before it.
template <class Node>
class EditedDocument
{
public:
    explicit EditedDocument(int size)
        : m_size(size)
    {
    }

    void add()
    {
        for (int i = 0; i < m_size; ++i) {
            m_nodes.push_back(new Node);
            gProject->addNode(m_nodes.back());
        }
    }
    void group()
    {
        for (int i = 0; i < m_size; ++i) {
            if (i % groupSize)
                gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild,
                                                    m_nodes[size_t(i / groupSize * groupSize)], m_nodes[size_t(i)]));
        }
    }
    void remove()
    {
        for (int i = m_size; i-- > 0;)
            gProject->deleteNode(m_nodes[size_t(i)]);
    }
    void undoAll()
    {
        while (gSolution->undoStack()->canUndo())
            gSolution->undoStack()->undo();
    }
    void forget() { gSolution->clearHistory(); }

private:
    KMHeadlessSession m_session;
    int m_size;
    std::vector<KMNullNode *> m_nodes;
};

/// The same rows in a bare tree widget: shown, made current and moved, with nothing behind them.
class BareTree
{
public:
    explicit BareTree(int size)
        : m_size(size)
    {
        m_tree.setColumnCount(4);
    }
    ~BareTree() { qDeleteAll(m_removed); }

    void add()
    {
        for (int i = 0; i < m_size; ++i) {
            auto *row = new QTreeWidgetItem({QStringLiteral("Null%1").arg(i)});
            row->setCheckState(1, Qt::Checked);
            row->setCheckState(2, Qt::Unchecked);
            m_rows.push_back(row);
            m_tree.addTopLevelItem(row);
            m_tree.setCurrentItem(row);
        }
    }
    void group()
    {
        for (int i = 0; i < m_size; ++i) {
            if (i % groupSize)
                move(m_rows[size_t(i)], m_rows[size_t(i / groupSize * groupSize)]);
        }
    }
    void remove()
    {
        for (int i = m_size; i-- > 0;) {
            take(m_rows[size_t(i)]);
            m_removed.push_back(m_rows[size_t(i)]);
        }
    }
    void undoAll()
    {
        for (int i = 0; i < m_size; ++i) {
            QTreeWidgetItem *row = m_rows[size_t(i)];
            QTreeWidgetItem *parent =
                i % groupSize ? m_rows[size_t(i / groupSize * groupSize)] : m_tree.invisibleRootItem();
            parent->addChild(row);
            m_tree.setCurrentItem(row);
        }
        m_removed.clear();
        for (int i = m_size; i-- > 0;) {
            if (i % groupSize) {
                take(m_rows[size_t(i)]);
                m_tree.insertTopLevelItem(i / groupSize + 1, m_rows[size_t(i)]);
                m_tree.setCurrentItem(m_rows[size_t(i)]);
            }
        }
        for (int i = m_size; i-- > 0;)
            delete m_rows[size_t(i)];
    }
    void forget() {}

private:
    void take(QTreeWidgetItem *row)
    {
        QTreeWidgetItem *parent = row->parent() ? row->parent() : m_tree.invisibleRootItem();
        parent->removeChild(row);
    }
    void move(QTreeWidgetItem *row, QTreeWidgetItem *parent)
    {
        take(row);
        parent->addChild(row);
        m_tree.setCurrentItem(row);
    }

    QTreeWidget m_tree;
    int m_size;
    std::vector<QTreeWidgetItem *> m_rows;
    std::vector<QTreeWidgetItem *> m_removed;
};

enum Phase { Add, Group, Remove, UndoAll, Forget };

/// Runs all phases up to the asked one and returns the seconds that this one took.
template <class Side>
double secondsOf(Phase asked, int size)
{
    Side side(size);
    static void (Side::*const phases[])() = {&Side::add, &Side::group, &Side::remove, &Side::undoAll, &Side::forget};
    double start = 0;
    for (int phase = Add; phase <= asked; ++phase) {
        if (asked == Forget && phase == UndoAll)
            continue; // it is the applied deletions that take nodes along
        start = processorSeconds();
        (side.*phases[phase])();
    }
    return processorSeconds() - start;
}

template <class Node>
void history(benchmark::State &state, Phase phase)
{
    const int size = int(state.range(0));
    double ours = 0;
    double plain = 0;
    for (auto _ : state) {
        const double seconds = secondsOf<EditedDocument<Node>>(phase, size);
        state.SetIterationTime(seconds);
        ours += seconds;
        plain += secondsOf<BareTree>(phase, size);
    }
    const double edits = double(state.iterations()) * (phase == UndoAll ? 3.0 - 1.0 / groupSize : 1.0) * size;
    state.counters["us_per_edit"] = ours / edits * 1e6;
    if (phase != Forget) {
        state.counters["plain_us"] = plain / edits * 1e6;
        state.counters["ratio"] = ours / plain;
    }
}

void registerPhases(const char *nodes, void (*run)(benchmark::State &, Phase))
{
    static const char *const names[] = {"add", "group", "delete", "undoAll", "clearHistory"};
    for (const Phase phase : {Add, Group, Remove, UndoAll, Forget}) {
        const std::string name = std::string("history/") + nodes + '/' + names[phase];
        benchmark::RegisterBenchmark(name.c_str(), run, phase)
            ->Arg(1000)
            ->Arg(5000)
            ->Arg(10000)
            ->Unit(benchmark::kMillisecond)
            ->UseManualTime();
    }
}

const bool registered = [] {
    registerPhases("nulls", history<KMNullNode>);
    registerPhases("listed", history<ListedNode>);
    return true;
}();

} // namespace
