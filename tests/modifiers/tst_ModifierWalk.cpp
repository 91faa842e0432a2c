#include "core/KMNodePropertyCommands.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMNormalCommands.h"
#include "mesh/KMTagNormal.h"
#include "modifiers/KMChainCopy.h"
#include "modifiers/KMFreezeModifiers.h"
#include "modifiers/KMModClonerNode.h"
#include "modifiers/KMModFFDNode.h"
#include "modifiers/KMModPipeNode.h"
#include "modifiers/KMModSdvCommands.h"
#include "modifiers/KMModSolidNode.h"
#include "modifiers/KMModSymNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMModAnchorNode.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMTagBoneWeight.h"
#include "support/ModifierStage.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

#include <memory>

namespace {

/// Shape and topology of a result, without what only a later refresh derives.
QString shapeText(const KMMeshNode &mesh)
{
    QString text = QStringLiteral("%1 %2\n").arg(mesh.vertexCount()).arg(mesh.faceCount());
    for (const KMVertex *vertex : mesh.vertices()) {
        if (vertex)
            text += QStringLiteral("v %1 %2 %3 %4\n")
                        .arg(double(vertex->pos.x), 0, 'g', 9)
                        .arg(double(vertex->pos.y), 0, 'g', 9)
                        .arg(double(vertex->pos.z), 0, 'g', 9)
                        .arg(double(vertex->weight));
    }
    for (const KMFace *face : mesh.faces()) {
        if (!face)
            continue;
        text += QStringLiteral("f %1 %2:").arg(face->shader).arg(face->hasFlag(KMElementFlag::Hidden));
        for (int c = 0; c < face->count; ++c)
            text += QStringLiteral(" %1/%2,%3")
                        .arg(face->indices[c])
                        .arg(double(face->uvs[c].x), 0, 'g', 9)
                        .arg(double(face->uvs[c].y), 0, 'g', 9);
        text += QLatin1Char('\n');
    }
    return text;
}

/// Edges with their weights, in an order of their own.
QString edgeText(const KMMeshNode &mesh)
{
    QStringList lines;
    for (const KMEdge *edge : mesh.edges()) {
        lines << QStringLiteral("e %1 %2 %3 %4")
                     .arg(edge->index0)
                     .arg(edge->index1)
                     .arg(double(edge->weight))
                     .arg(edge->faceRefs.size());
    }
    lines.sort();
    return lines.join(QLatin1Char('\n'));
}

float farthestNormals(const KMMeshNode &a, const KMMeshNode &b)
{
    float farthest = 0.0f;
    for (int f = 0; f < qMin(a.faceCount(), b.faceCount()); ++f) {
        for (int c = 0; a.face(f) && b.face(f) && a.face(f)->isPolygon() && c < a.face(f)->count; ++c)
            farthest = qMax(farthest, (a.face(f)->normals[c] - b.face(f)->normals[c]).length());
    }
    return farthest;
}

/// What the result says of bones, by their names.
QString weightText(const KMMeshNode &mesh)
{
    const auto *tag = static_cast<const KMTagBoneWeight *>(mesh.findTag(KMNodeType::TagBoneWeight));
    if (!tag)
        return {};
    QString text = QStringLiteral("weights\n");
    for (const BoneWeightEntry &entry : tag->entries()) {
        text += QStringLiteral("w %1 %2 %3\n")
                    .arg(entry.vertex)
                    .arg(entry.bone->name())
                    .arg(double(entry.weight), 0, 'g', 9);
    }
    for (const int vertex : tag->sdefVertices())
        text += QStringLiteral("sdef %1\n").arg(vertex);
    return text;
}

KMMeshNode *withNormalTag(KMMeshNode *mesh)
{
    mesh->addTag(new KMTagNormal);
    mesh->refreshMesh(KMMeshDirty::All);
    return mesh;
}

/// Edits a mesh and the modifiers below it at random. After each step the chain, which was updated step by step, has to
/// be what a chain made afresh is.
class Walker
{
public:
    Walker(KMMeshNode *mesh, quint32 seed)
        : m_scene(mesh)
        , m_mesh(*mesh)
        , m_random(seed)
    {
        addRig();
        m_start = m_scene.dump.text();
    }

