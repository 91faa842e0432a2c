#include "core/KMBasicShaderNode.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMProcTextureNode.h"
#include "core/KMProject.h"
#include "core/KMShaderCommands.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMTextureCommands.h"
#include "core/KMTransformCommands.h"
#include "core/KMValueCommands.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "support/LiveObjects.h"
#include "support/SmallScene.h"
#include "support/TestRegistry.h"
#include "support/TestTag.h"

#include <QRandomGenerator>
#include <QTest>

namespace {

/// Edits the document at random and knows what it must look like at every index of the history.
class Walker
{
public:
    Walker(quint32 seed, int undoLimit);

    void step();                                  ///< one edit, a macro of several, or some way along the history
    QString problem() const { return m_problem; } ///< the first one that showed, with the number of its step
    void goTo(int index);                         ///< of the history
    int length() const { return gSolution->undoStack()->count(); }
    int index() const { return gSolution->undoStack()->index(); }
    const QString &startText() const { return m_texts.first(); }
    int documentSize(); ///< nodes and tags of the document, without what the history keeps

private:
    using Edit = void (Walker::*)();
    struct Weighted
    {
        int weight;
        Edit edit;
    };
    static const Weighted edits[];

    int below(int limit) { return int(m_random.bounded(limit)); }
    bool chance(int percent) { return below(100) < percent; }
    QString word() { return QStringLiteral("w%1").arg(below(50)); }
    QList<KMContainerNode *> nodes(int type = 0) const;
    KMContainerNode *anyNode(int type = 0);
    KMTagBase *anyTag();

    KMContainerNode *newTreeNode();
    void edit();
    void editMacro(int depth);
    void noteEdit(int indexBefore);
    void checkHere();
    void fail(const QString &what);

    void addNode();
    void insertNode();
    void deleteNode();
    void moveNode();
    void changeNode();
    void rename();
    void setSwitch();
    void transform();
    void setValue();
    void addTag();
    void deleteTag();
    void moveTag();
    void renameTag();
    void addShelfNode();
    void deleteShelfNode();
    void editShader();
    void editTexture();
    void editTexts();
    void select();

    QRandomGenerator m_random;
    SmallScene m_scene;
    int m_step = 0;
    bool m_pushed = false;  // the history moved
    QList<QString> m_texts; // at each index of the history
    QString m_problem;
};

const Walker::Weighted Walker::edits[] = {
    {8, &Walker::addNode},     {8, &Walker::insertNode},   {9, &Walker::deleteNode},      {14, &Walker::moveNode},
    {6, &Walker::changeNode},  {4, &Walker::rename},       {6, &Walker::setSwitch},       {4, &Walker::transform},
    {4, &Walker::setValue},    {10, &Walker::addTag},      {8, &Walker::deleteTag},       {8, &Walker::moveTag},
    {3, &Walker::renameTag},   {5, &Walker::addShelfNode}, {5, &Walker::deleteShelfNode}, {4, &Walker::editShader},
    {4, &Walker::editTexture}, {3, &Walker::editTexts},    {3, &Walker::select},
};

Walker::Walker(quint32 seed, int undoLimit)
    : m_random(seed)
    , m_scene(undoLimit)
{
    QObject::connect(gSolution->undoStack(), &QUndoStack::indexChanged, [this] { m_pushed = true; });
    m_texts << m_scene.dump.text();
}

QList<KMContainerNode *> Walker::nodes(int type) const
{
    QList<KMContainerNode *> found;
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree())) {
        KMContainerNode *node = KMTreeWidget::nodeOf(row);
        if (!type || node->type() == type)
            found << node;
    }
    return found;
}

KMContainerNode *Walker::anyNode(int type)
{
    const QList<KMContainerNode *> all = nodes(type);
    return all.isEmpty() ? nullptr : all.at(below(all.size()));
}

KMTagBase *Walker::anyTag()
{
    QList<KMTagBase *> all;
    for (const KMContainerNode *node : nodes()) {
        for (KMTagBase *tag : node->tags()) {
            if (!tag->isDeleted())
                all << tag;
        }
    }
    return all.isEmpty() ? nullptr : all.at(below(all.size()));
}

KMContainerNode *Walker::newTreeNode()
{
    KMContainerNode *node = nullptr;
    switch (below(6)) {
    case 0:
        node = new Counted<KMIntNodeContainer>;
        break;
    case 1:
        node = new Counted<KMBoolNodeContainer>;
        break;
    case 2:
        node = new Counted<KMFloatNodeContainer>;
        break;
    default:
        node = new Counted<KMNullNode>;
    }
    if (chance(30))
        node->addTag(new Counted<TestTag>);
    return node;
}

void Walker::addNode()
{
    gProject->addNode(newTreeNode());
}

