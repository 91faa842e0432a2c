#include "core/KMVertexFollower.h"

#include "core/KMSolution.h"
#include "core/KMUndoCommand.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMBevel.h"
#include "mesh/KMCopyBuffer.h"
#include "mesh/KMEdgeCut.h"
#include "mesh/KMEdgeExtrude.h"
#include "mesh/KMEdgeSplit.h"
#include "mesh/KMExtrusion.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshPaste.h"
#include "support/CommandProof.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"
#include "support/TestTag.h"

#include <QTest>
#include <QUndoStack>

#include <cmath>
#include <utility>

namespace {

/// A number for each vertex, of which new ones get the mean of what they were made from.
class NumberTag : public TestTag, public KMVertexFollower
{
public:
    explicit NumberTag(KMMeshNode *mesh)
        : m_mesh(mesh)
    {
        mesh->addTag(this);
    }

    static float numberAt(const kvm::Vector3 &place) { return 5.0f + 2.0f * place.x + 3.0f * place.z; }
    void fill()
    {
        for (int i = 0; i < m_mesh->vertexCount(); ++i)
            numbers.insert(i, numberAt(m_mesh->position(i)));
    }
    void pushVerticesMade(const QVector<KMVertexOrigin> &origins) override;
    void remapIndices() override;
    QString text() const
    {
        QString all;
        for (auto number = numbers.cbegin(); number != numbers.cend(); ++number)
            all += QStringLiteral("%1: %2\n").arg(number.key()).arg(double(number.value()), 0, 'g', 9);
        return all;
    }

    QMap<int, float> numbers;
    int timesTold = 0;
    int made = 0;
    QString fault;

private:
    KMMeshNode *m_mesh;
    QMap<int, float> m_dropped; // of vertices that the last renumbering left out
};

/// Undo gives back what went.
void NumberTag::remapIndices()
{
    QMap<int, float> renumbered = std::exchange(m_dropped, {});
    for (auto number = numbers.cbegin(); number != numbers.cend(); ++number) {
        const int index = m_mesh->remappedVertex(number.key());
        (index < 0 ? m_dropped : renumbered).insert(index < 0 ? number.key() : index, number.value());
    }
    numbers = renumbered;
}

class setNumbersCommand : public KMUndoCommand
{
public:
    setNumbersCommand(NumberTag *tag, const QMap<int, float> &after)
        : KMUndoCommand(QStringLiteral("Numbers"), nullptr)
        , m_tag(tag)
        , m_before(tag->numbers)
        , m_after(after)
    {
    }

protected:
    void apply(Direction direction) override { m_tag->numbers = direction == Direction::Redo ? m_after : m_before; }

private:
    NumberTag *m_tag;
    QMap<int, float> m_before, m_after;
};

void NumberTag::pushVerticesMade(const QVector<KMVertexOrigin> &origins)
{
    ++timesTold;
    made += origins.size();
    QMap<int, float> after = numbers;
    for (const KMVertexOrigin &origin : origins) {
        float sum = 0.0f;
        for (const KMVertexOrigin::Source &source : origin.sources) {
            sum += source.share;
            if (source.vertex >= 0 && !m_mesh->vertex(source.vertex))
                fault = QStringLiteral("a source is gone");
        }
        if (after.contains(origin.vertex) || !m_mesh->vertex(origin.vertex) || std::abs(sum - 1.0f) > 1e-5f)
            fault = QStringLiteral("vertex %1, shares %2").arg(origin.vertex).arg(double(sum));
        after.insert(origin.vertex, origin.mean([this](int i) { return numbers.value(i); }));
    }
    gSolution->push(new setNumbersCommand(this, after));
}

using Edit = void (*)(KMMeshNode &);

void selectFaces(KMMeshNode &mesh, const QVector<int> &faces)
{
    for (const int f : faces)
        mesh.setFaceFlag(f, KMElementFlag::Selected);
}

/// The edges about the middle of a grid of four by four quads.
void selectCross(KMMeshNode &mesh)
{
    for (const int i : {7, 17, 11, 13})
        mesh.setEdgeFlag(12, i, KMElementFlag::Selected);
}

template <class Shape, class Size>
void applyShape(KMMeshNode &mesh, Size size)
{
    std::vector<Shape> shapes;
    shapes.emplace_back(mesh, typename Shape::Options());
    (shapes.front().*size)(0.25f);
    Shape::apply(shapes);
}

} // namespace

Q_DECLARE_METATYPE(Edit)

class tst_KMVertexFollower : public QObject
{
    Q_OBJECT
private slots:
    void sharesOfNewVertices_data();
    void sharesOfNewVertices();
    void othersAreLeftAlone();
};

