#include "core/KMBasePositions.h"
#include "core/KMNodeType.h"
#include "core/KMTagCommands.h"
#include "mesh/KMEdgeCut.h"
#include "mesh/KMExtrusion.h"
#include "mesh/KMVertexCommands.h"
#include "modifiers/KMFreezeModifiers.h"
#include "modifiers/KMModSdvNode.h"
#include "rig/KMMorphBake.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMTagMorph.h"
#include "support/MeshWalker.h"
#include "support/TestRegistry.h"

#include <QTest>

#include <array>
#include <cmath>
#include <memory>

using kvm::Vector3;

namespace {

using Point = std::array<double, 3>;

QList<KMTagMorph *> morphTags(const KMMeshNode &mesh)
{
    QList<KMTagMorph *> found;
    for (KMTagBase *tag : mesh.tags()) {
        if (!tag->isDeleted() && tag->type() == KMNodeType::TagMorph)
            found << static_cast<KMTagMorph *>(tag);
    }
    return found;
}

QString baseText(const KMMeshNode &mesh)
{
    const KMBasePositions base(&mesh);
    return meshText(mesh);
}

std::vector<Vector3> positionsOf(const KMMeshNode &mesh)
{
    std::vector<Vector3> positions;
    for (int i = 0; i < mesh.vertexCount(); ++i)
        positions.push_back(mesh.vertex(i) ? mesh.position(i) : Vector3());
    return positions;
}

/// What is wrong with the shown positions, by a sum of its own in double precision.
QString sumFault(const KMMeshNode &mesh)
{
    std::vector<Vector3> base;
    {
        const KMBasePositions taken(&mesh);
        base = positionsOf(mesh);
    }
    std::vector<Point> sum(base.size()), size(base.size());
    const auto add = [&](size_t i, int axis, double term) {
        sum[i][size_t(axis)] += term;
        size[i][size_t(axis)] += std::abs(term);
    };
    for (size_t i = 0; i < base.size(); ++i) {
        for (int axis = 0; axis < 3; ++axis)
            add(i, axis, double(base[i][axis]));
    }
    for (const KMTagMorph *tag : morphTags(mesh)) {
        for (const KMMorph *morph : tag->morphs()) {
            const double weight = std::min(1.0, std::max(0.0, double(morph->value())));
            for (const MorphDelta &delta : morph->deltas()) {
                for (int axis = 0; axis < 3 && !morph->isDeleted() && size_t(delta.vertex) < base.size(); ++axis)
                    add(size_t(delta.vertex), axis, weight * double(delta.length) * double(delta.direction[axis]));
            }
        }
    }
    for (size_t i = 0; i < base.size(); ++i) {
        for (int axis = 0; axis < 3 && mesh.vertex(int(i)); ++axis) {
            const double off = std::abs(double(mesh.position(int(i))[axis]) - sum[i][size_t(axis)]);
            if (!(off <= 2e-6 * size[i][size_t(axis)] + 3e-7))
                return QStringLiteral("vertex %1 is off by %2").arg(i).arg(off);
        }
    }
    return {};
}

/// Edits a mesh with morphs, both what the mesh has and what the morphs have.
class MorphWalker : public MeshWalker
{
public:
    using MeshWalker::MeshWalker;

protected:
    QString text() override;
    QString fault() override;
    Vector3 anyPosition() override { return {anyLength(), anyLength(), anyLength()}; }
    void edit() override;

private:
    float anyLength() { return float(below(2000001) - 1000000) * std::pow(10.0f, float(below(5) - 8)); }
    float anyValue() { return std::array<float, 6>{0.0f, 0.0f, 0.3f, 0.7f, 1.5f, -0.5f}[size_t(below(6))]; }
    MorphDeltas anyDeltas();
    void editMorphs(KMTagMorph *tag);
    void editMorph(KMTagMorph *tag, KMMorph *morph);
    void cut();
    void extrude();