    void add();
    void step();
    void undoAll();
    QString problem() const { return m_problem; }
    int stages() const { return m_mesh.modifiers().size(); }

private:
    using Edit = void (Walker::*)();
    static const Edit edits[];

    int below(int limit) { return limit > 0 ? int(m_random.bounded(limit)) : 0; }
    bool coin() { return m_random.bounded(2); }
    float number(float most) { return float(m_random.generateDouble() * 2.0 - 1.0) * most; }
    QUndoStack &stack() { return m_scene.session.stack(); }
    QList<KMContainerNode *> modifiers() const;
    KMContainerNode *anyModifier();
    void check();

    void remove();
    void reorder();
    void takeOut();
    void switchOne();
    void addRig();
    void weigh();
    void blend();
    void edit();
    void place();
    void moveVertex();
    void moveVertices();
    void addFace();
    void deleteFace() { KMMeshEdit::deleteFace(m_mesh, below(m_mesh.faceCount())); }
    void deleteVertex() { KMMeshEdit::deleteVertex(m_mesh, below(m_mesh.vertexCount())); }
    void split() { KMMeshEdit::splitQuad(m_mesh, below(m_mesh.faceCount())); }
    void weighEdge();
    void weighVertex() { KMMeshEdit::setVertexWeight(m_mesh, below(m_mesh.vertexCount()), float(below(3))); }
    void hide() { KMMeshEdit::hideFace(m_mesh, below(m_mesh.faceCount()), coin()); }
    void shade() { KMMeshEdit::editFaceShader(m_mesh, below(m_mesh.faceCount()), below(3) - 1); }
    void select() { KMMeshEdit::selectFace(m_mesh, below(m_mesh.faceCount()), coin()); }
    void mapUV();
    void bend();
    void crease();
    void takeNormal();
    void turnFrame();
    void history();
    void checkNormals(const KMMeshNode &fresh);
    KMTagNormal *tag() { return static_cast<KMTagNormal *>(m_mesh.findTag(KMNodeType::TagNormal)); }

    MeshScene m_scene;
    QList<KMBone *> m_bones;
    KMTagBoneWeight *m_weights; // of the mesh
    KMMeshNode &m_mesh;
    QRandomGenerator m_random;
    QString m_start;
    QString m_problem;
};

const Walker::Edit Walker::edits[] = {
    &Walker::add,         &Walker::add,        &Walker::add,          &Walker::remove,       &Walker::reorder,
    &Walker::reorder,     &Walker::takeOut,    &Walker::switchOne,    &Walker::switchOne,    &Walker::edit,
    &Walker::edit,        &Walker::edit,       &Walker::place,        &Walker::place,        &Walker::moveVertex,
    &Walker::moveVertex,  &Walker::moveVertex, &Walker::moveVertices, &Walker::moveVertices, &Walker::addFace,
    &Walker::addFace,     &Walker::deleteFace, &Walker::deleteVertex, &Walker::split,        &Walker::weighEdge,
    &Walker::weighVertex, &Walker::hide,       &Walker::shade,        &Walker::select,       &Walker::mapUV,
    &Walker::history,     &Walker::history,    &Walker::history,      &Walker::bend,         &Walker::bend,
    &Walker::weigh,       &Walker::weigh,      &Walker::weigh,        &Walker::blend,        &Walker::blend,
    &Walker::crease,      &Walker::takeNormal, &Walker::takeNormal,   &Walker::turnFrame,
};

QList<KMContainerNode *> Walker::modifiers() const
{
    QList<KMContainerNode *> found;
    for (KMNode *node : gProject->modifiersInTree().nodes())
        found << nodeAs<KMContainerNode>(node);
    return found;
}

KMContainerNode *Walker::anyModifier()
{
    const QList<KMContainerNode *> all = modifiers();
    return all.isEmpty() ? nullptr : all.at(below(all.size()));
}

void Walker::add()
{
    if (modifiers().size() >= 5)
        return;
    KMContainerNode *modifier = nullptr;
    switch (below(9)) {
    case 8: {
        auto *anchor = new KMModAnchorNode;
        anchor->setParameters({below(2), below(2)});
        for (int i = below(3); i >= 0; --i)
            anchor->setAnchors(anchor->anchors() + KMModAnchorNode::Anchors{anchor->makeHelper(m_bones.at(below(3)))});
        modifier = anchor;
        break;
    }
    case 6:
    case 7:
        modifier = new KMModBoneDeformNode;
        break;
    case 0: {
        auto *subdivision = new KMModSdvNode;
        KMModSdvNode::Parameters p;
        p.level = below(2);
        subdivision->setParameters(p);
        modifier = subdivision;
        break;
    }
    case 1:
        modifier = new KMModSymNode;
        break;
    case 2:
        modifier = new KMModFFDNode;
        break;
    case 3:
        modifier = new KMModPipeNode;
        break;
    case 4:
        modifier = new KMModSolidNode;
        break;
    default: {
        auto *cloner = new KMModClonerNode;
        KMModClonerNode::Parameters p;
        p.count = 2;
        cloner->setParameters(p);
        modifier = cloner;
    }
    }
    const KMUndoMacro macro(QStringLiteral("add"));
    gProject->addToScene(modifier);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, &m_mesh, modifier, KMRowFocus::Keep));
    gProject->checkModifiers();
}