/// On a grid in the plane of x and z; the number of a vertex is that of its place, whatever its height, as long as
/// every new vertex gets its share of the right ones.
void tst_KMVertexFollower::sharesOfNewVertices_data()
{
    QTest::addColumn<Edit>("select");
    QTest::addColumn<Edit>("edit");
    QTest::addColumn<int>("made");

    const Edit nothing = [](KMMeshNode &) {};
    const Edit face = [](KMMeshNode &mesh) { selectFaces(mesh, {5}); };
    const Edit twoFaces = [](KMMeshNode &mesh) { selectFaces(mesh, {0, 1}); };
    const Edit cut = [](KMMeshNode &mesh) {
        QVector<KMEdgeCut> cuts;
        for (const auto &[a, b] : QVector<QPair<int, int>>{{0, 1}, {1, 6}, {6, 5}, {5, 0}})
            cuts.append({a, b, {0.25f, 0.625f}});
        KMMeshEdit::cutEdges(mesh, cuts);
    };
    const Edit split = [](KMMeshNode &mesh) { KMMeshEdit::splitEdges(mesh, KMElementFlag::Selected); };
    const Edit separate = [](KMMeshNode &mesh) { KMMeshEdit::separateVertices(mesh, {12, 2}); };
    const Edit extrudeEdges = [](KMMeshNode &mesh) { KMMeshEdit::extrudeEdges(mesh); };
    const Edit paste = [](KMMeshNode &mesh) {
        KMMeshPaste::paste(mesh, KMCopyBuffer::copySelection(), KMMeshPaste::Kind::Plain);
    };
    const Edit extrude = [](KMMeshNode &mesh) { applyShape<KMExtrusion>(mesh, &KMExtrusion::setLength); };
    const Edit bevel = [](KMMeshNode &mesh) { applyShape<KMBevel>(mesh, &KMBevel::setWidth); };
    const Edit cross = &selectCross;

    QTest::newRow("cut with points inside") << nothing << cut << 12;
    QTest::newRow("extrude") << face << extrude << 4;
    QTest::newRow("bevel") << cross << bevel << 16;
    QTest::newRow("extrude edges") << cross << extrudeEdges << 5;
    QTest::newRow("split") << cross << split << 3;
    QTest::newRow("separate") << nothing << separate << 6;
    QTest::newRow("paste") << twoFaces << paste << 6;
}

void tst_KMVertexFollower::sharesOfNewVertices()
{
    QFETCH(const Edit, select);
    QFETCH(const Edit, edit);
    QFETCH(const int, made);
    MeshScene scene(MeshFixtures::grid(4, 4));
    auto *tag = new NumberTag(scene.mesh);
    tag->fill();
    select(*scene.mesh);
    const auto text = [&] {
        scene.mesh->refreshAfterEdit();
        return scene.dump.text() + tag->text();
    };
    const auto step = [&] {
        const KMUndoMacro macro(QStringLiteral("Edit"));
        edit(*scene.mesh);
    };
    QCOMPARE(stepFailure(text, QStringLiteral("Edit"), step), QString());
    QCOMPARE(tag->timesTold, 1);
    QCOMPARE(tag->fault, QString());
    QCOMPARE(tag->made, made);
    for (int i = 0; i < scene.mesh->vertexCount(); ++i) {
        if (scene.mesh->vertex(i))
            QVERIFY(std::abs(tag->numbers.value(i) - NumberTag::numberAt(scene.mesh->position(i))) < 1e-4f);
    }
}

/// A tag that is out of the scene, and a copy from a mesh whose vertices have other places by now.
void tst_KMVertexFollower::othersAreLeftAlone()
{
    MeshScene scene(MeshFixtures::grid(2, 2));
    auto *tag = new NumberTag(scene.mesh);
    selectFaces(*scene.mesh, {0});
    const QByteArray copied = KMCopyBuffer::copySelection();
    for (int i = 0; i < scene.mesh->vertexCount(); ++i)
        scene.mesh->setPosition(i, scene.mesh->position(i) + kvm::Vector3(0.0f, 1.0f, 0.0f));
    QVERIFY(KMMeshPaste::paste(*scene.mesh, copied, KMMeshPaste::Kind::Plain));
    QCOMPARE(tag->timesTold, 0);

    tag->setDeleted(true);
    KMMeshEdit::cutEdges(*scene.mesh, {{0, 1, {0.5f}}});
    QCOMPARE(tag->timesTold, 0);
    tag->setDeleted(false);
    KMMeshEdit::cutEdges(*scene.mesh, {{1, 2, {0.5f}}});
    QCOMPARE(tag->timesTold, 1);
}

KM_TEST(tst_KMVertexFollower);

#include "tst_KMVertexFollower.moc"