    QString m_fault; // of the bases of new vertices
};

QString MorphWalker::text()
{
    QString text = meshText(mesh()) + baseText(mesh());
    for (const KMTagMorph *tag : morphTags(mesh())) {
        text += tag->name();
        for (const KMMorph *morph : tag->liveMorphs()) {
            text += QStringLiteral("\n%1 %2 %3").arg(quintptr(morph)).arg(double(morph->value())).arg(morph->panel());
            for (const MorphDelta &delta : morph->deltas())
                text += QStringLiteral(" %1:%2").arg(delta.vertex).arg(double(delta.length), 0, 'g', 9);
        }
    }
    return text;
}

QString MorphWalker::fault()
{
    const QString problem = MeshWalker::fault() + m_fault;
    return problem.isEmpty() ? sumFault(mesh()) : problem;
}

MorphDeltas MorphWalker::anyDeltas()
{
    MorphDeltas deltas;
    for (int i = mesh().vertexCount() ? below(12) : -1; i >= 0; --i) {
        const Vector3 d = anyPosition();
        const float length = d.length();
        if (length > 0.0f)
            deltas.append({below(mesh().vertexCount()), length, d / length});
    }
    return deltas;
}

void MorphWalker::edit()
{
    const QList<KMTagMorph *> tags = morphTags(mesh());
    if (below(8) == 0)
        coin() ? cut() : extrude();
    else if (coin())
        MeshWalker::edit();
    else if (tags.size() < 2 && below(10 * tags.size() + 1) == 0)
        gSolution->push(new addTagCommand(&mesh(), tags.isEmpty() ? new KMTagMorph : tags.first()->clone()));
    else
        editMorphs(tags.at(below(tags.size())));
}

void MorphWalker::editMorphs(KMTagMorph *tag)
{
    QList<KMMorph *> live = tag->liveMorphs();
    const int choice = below(12);
    if (choice == 0) {
        gSolution->push(new deleteTagCommand(&mesh(), tag));
    } else if (choice == 1) {
        tag->resetValues();
    } else if (choice == 2) {
        std::reverse(live.begin(), live.end());
        gSolution->push(new reorderMorphCommand(tag, live));
    } else if (choice < 5 || live.isEmpty()) {
        auto *morph = new KMMorph;
        morph->setValue(anyValue());
        morph->setDeltas(anyDeltas());
        gSolution->push(new addMorphCommand(tag, morph));
    } else {
        editMorph(tag, live.at(below(live.size())));
    }
}

void MorphWalker::editMorph(KMTagMorph *tag, KMMorph *morph)
{
    switch (below(6)) {
    case 0:
        gSolution->push(new removeMorphCommand(tag, morph));
        break;
    case 1:
        gSolution->push(new editMorphDataCommand(morph, anyDeltas()));
        break;
    case 2: {
        const float before = morph->value();
        for (const float value : {0.9f, 0.1f, 0.0f}) // as a slider does
            morph->setValue(value);
        gSolution->push(new editMorphValueCommand(morph, before, morph->value()));
        break;
    }
    default:
        gSolution->push(new editMorphValueCommand(morph, anyValue()));
    }
}

/// The new vertex lies between the ends of its edge, with all morphs and without.
void MorphWalker::cut()
{
    KMMeshEdit::settleEdges(mesh());
    const KMEdge *edge = mesh().edgeCount() ? mesh().edges().at(below(mesh().edgeCount())) : nullptr;
    if (!edge)
        return;
    const int a = edge->index0, b = edge->index1;
    const auto mean = [&] { return mesh().position(a) * 0.625f + mesh().position(b) * 0.375f; };
    const auto isThere = [&](int vertex) {
        const float size = mesh().position(a).length() + mesh().position(b).length();
        return (mesh().position(vertex) - mean()).length() <= 2e-6f * size + 1e-6f;
    };
    const auto made = KMMeshEdit::cutEdges(mesh(), {{a, b, {0.375f}}}).first();
    for (const int vertex : made) {
        const bool isShownThere = isThere(vertex);
        const KMBasePositions base(&mesh());
        if (!isShownThere || !isThere(vertex))
            m_fault = QStringLiteral("the new vertex %1 isn't between %2 and %3").arg(vertex).arg(a).arg(b);
    }
}

void MorphWalker::extrude()
{
    if (mesh().faceCount() > 0)
        KMMeshEdit::selectFace(mesh(), below(mesh().faceCount()), true);
    KMMeshEdit::settleEdges(mesh());
    std::vector<KMExtrusion> extrusions;
    extrusions.emplace_back(mesh(), KMExtrusion::Options());
    extrusions.front().setLength(number());
    KMExtrusion::apply(extrusions);
}

/// A mesh with one morph tag, in a document or not.
struct Morphed
{
    explicit Morphed(KMMeshNode *taken)
        : mesh(taken)
        , tag(new KMTagMorph)
    {
        mesh->addTagKeepName(tag);
    }
    KMMorph *add(float value, const MorphDeltas &deltas)
    {
        auto *morph = new KMMorph;
        morph->setDeltas(deltas);
        morph->setValue(value);
        tag->addMorph(morph);
        return morph;
    }