/// Three bones in a pose.
void Walker::addRig()
{
    auto *rig = new KMBoneContainer;
    gProject->addNode(rig);
    for (int i = 0; i < 3; ++i) {
        auto *bone = new KMBone;
        bone->setName(QString::number(i));
        bone->setRest(restBone({float(i), 0, 0}, {float(i) + 0.7f, 0.2f, 0}));
        PoseTransform pose;
        pose.rotation = kvm::Quaternion::fromEuler({0.2f, number(1.0f), number(1.0f)});
        bone->setKeyPose(pose);
        rig->attachBone(bone, i == 1 ? m_bones.last() : nullptr);
        m_bones << bone;
    }
    rig->rebuildOrder();
    rig->animation()->reevaluate();
    m_weights = new KMTagBoneWeight;
    m_mesh.addTagKeepName(m_weights);
    gSolution->clearHistory();
}

/// A handful of vertices.
void Walker::weigh()
{
    KMWeightEdit edit(m_weights);
    for (int i = below(8); i >= 0; --i) {
        const int vertex = below(m_mesh.vertexCount());
        if (coin())
            edit.setEntries(vertex, {});
        edit.setWeight(vertex, m_bones.at(below(3)), qAbs(number(1.0f)));
        edit.setWeight(vertex, m_bones.at(below(3)), qAbs(number(1.0f)));
    }
    gSolution->push(new editBoneWeightCommand(&m_mesh, edit));
}

void Walker::blend()
{
    const QVector<int> vertices = {below(m_mesh.vertexCount()), below(m_mesh.vertexCount())};
    if (below(3) == 0)
        gSolution->push(new editTagBoneWeightCommand(&m_mesh, m_weights, {below(3), coin(), 100.0f}));
    else if (coin())
        gSolution->push(new setSdefFlagCommand(&m_mesh, m_weights, vertices));
    else
        gSolution->push(new removeSdefFlagCommand(&m_mesh, m_weights, vertices));
}

void Walker::remove()
{
    if (KMContainerNode *modifier = anyModifier())
        gProject->deleteNode(modifier);
}

void Walker::reorder()
{
    KMContainerNode *modifier = anyModifier();
    KMContainerNode *target = anyModifier();
    if (!modifier || modifier == target || !canMove(modifier, target))
        return;
    const KMUndoMacro macro(QStringLiteral("reorder"));
    gSolution->push(new moveNodeCommand(moveNodeCommand::BeforeSibling, target, modifier, KMRowFocus::Keep));
    gProject->checkModifiers();
}