void Walker::insertNode()
{
    KMContainerNode *parent = chance(20) ? nullptr : anyNode();
    const int siblings = parent ? parent->item()->childCount() : gProject->tree()->topLevelItemCount();
    KMContainerNode *node = newTreeNode();
    gProject->addRaw(node);
    gSolution->push(new insertNodeCommand(node, parent, below(siblings + 2) - 1,
                                          chance(50) ? KMRowFocus::Current : KMRowFocus::Keep));
}

void Walker::deleteNode()
{
    if (KMContainerNode *node = anyNode())
        gProject->deleteNode(node);
}

void Walker::moveNode()
{
    KMContainerNode *source = anyNode();
    KMContainerNode *target = anyNode();
    if (source && canMove(source, target))
        gSolution->push(new moveNodeCommand(moveNodeCommand::Mode(below(4)), target, source,
                                            chance(50) ? KMRowFocus::Current : KMRowFocus::Keep));
}

void Walker::changeNode()
{
    KMContainerNode *leaver = anyNode();
    if (!leaver)
        return;
    KMContainerNode *newcomer = newTreeNode();
    gProject->addRaw(newcomer);
    gSolution->push(new changeNodeCommand(newcomer, leaver));
}

void Walker::rename()
{
    if (KMContainerNode *node = anyNode())
        gSolution->push(new renameNodeCommand(node, word()));
}

void Walker::setSwitch()
{
    KMContainerNode *node = anyNode();
    if (node && chance(50))
        gSolution->push(new setVisibleCommand(node, chance(50)));
    else if (node)
        gSolution->push(new setLockedCommand(node, chance(50)));
}

void Walker::transform()
{
    KMTransform value;
    value.scale = {float(m_random.generateDouble()), 1e-7f, -3.0f};
    value.rotation = {float(m_random.generateDouble()), 0.1f, 0.2f, 0.3f};
    value.translation.x = float(m_random.generateDouble() * 1e6);
    if (KMContainerNode *node = anyNode(KMNodeType::Null))
        gSolution->push(new editSRTCommand(nodeAs<KMNullNode>(node), value));
}

void Walker::setValue()
{
    constexpr int types[] = {KMNodeType::IntContainer, KMNodeType::FloatContainer, KMNodeType::BoolContainer};
    const int kind = below(3);
    KMContainerNode *node = anyNode(types[kind]);
    if (!node)
        return;
    KMVariantNode *value = nodeAs<KMValueNodeContainer>(node)->value();
    if (kind == 0)
        gSolution->push(new setIntIntCommand(value, value->toInt(), below(100)));
    else if (kind == 1)
        gSolution->push(new setFloatFloatCommand(value, value->toFloat(), float(m_random.generateDouble())));
    else
        gSolution->push(new setBoolBoolCommand(value, value->toBool(), chance(50)));
}

void Walker::addTag()
{
    KMContainerNode *node = anyNode();
    if (!node)
        return;
    auto *tag = new Counted<TestTag>(word());
    gSolution->push(new addTagCommand(node, tag, below(node->tagCount() + 2) - 1));
    if (chance(50))
        gSolution->setCurrentTag(tag);
}

void Walker::deleteTag()
{
    if (KMTagBase *tag = anyTag())
        gSolution->push(new deleteTagCommand(nodeAs<KMContainerNode>(tag->owner()), tag));
}

void Walker::moveTag()
{
    KMTagBase *tag = anyTag();
    if (!tag)
        return;
    KMContainerNode *target = chance(40) ? nodeAs<KMContainerNode>(tag->owner()) : anyNode();
    gSolution->push(new moveTagCommand(tag, target, below(target->liveTagCount() + 2) - 1));
}

void Walker::renameTag()
{
    if (KMTagBase *tag = anyTag())
        gSolution->push(new renameTagCommand(tag, word()));
}

void Walker::addShelfNode()
{
    switch (below(4)) {
    case 0:
        return gProject->addNode(new Counted<KMBasicShaderNode>);
    case 1:
        return gProject->addNode(new Counted<KMProcTextureNode>);
    case 2:
        return gProject->addNode(new Counted<KMEmbeddedTextureNode>);
    default:
        return gProject->addNode(new Counted<KMFileTextureNode>(word()));
    }
}

void Walker::deleteShelfNode()
{
    const QList<KMNode *> shelf = chance(50) ? gProject->shaders().nodes() : gProject->textures().nodes();
    if (!shelf.isEmpty())
        gProject->deleteNode(nodeAs<KMContainerNode>(shelf.at(below(shelf.size()))));
}

void Walker::editShader()
{
    if (gProject->shaders().isEmpty())
        return;
    auto *shader = nodeAs<KMBasicShaderNode>(gProject->shaders().at(below(gProject->shaders().size())));
    KMBasicShader values = shader->values();
    values.diffuse.setRed(below(256));
    values.textures[size_t(below(KMBasicShader::TextureSlotCount))] = below(gProject->textures().size() + 1) - 1;
    gSolution->push(new editShaderNodeCommand(shader, values));
}