    KMMeshNode *mesh;
    KMTagMorph *tag;
};

} // namespace

class tst_KMTagMorph : public QObject
{
    Q_OBJECT
private slots:
    void everyStepComesBack_data();
    void everyStepComesBack();
    void valuesAddUp();
    void removedOffsetsStayOff();
    void deltasFromTwoMeshes();
    void copies();
    void frozenChain();
};

void tst_KMTagMorph::everyStepComesBack_data()
{
    const quint32 seeds = qEnvironmentVariableIsSet("KELMO_LONG_TESTS") ? 500 : 25;
    QTest::addColumn<quint32>("seed");
    for (quint32 seed = 1; seed <= seeds; ++seed)
        QTest::addRow("%u", seed) << seed;
}

void tst_KMTagMorph::everyStepComesBack()
{
    QFETCH(const quint32, seed);
    MorphWalker walker(seed % 3 ? MeshFixtures::torus(5, 4) : MeshFixtures::mixedBag(), seed);
    walker.start();
    for (int i = 0; i < 200; ++i) {
        walker.step();
        QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));
    }
    for (const int index : {0, walker.length(), 0}) {
        walker.goTo(index);
        QVERIFY2(walker.problem().isEmpty(), qPrintable(walker.problem()));
    }
}

void tst_KMTagMorph::valuesAddUp()
{
    const std::unique_ptr<KMMeshNode> cube(MeshFixtures::cube());
    Morphed morphed(cube.get());
    const Vector3 before = cube->position(2);
    KMMorph *first = morphed.add(1.5f, {{2, 2.0f, {1, 0, 0}}, {900, 1.0f, {1, 0, 0}}, {-1, 1.0f, {1, 0, 0}}});
    morphed.add(0.25f, {{2, 2.0f, {0, 1, 0}}, {3, 1e-7f, {0, 1, 0}}});
    morphed.add(-0.5f, {{2, 9.0f, {0, 0, 1}}});
    morphed.add(std::nanf(""), {{2, 9.0f, {0, 0, 1}}});
    QCOMPARE(cube->position(2), before + Vector3(2.0f, 0.5f, 0.0f));
    QCOMPARE(morphed.tag->offsets().size(), 24);
    QCOMPARE(morphed.tag->offsets().at(10), 0.0f); // too little to be any
    first->setValue(0.0f);
    QCOMPARE(cube->position(2), before + Vector3(0.0f, 0.5f, 0.0f));
}

void tst_KMTagMorph::removedOffsetsStayOff()
{
    const std::unique_ptr<KMMeshNode> cube(MeshFixtures::cube());
    Morphed morphed(cube.get());
    const std::vector<Vector3> base = positionsOf(*cube);
    morphed.add(1.0f, {{2, 2.0f, {1, 0, 0}}});
    const std::vector<Vector3> shown = positionsOf(*cube);
    morphed.tag->removeOffsets();
    QCOMPARE(positionsOf(*cube), base);
    cube->refreshMesh(KMMeshDirty::Positions);
    QCOMPARE(positionsOf(*cube), shown);

    cube->addVertexRaw({}); // the sum is of another size now
    morphed.tag->removeOffsets();
    QCOMPARE(cube->position(2), shown[2]);
    cube->refreshMesh(KMMeshDirty::All);
    QCOMPARE(cube->position(2), shown[2]);
}