void Walker::takeOut()
{
    KMContainerNode *modifier = anyModifier();
    if (!modifier)
        return;
    KMContainerNode *target = modifier->item()->parent() ? nullptr : &m_mesh;
    const KMUndoMacro macro(QStringLiteral("take out"));
    gSolution->push(new moveNodeCommand(target ? moveNodeCommand::LastChild : moveNodeCommand::LastTopLevel, target,
                                        modifier, KMRowFocus::Keep));
    gProject->checkModifiers();
}

void Walker::switchOne()
{
    KMContainerNode *modifier = anyModifier();
    if (!modifier)
        return;
    const KMUndoMacro macro(QStringLiteral("switch"));
    gSolution->push(new setVisibleCommand(modifier, !modifier->isVisible()));
    gProject->checkModifiers();
}

void Walker::edit()
{
    KMContainerNode *node = anyModifier();
    if (auto *subdivision = qobject_cast<KMModSdvNode *>(node)) {
        KMModSdvNode::Parameters p = subdivision->parameters();
        p.level = below(3);
        p.isTriangleSmooth = coin();
        p.interpolation = below(6);
        p.hasTags = coin();
        gSolution->push(new editModSdvCommand(subdivision, p));
    } else if (auto *symmetry = qobject_cast<KMModSymNode *>(node)) {
        KMModSymNode::Parameters p = symmetry->parameters();
        p.axis = below(6);
        p.margin = number(0.5f);
        p.crossing = quint8(below(3));
        gSolution->push(new editModSymCommand(symmetry, p));
    } else if (auto *lattice = qobject_cast<KMModFFDNode *>(node)) {
        KMModFFDNode::Parameters p = lattice->parameters();
        p.power = number(2.0f);
        if (coin())
            p.nodeCounts[below(3)] = 2 + below(3);
        gSolution->push(new editModFFDCommand(lattice, p));
    } else if (auto *pipe = qobject_cast<KMModPipeNode *>(node)) {
        KMModPipeNode::Parameters p = pipe->parameters();
        p.mode = below(5);
        p.sectors = 3 + below(4);
        p.offset = number(180.0f);
        p.radius = number(1.0f);
        p.fillCap = coin();
        gSolution->push(new editModPipeCommand(pipe, p));
    } else if (auto *solid = qobject_cast<KMModSolidNode *>(node)) {
        gSolution->push(new editModSolCommand(solid, {number(1.0f), 0}));
    } else if (auto *cloner = qobject_cast<KMModClonerNode *>(node)) {
        KMModClonerNode::Parameters p = cloner->parameters();
        p.mode = below(5);
        p.count = 1 + below(3);
        p.move = {number(9.0f), number(9.0f), number(9.0f)};
        p.scale = {number(2.0f), 1.0f, number(2.0f)};
        p.rotate = {number(90.0f), 0.0f, number(90.0f)};
        gSolution->push(new editModClonerCommand(cloner, p));
    }
}

void Walker::place()
{
    KMContainerNode *modifier = anyModifier();
    if (!modifier)
        return;
    KMTransform transform = nodeAs<KMNullNode>(modifier)->transform();
    transform.translation = {number(0.5f), number(0.5f), number(0.5f)};
    transform.rotation = kvm::Quaternion::fromEuler({number(1.0f), 0.0f, number(1.0f)});
    gSolution->push(new editSRTCommand(nodeAs<KMNullNode>(modifier), transform));
}

void Walker::moveVertex()
{
    KMMeshEdit::moveVertex(m_mesh, below(m_mesh.vertexCount()), {number(1.0f), number(1.0f), number(1.0f)});
}

void Walker::moveVertices()
{
    const KMUndoMacro macro(QStringLiteral("move"));
    for (int i = below(3); i < m_mesh.vertexCount(); i += 3) {
        if (m_mesh.vertex(i))
            KMMeshEdit::moveVertex(m_mesh, i, m_mesh.position(i) + kvm::Vector3(number(0.3f), number(0.3f), 0.0f));
    }
}