void Walker::editTexture()
{
    if (gProject->textures().isEmpty())
        return;
    KMTextureNode *texture = gProject->textures().at(below(gProject->textures().size()));
    QImage image(1 + below(3), 2, QImage::Format_ARGB32);
    image.fill(m_random.generate());
    if (texture->type() == KMNodeType::FileTexture)
        gSolution->push(new editTextureFilenameCommand(nodeAs<KMFileTextureNode>(texture), word()));
    if (texture->type() == KMNodeType::EmbeddedTexture)
        gSolution->push(new remakeEmbeddedTextureCommand(nodeAs<KMEmbeddedTextureNode>(texture), image));
}

void Walker::editTexts()
{
    if (chance(50))
        gSolution->push(new reinfoNodeCommand(word()));
    else
        gSolution->push(new renameKMPNodeCommand(below(4), word()));
}

void Walker::select()
{
    gSolution->push(new selectNodeCommand(chance(20) ? nullptr : anyNode()));
}

/// At most one command or macro at the top level.
void Walker::edit()
{
    constexpr int enough = 40;
    if (nodes().size() > enough && chance(30))
        return deleteNode();
    int sum = 0;
    for (const Weighted &row : edits)
        sum += row.weight;
    int pick = below(sum);
    const Weighted *row = edits;
    for (; pick >= row->weight; ++row)
        pick -= row->weight;
    (this->*row->edit)();
}

void Walker::editMacro(int depth)
{
    gSolution->beginMacro(QStringLiteral("macro"));
    for (int i = below(6); i > 0; --i) {
        if (depth < 3 && chance(25))
            editMacro(depth + 1);
        else
            edit();
    }
    gSolution->endMacro();
}

void Walker::step()
{
    ++m_step;
    const int way = below(100);
    if (way < 25) {
        goTo(qMax(0, index() - 1 - below(5)));
    } else if (way < 40) {
        goTo(qMin(length(), index() + 1 + below(5)));
    } else {
        const int before = index();
        m_pushed = false;
        if (way < 80)
            edit();
        else
            editMacro(1);
        if (m_pushed)
            noteEdit(before);
    }
    checkHere();
}

void Walker::noteEdit(int indexBefore)
{
    m_texts = m_texts.mid(0, indexBefore + 1);
    m_texts << m_scene.dump.text();
    while (m_texts.size() > length() + 1)
        m_texts.removeFirst();
}

void Walker::goTo(int target)
{
    m_scene.session.stack().setIndex(target);
    checkHere();
}

void Walker::checkHere()
{
    if (m_scene.dump.text() != m_texts.at(index()))
        fail(QStringLiteral("another document\n--- expected\n%1--- actual\n%2")
                 .arg(m_texts.at(index()), m_scene.dump.text()));
    const KMTagBase *tag = gSolution->currentTag();
    if (tag && (tag->isDeleted() || nodeAs<KMContainerNode>(tag->owner())->isDeleted()))
        fail(QStringLiteral("the current tag isn't in the document"));
    for (KMNode *node : {gSolution->currentNode(), gSolution->previousNode()}) {
        if (node && nodeAs<KMContainerNode>(node)->isDeleted())
            fail(QStringLiteral("the current node isn't in the document"));
    }
    if (KMTreeWidget::nodeOf(gProject->tree()->currentItem()) != gSolution->currentNode())
        fail(QStringLiteral("tree and session have another current node"));
}

void Walker::fail(const QString &what)
{
    if (m_problem.isEmpty())
        m_problem = QStringLiteral("step %1: ").arg(m_step) + what;
}

int Walker::documentSize()
{
    int count = gProject->shaders().size() + gProject->textures().size();
    for (const KMContainerNode *node : nodes())
        count += 1 + node->liveTagCount();
    return count;
}

} // namespace

class tst_UndoWalk : public QObject
{
    Q_OBJECT
private slots:
    void walk_data();
    void walk();
};

void tst_UndoWalk::walk_data()
{
    QTest::addColumn<quint32>("seed");
    QTest::addColumn<int>("limit");
    for (const quint32 seed : {1u, 2u, 3u}) {
        for (const int limit : {0, 1, 7, 60})
            QTest::addRow("seed %u, limit %d", seed, limit) << seed << limit;
    }
}

void tst_UndoWalk::walk()
{
    QFETCH(const quint32, seed);
    QFETCH(const int, limit);
    constexpr int steps = 1500;
    {
        Walker walker(seed, limit);
        const QString start = walker.startText();
        for (int i = 0; i < steps && walker.problem().isEmpty(); ++i)
            walker.step();
        QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));

        walker.goTo(walker.length());
        walker.goTo(0);
        if (limit == 0)
            QCOMPARE(walker.startText(), start);
        walker.goTo(walker.length() / 2);
        QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));
        gSolution->clearHistory();
        QCOMPARE(LiveObjects::count(), walker.documentSize());
    }
    QCOMPARE(LiveObjects::count(), 0);
}

KM_TEST(tst_UndoWalk);

#include "tst_UndoWalk.moc"