void tst_KMTagMorph::deltasFromTwoMeshes()
{
    const std::unique_ptr<KMMeshNode> base(MeshFixtures::mixedBag()); // loose vertex, null slots
    const std::unique_ptr<KMMeshNode> target(base->clone());
    Morphed morphed(base.get());
    KMMorph *other = morphed.add(1.0f, {});
    target->compact();
    QVERIFY(target->vertexCount() < base->vertexCount());
    const int last = target->vertexCount() - 1;
    target->setPosition(0, target->position(0) + Vector3(0.0f, -3.0f, 1e-7f));
    target->setPosition(last, target->position(last) + Vector3(3.0f, 0.0f, 4.0f));
    target->setVertexFlag(last, KMElementFlag::Selected);
    int slotOfLast = base->vertexCount() - 1;
    while (!base->vertex(slotOfLast) || base->vertex(slotOfLast)->faceRefs.isEmpty())
        --slotOfLast;
    other->setDeltas({{slotOfLast, 7.0f, {0, 1, 0}}}); // it is no part of the shape that is compared

    const auto built = [&](bool onlySelected, float ratio, const KMMeshNode &to) {
        KMMorph morph;
        KMTagMorph::buildDeltas(&morph, *base, to, onlySelected, ratio);
        return morph.deltas();
    };
    const MorphDeltas both = built(false, 0.5f, *target);
    QCOMPARE(both.size(), 2);
    QCOMPARE(both.first().direction, Vector3(0, -1, 0));
    QCOMPARE(both.last().vertex, slotOfLast);
    QCOMPARE(both.last().length, 2.5f);
    QVERIFY((both.last().direction - Vector3(0.6f, 0.0f, 0.8f)).length() < 1e-6f);
    QCOMPARE(built(true, 1.0f, *target).size(), 1);
    QVERIFY(built(false, 0.0f, *target).isEmpty());
    const std::unique_ptr<KMMeshNode> small(MeshFixtures::openCone(3));
    QVector<int> moved, firstOnes; // the pairs end with the shorter list
    for (int i = 0; firstOnes.size() < small->vertexCount(); ++i) {
        if (base->vertex(i) && !base->vertex(i)->faceRefs.isEmpty())
            firstOnes << i;
    }
    for (int i = 0; i < small->vertexCount(); ++i)
        small->setPosition(i, {1000.0f, float(i), 0.0f});
    for (const MorphDelta &delta : built(false, 1.0f, *small))
        moved << delta.vertex;
    QCOMPARE(moved, firstOnes);
}

/// A copy has the shape and the morphs, each its own.
void tst_KMTagMorph::copies()
{
    MeshScene scene(MeshFixtures::cube());
    Morphed morphed(scene.mesh);
    KMMorph *morph = morphed.add(0.3f, {{2, 2.0f, {1, 0, 0}}, {50, 2.0f, {1, 0, 0}}});
    morph->setName(QStringLiteral("smile"));
    morph->setPanel(KMMorph::RightTop);
    const std::unique_ptr<KMMeshNode> copy(scene.mesh->clone());
    QCOMPARE(positionsOf(*copy), positionsOf(*scene.mesh));
    const KMTagMorph *tag = morphTags(*copy).value(0);
    QVERIFY(tag);
    KMMorph *twin = tag->findMorph(QStringLiteral("smile"));
    QVERIFY(twin);
    QCOMPARE(twin->panel(), int(KMMorph::RightTop));
    QCOMPARE(twin->deltas().size(), 1); // the other one is of no vertex
    morph->setValue(0.0f);
    twin->setValue(0.0f);
    QCOMPARE(positionsOf(*copy), positionsOf(*scene.mesh));
}

/// Frozen, a morphed mesh looks as it did, and its morphs do what they did through the chain.
void tst_KMTagMorph::frozenChain()
{
    MeshScene scene(MeshFixtures::cube());
    Morphed morphed(scene.mesh);
    morphed.add(0.5f, {{2, 2.0f, {0.6f, 0.8f, 0}}, {3, 1.0f, {0, 0, 1}}})->setName(QStringLiteral("smile"));
    KMModSdvNode sdv;
    scene.mesh->linkChain({{true, &sdv}});
    scene.mesh->refreshMesh(KMMeshDirty::All);
    const auto shownWith = [](const KMMeshNode &mesh, float value) {
        morphTags(mesh).first()->liveMorphs().first()->setValue(value);
        const_cast<KMMeshNode &>(mesh).refreshMesh(KMMeshDirty::All);
    };
    const std::unique_ptr<KMMeshNode> frozen = KMFreezeModifiers::shapeOf(*scene.mesh, &KMMorphBake::carry);
    QVERIFY(frozen);
    QCOMPARE(frozen->vertexCount(), sdv.modMesh()->vertexCount());
    for (const float value : {0.5f, 0.0f, 1.0f}) {
        shownWith(*scene.mesh, value);
        shownWith(*frozen, value);
        for (int i = 0; i < frozen->vertexCount(); ++i)
            QVERIFY((frozen->position(i) - sdv.modMesh()->position(i)).length() < 1e-6f);
    }
    scene.mesh->linkChain({});
}

KM_TEST(tst_KMTagMorph);

#include "tst_KMTagMorph.moc"