void Walker::addFace()
{
    const int count = 2 + below(3);
    int corners[KMFace::MaxCorners] = {};
    for (int c = 0; c < count; ++c) {
        corners[c] = below(m_mesh.vertexCount());
        if (!m_mesh.vertex(corners[c]) || std::find(corners, corners + c, corners[c]) != corners + c)
            return;
    }
    KMMeshEdit::addFace(m_mesh, count, corners);
}

void Walker::weighEdge()
{
    if (m_mesh.edgeCount() == 0)
        return;
    const KMEdge *edge = m_mesh.edges().at(below(m_mesh.edgeCount()));
    KMMeshEdit::setEdgeWeight(m_mesh, edge->index0, edge->index1, float(below(3)));
}

void Walker::mapUV()
{
    KMMeshEdit::editFaceUV(m_mesh, below(m_mesh.faceCount()), below(3), {number(1.0f), number(1.0f)});
}

/// A control point.
void Walker::bend()
{
    auto *lattice = qobject_cast<KMModFFDNode *>(anyModifier());
    if (!lattice)
        return;
    KMMeshNode &points = *lattice->latticeMesh();
    const int i = below(points.vertexCount());
    KMMeshEdit::moveVertex(points, i, points.position(i) + kvm::Vector3(number(5.0f), number(5.0f), number(5.0f)));
}

void Walker::crease()
{
    if (!tag() || m_mesh.edgeCount() == 0)
        return;
    const KMEdge *edge = m_mesh.edges().at(below(m_mesh.edgeCount()));
    gSolution->push(new creaseNormalCommand(tag(), edge->index0, edge->index1, coin()));
}

/// Normals of a face are the user's from now on.
void Walker::takeNormal()
{
    const int f = below(m_mesh.faceCount());
    if (!tag() || !m_mesh.face(f) || !m_mesh.face(f)->isPolygon())
        return;
    KMNormalFace record = tag()->faceNormal(f);
    record.setFixed(0, kvm::Vector3(number(1.0f), number(1.0f), 1.0f).normalized());
    record.setRotated(1, number(1.0f), kvm::Vector3(1.0f, number(1.0f), 0.0f).normalized());
    gSolution->push(new editNormalCommand(tag(), record));
}

/// In which overridden normals count.
void Walker::turnFrame()
{
    KMTransform frame = m_mesh.transform();
    frame.rotation = kvm::Quaternion::fromEuler({number(1.0f), number(1.0f), 0.0f});
    gSolution->push(new editSRTCommand(&m_mesh, frame));
}

void Walker::history()
{
    stack().setIndex(qBound(0, stack().index() + below(7) - 3, stack().count()));
}

void Walker::step()
{
    const int edit = below(int(std::size(edits)));
    (this->*edits[edit])();
    check();
    if (!m_problem.isEmpty())
        m_problem += QStringLiteral(" after edit %1 of %2 stages").arg(edit).arg(stages());
}

void Walker::check()
{
    if (m_mesh.isChainStale())
        m_problem = QStringLiteral("the chain isn't the one of the tree");
    KMChainCopy fresh(m_mesh);
    fresh.evaluate();
    if (stages() > 0)
        m_mesh.modifiers().last().second->modMesh()->refreshAfterEdit(); // as the next frame does
    for (int i = 0; i < stages() && m_problem.isEmpty(); ++i) {
        KMMeshNode &made = *fresh.stage(i)->modMesh();
        KMMeshNode &kept = *m_mesh.modifiers().at(i).second->modMesh();
        const QString expected = shapeText(made) + edgeText(made) + weightText(made);
        const QString found = shapeText(kept) + edgeText(kept) + weightText(kept);
        if (expected == found)
            continue;
        const QStringList a = expected.split(QLatin1Char('\n')), b = found.split(QLatin1Char('\n'));
        int line = 0;
        while (line < a.size() && line < b.size() && a.at(line) == b.at(line))
            ++line;
        m_problem = QStringLiteral("stage %1 (%2): line %3 is '%4', afresh '%5'")
                        .arg(i)
                        .arg(m_mesh.modifiers().at(i).second->modifierNode()->name())
                        .arg(line)
                        .arg(b.value(line), a.value(line));
    }
    if (fresh.last() && m_problem.isEmpty())
        checkNormals(*fresh.last());
}

/// Of the last result, which is the one that is drawn.
void Walker::checkNormals(const KMMeshNode &fresh)
{
    const KMMeshNode &last = *m_mesh.modifiers().last().second->modMesh();
    const float away = farthestNormals(last, fresh);
    if (!(away < 1e-4f))
        m_problem = QStringLiteral("a normal of the last result is off by %1").arg(double(away));
}

void Walker::undoAll()
{
    stack().setIndex(0);
    check();
    if (m_problem.isEmpty() && m_scene.dump.text() != m_start)
        m_problem = QStringLiteral("undone to the start the document is another one");
}

} // namespace

using MakeModifier = KMModifierNode *(*)();
Q_DECLARE_METATYPE(MakeModifier)

class tst_ModifierWalk : public QObject
{
    Q_OBJECT
private slots:
    void stepByStepAsAfresh_data();
    void stepByStepAsAfresh();
    void updatesTakeNoMemory_data();
    void updatesTakeNoMemory();
    void freezing();
    void freezingKeepsNormals_data();
    void freezingKeepsNormals();
};

void tst_ModifierWalk::stepByStepAsAfresh_data()
{
    QTest::addColumn<int>("seed");
    const int seeds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 200 : 8;
    for (int seed = 1; seed <= seeds; ++seed)
        QTest::newRow(qPrintable(QString::number(seed))) << seed;
}

void tst_ModifierWalk::stepByStepAsAfresh()
{
    QFETCH(int, seed);
    KMMeshNode *mesh = seed % 2 ? MeshFixtures::cube() : MeshFixtures::mixedBag();
    Walker walker(seed % 4 < 2 ? withNormalTag(mesh) : mesh, quint32(seed));
    for (int stage = 0; stage < 3; ++stage)
        walker.add();
    for (int step = 0; step < 150; ++step) {
        walker.step();
        QVERIFY2(walker.problem().isEmpty(), qPrintable(QStringLiteral("step %1: %2").arg(step).arg(walker.problem())));
    }
    walker.undoAll();
    QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));
}

void tst_ModifierWalk::updatesTakeNoMemory_data()
{
    QTest::addColumn<MakeModifier>("make");
    QTest::newRow("symmetry") << MakeModifier([]() -> KMModifierNode * { return new KMModSymNode; });
    QTest::newRow("lattice") << MakeModifier([]() -> KMModifierNode * { return new KMModFFDNode; });
    QTest::newRow("pipe") << MakeModifier([]() -> KMModifierNode * { return new KMModPipeNode; });
    QTest::newRow("solid") << MakeModifier([]() -> KMModifierNode * { return new KMModSolidNode; });
    QTest::newRow("cloner") << MakeModifier([]() -> KMModifierNode * { return new KMModClonerNode; });
}

/// While vertices are dragged.
void tst_ModifierWalk::updatesTakeNoMemory()
{
    QFETCH(MakeModifier, make);
    ModifierStage stage(MeshFixtures::mixedBag(), make());
    for (KMVertex *vertex : stage.mesh->vertices()) {
        if (vertex)
            vertex->pos.y += 0.25f;
    }
    QCOMPARE(stage.updateAllocations(), std::size_t(0));
}

void tst_ModifierWalk::freezing()
{
    MeshScene scene(MeshFixtures::cube());
    QCOMPARE(KMFreezeModifiers::freezeModifiers(scene.mesh), 0); // no chain
    scene.mesh->setLocked(false);
    auto *symmetry = new KMModSymNode;
    auto *subdivision = new KMModSdvNode;
    for (KMContainerNode *modifier :
         {static_cast<KMContainerNode *>(symmetry), static_cast<KMContainerNode *>(subdivision)}) {
        gProject->addToScene(modifier);
        gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, scene.mesh, modifier, KMRowFocus::Keep));
    }
    auto *child = new KMNullNode;
    gProject->addToScene(child);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, scene.mesh, child, KMRowFocus::Keep));
    gProject->checkModifiers();
    const QString before = scene.dump.text();
    const QString result = shapeText(*subdivision->modMesh());
    const std::unique_ptr<KMMeshNode> packed(subdivision->modMesh()->clone());
    packed->compact(); // the plain mesh has nothing that no face uses
    const QString shape = shapeText(*packed);
    const int steps = scene.session.stack().count();

    QCOMPARE(KMFreezeModifiers::freezeModifiers(scene.mesh), 1);
    QCOMPARE(scene.session.stack().count(), steps + 1);
    QCOMPARE(gProject->meshesInTree().size(), 1);
    QCOMPARE(gProject->modifiersInTree().size(), 0);
    KMMeshNode *frozen = gProject->meshesInTree().at(0);
    QCOMPARE(shapeText(*frozen), shape);
    QVERIFY(frozen->faceCount() > 0);
    QCOMPARE(KMTreeWidget::parentNodeOf(child), frozen);
    QCOMPARE(frozen->name(), scene.mesh->name());

    scene.session.stack().undo();
    QCOMPARE(scene.dump.text(), before);
    QCOMPARE(shapeText(*subdivision->modMesh()), result);
    scene.session.stack().redo();
    QCOMPARE(shapeText(*gProject->meshesInTree().at(0)), shape);
}

void tst_ModifierWalk::freezingKeepsNormals_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("symmetry") << int(KMNodeType::ModSym);
    QTest::newRow("subdivision with the tag") << int(KMNodeType::ModSdv);
    QTest::newRow("pipe, which has no tag") << int(KMNodeType::ModPipe);
}

/// Those that were seen, in a frame that is turned.
void tst_ModifierWalk::freezingKeepsNormals()
{
    QFETCH(int, type);
    MeshScene scene(withNormalTag(MeshFixtures::cube()));
    auto *tag = static_cast<KMTagNormal *>(scene.mesh->findTag(KMNodeType::TagNormal));
    KMTransform frame;
    frame.rotation = kvm::Quaternion::fromEuler({0.3f, 1.1f, 0.0f});
    scene.mesh->setTransform(frame);
    KMNormalFace record = tag->faceNormal(2);
    record.setFixed(1, kvm::Vector3(0, 0.6f, 0.8f));
    record.setRotated(2, 0.5f, {1, 0, 0});
    gSolution->push(new editNormalCommand(tag, record));
    KMModifierNode *modifier = nullptr;
    if (type == KMNodeType::ModSdv) {
        auto *subdivision = new KMModSdvNode;
        KMModSdvNode::Parameters p;
        p.hasTags = true;
        subdivision->setParameters(p);
        modifier = subdivision;
    } else if (type == KMNodeType::ModSym) {
        modifier = new KMModSymNode;
    } else {
        modifier = new KMModPipeNode;
    }
    gProject->addToScene(modifier);
    gSolution->push(new moveNodeCommand(moveNodeCommand::LastChild, scene.mesh, modifier, KMRowFocus::Keep));
    gProject->checkModifiers();
    modifier->modMesh()->refreshAfterEdit();

    const std::unique_ptr<KMMeshNode> frozen = KMFreezeModifiers::shapeOf(*scene.mesh);
    QVERIFY(frozen && frozen->faceCount() > 0);
    QCOMPARE(frozen->faceCount(), modifier->modMesh()->faceCount());
    frozen->refreshMesh(KMMeshDirty::All);
    const float away = farthestNormals(*frozen, *modifier->modMesh());
    QVERIFY2(away < 1e-5f, qPrintable(QString::number(double(away))));
    QCOMPARE(frozen->findTag(KMNodeType::TagNormal) != nullptr, type != KMNodeType::ModPipe);
}

KM_TEST(tst_ModifierWalk);

#include "tst_ModifierWalk.moc"
