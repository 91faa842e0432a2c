#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "mesh/KMFaceCommands.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshRenderData.h"
#include "render/KMBufferMap.h"
#include "render/KMRenderer.h"
#include "render/KMShareContext.h"
#include "render/KMViewFilter.h"
#include "support/MeshFixtures.h"
#include "support/RenderScene.h"
#include "support/TestRegistry.h"

#include <QTest>
#include <QUndoStack>

#include <random>

namespace {

constexpr quint8 flags[] = {KMElementFlag::Selected, KMElementFlag::Hot, KMElementFlag::Hidden};

/// Changes that a user or a tool could make, by chance.
class Changes
{
public:
    Changes(RenderScene &scene, KMMeshNode *mesh, unsigned seed)
        : m_scene(scene)
        , m_mesh(mesh)
        , m_random(seed)
    {
        KMBasicShader values;
        values.diffuse = Qt::green;
        scene.addShader(values);
        values.outlineEnabled = true;
        values.outlineSize = 3.0f;
        values.textures[KMBasicShader::Diffuse] = scene.addTexture(QImage(4, 4, QImage::Format_RGB32));
        scene.addShader(values);
    }

    QString make()
    {
        using Change = void (Changes::*)();
        struct Row
        {
            const char *name;
            Change change;
        };
        const Row rows[] = {{"move", &Changes::move},
                            {"flag", &Changes::flag},
                            {"edge", &Changes::edgeFlag},
                            {"shader", &Changes::shader},
                            {"delete", &Changes::deleteFace},
                            {"undo", &Changes::undo},
                            {"uv", &Changes::uv},
                            {"turn", &Changes::turn},
                            {"switch", &Changes::switchFlags},
                            {"activate", &Changes::activate},
                            {"corner", &Changes::cornerFlag},
                            {"hide", &Changes::hide}};
        const Row &row = rows[number(int(std::size(rows)))];
        (this->*row.change)();
        return QLatin1String(row.name);
    }

private:
    int number(int below) { return int(m_random() % unsigned(below)); }
    float amount() { return float(number(100)) * 0.01f - 0.5f; }
    int face()
    {
        int f = number(m_mesh->faceCount());
        while (!m_mesh->face(f))
            f = (f + 1) % m_mesh->faceCount();
        return f;
    }
    quint8 bit() { return flags[number(3)]; }

    void move()
    {
        for (int i = 0; i < 5; ++i) {
            const int v = number(m_mesh->vertexCount());
            if (m_mesh->vertex(v))
                m_mesh->setPosition(v, m_mesh->position(v) + kvm::Vector3(amount(), amount(), amount()));
        }
        m_mesh->markMoved();
    }
    void flag()
    {
        if (number(2))
            m_mesh->setFaceFlag(face(), bit());
        else
            m_mesh->clearFaceFlag(face(), bit());
        m_mesh->setVertexFlag(number(m_mesh->vertexCount()), flags[number(2)]);
    }
    void edgeFlag()
    {
        const KMFace &record = *m_mesh->face(face());
        if (number(3))
            m_mesh->setEdgeFlag(record.indices[0], record.indices[1], flags[number(2)]);
        else
            m_mesh->clearAllEdgeFlags(KMElementFlag::Hot);
    }
    void cornerFlag()
    {
        m_mesh->setCornerFlag(face(), number(3), number(2) ? KMElementFlag::Selected : KMElementFlag::UVLocked);
    }
    void shader()
    {
        m_mesh->setFaceShader(face(), number(3) - 1);
        m_mesh->markDirty(KMMeshDirty::All);
    }
    void deleteFace()
    {
        if (m_mesh->liveFaces().size() > 20)
            gSolution->push(new deleteFaceCommand(m_mesh, face()));
    }
    void undo()
    {
        if (number(3))
            gSolution->undoStack()->undo();
        else
            gSolution->undoStack()->redo();
    }
    void uv()
    {
        m_mesh->face(face())->uvs[number(3)] = {amount(), amount()};
        m_mesh->markDirty(KMMeshDirty::All);
    }
    void turn() { m_scene.camera.setAngles(90.0f * amount(), 360.0f * amount(), 0); }
    void switchFlags()
    {
        m_scene.setFlags({number(3) > 0, number(3) > 0, number(4) > 0, number(2) > 0, false});
        m_scene.setFilter(KMViewFilter::CullingCurrentOnly, number(2));
        m_scene.setFilter(KMViewFilter::UnselectedElements, number(2));
    }
    void activate() { gSolution->setCurrentNode(number(2) ? m_mesh : nullptr); }
    void hide() { m_mesh->setVisible(number(4) > 0); }

    RenderScene &m_scene;
    KMMeshNode *m_mesh;
    std::mt19937 m_random;
};

} // namespace

class tst_KMRendererUpdates : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void walkShowsWhatAFreshMeshShows_data();
    void walkShowsWhatAFreshMeshShows();
    void stillSceneIsLeftAlone();
    void flagsLeaveTheIndicesAlone();
    void quickFramesLoseNothing();
    void modelEdgesInTheTexturesPlane();
    void hiddenMeshesCatchUp();
    void deletedMaterialIsBlack();
};

void tst_KMRendererUpdates::initTestCase()
{
    RenderScene scene;
    if (!scene.view.isValid())
        QSKIP("no OpenGL");
}

void tst_KMRendererUpdates::walkShowsWhatAFreshMeshShows_data()
{
    QTest::addColumn<unsigned>("seed");
    for (const unsigned seed : {1u, 2u, 3u})
        QTest::addRow("%u", seed) << seed;
}

/// What is written over in place has to be what building anew gives, in two views by turns.
void tst_KMRendererUpdates::walkShowsWhatAFreshMeshShows()
{
    QFETCH(unsigned, seed);
    RenderScene scene({120, 90});
    KMMeshNode *mesh = scene.add(MeshFixtures::torus(9, 6));
    scene.session.stack().clear();
    scene.camera.setDistance(12);
    KMCameraNode uvCamera(KMCameraNode::UV);
    Changes changes(scene, mesh, seed);
    scene.session.stack().clear();
    QStringList done;
    for (int i = 0; i < 120; ++i) {
        done << changes.make();
        const QImage shown = scene.paint();
        const QImage shownUV = i % 3 ? QImage() : scene.view.paint(uvCamera, scene.background);
        if (mesh->renderer())
            mesh->renderer()->invalidate();
        QVERIFY2(shown == scene.paint(), qPrintable(done.join(QLatin1Char(' '))));
        if (!shownUV.isNull())
            QVERIFY2(shownUV == scene.view.paint(uvCamera, scene.background), qPrintable(done.join(QLatin1Char(' '))));
    }
}

void tst_KMRendererUpdates::stillSceneIsLeftAlone()
{
    RenderScene scene;
    KMMeshNode *mesh = scene.add(MeshFixtures::torus(9, 6));
    scene.paint();
    const kvm::Vector3 mark(-1, -2, -3);
    mesh->vertex(0)->screenPos = mark;
    scene.paint();
    QCOMPARE(mesh->vertex(0)->screenPos, mark);

    mesh->setPosition(5, {0, 9, 0});
    mesh->markMoved();
    scene.paint();
    QVERIFY(mesh->vertex(0)->screenPos != mark);
    QCOMPARE(mesh->vertex(5)->screenPos.x, scene.camera.worldToWindow({0, 9, 0}).x);

    mesh->vertex(0)->screenPos = mark;
    scene.camera.setDistance(20);
    scene.paint();
    QVERIFY(mesh->vertex(0)->screenPos != mark);
}

/// A selection writes over the colours, and no pass gets another list of what it draws.
void tst_KMRendererUpdates::flagsLeaveTheIndicesAlone()
{
    RenderScene scene;
    scene.setFlags({true, true, true, false, false});
    KMMeshNode *mesh = scene.add(MeshFixtures::torus(9, 6));
    gSolution->setCurrentNode(mesh);
    scene.paint();
    const auto firstIndices = [mesh](quint32 written) {
        const KMShareContext context;
        KMRendererMesh &data = KMRendererMesh::of(*mesh);
        QVector<quint32> found;
        for (RenderGroup *group :
             {data.updateFaces(KMFaceStyle()).front().get(), &data.updateEdges({}), &data.updatePoints({})}) {
            const KMBufferMap<quint32> map(group->ibo);
            found << std::exchange(map.data()[0], written);
        }
        return found;
    };
    const QVector<quint32> before = firstIndices(77);
    mesh->setVertexFlag(3, KMElementFlag::Selected);
    mesh->setFaceFlag(5, KMElementFlag::Selected);
    mesh->setEdgeFlag(*mesh->edges().begin(), KMElementFlag::Selected);
    scene.paint();
    QCOMPARE(firstIndices(77), QVector<quint32>(3, 77));
    mesh->setFaceFlag(8, KMElementFlag::Hidden);
    scene.paint();
    QCOMPARE(firstIndices(77), before);
}

/// A quick frame shows no mesh; the next full one shows all that happened before it.
void tst_KMRendererUpdates::quickFramesLoseNothing()
{
    RenderScene scene({120, 90});
    KMMeshNode *mesh = scene.add(MeshFixtures::torus(9, 6));
    scene.camera.setDistance(12);
    const QImage plain = scene.paint();
    gRenderer->setQuickFrame(true);
    mesh->setPosition(5, {0, 9, 0});
    mesh->markMoved();
    const QImage quick = scene.paint();
    scene.camera.setDistance(14);
    scene.paint();
    gRenderer->setQuickFrame(false);
    const QImage shown = scene.paint();
    mesh->renderer()->invalidate();
    QCOMPARE(shown, scene.paint());
    QVERIFY(quick != plain && quick != shown);
}

/// What happened to a mesh while it was hidden shows when it comes back into a view that stood still.
void tst_KMRendererUpdates::hiddenMeshesCatchUp()
{
    RenderScene scene({120, 90});
    scene.setFlags({true, true, true, false, false});
    KMMeshNode *mesh = scene.add(MeshFixtures::torus(9, 6));
    scene.camera.setDistance(12);
    scene.paint();
    mesh->setVisible(false);
    scene.paint();
    mesh->setFaceFlag(3, KMElementFlag::Hidden);
    mesh->setPosition(5, {0, 9, 0});
    mesh->markMoved();
    mesh->refreshAfterEdit(); // as the history does
    scene.paint();
    mesh->setVisible(true);
    scene.paint();
    QVERIFY(!mesh->face(3)->drawn);
    QCOMPARE(mesh->vertex(5)->screenPos.y, scene.camera.worldToWindow({0, 9, 0}).y);
}

/// The view of the texture's plane shows the edges of the active mesh, all in one colour, if it shows edges at all.
void tst_KMRendererUpdates::modelEdgesInTheTexturesPlane()
{
    RenderScene scene({120, 90});
    KMMeshNode *mesh = scene.add(MeshFixtures::torus(9, 6));
    scene.camera.setDistance(12);
    scene.paint();
    KMCameraNode uvCamera(KMCameraNode::UV);
    KMFrame frame;
    frame.camera = &uvCamera;
    frame.background = scene.background;
    const auto countOf = [&](const QColor &color) {
        const QImage picture = scene.view.paint(frame);
        int count = 0;
        for (int i = 0; i < picture.width() * picture.height(); ++i)
            count += picture.pixelColor(i % picture.width(), i / picture.width()) == color;
        return count;
    };
    const QColor plain = gSettings->displayColor(DP_ACT_EDGE);
    gSolution->setCurrentNode(mesh);
    const int without = countOf(plain);
    frame.referenceCamera = &scene.camera;
    const int with = countOf(plain);
    QVERIFY(with > without + 50);
    const QColor marked = gSettings->displayColor(DP_SEL_EDGE);
    const int ofOthers = countOf(marked);
    for (KMEdge *edge : mesh->edges())
        mesh->setEdgeFlag(edge, KMElementFlag::Selected);
    QCOMPARE(countOf(plain), with);
    QCOMPARE(countOf(marked), ofOthers);
    uvCamera.setViewFlag(KMCameraNode::ShowEdges, false);
    QCOMPARE(countOf(plain), without);
}

void tst_KMRendererUpdates::deletedMaterialIsBlack()
{
    RenderScene scene({64, 64});
    KMMeshNode *mesh = scene.add(MeshFixtures::grid(8, 8));
    for (int f = 0; f < mesh->faceCount(); ++f)
        mesh->setFaceShader(f, 77);
    mesh->markDirty(KMMeshDirty::All);
    scene.setFlags({false, false, true, false, false});
    scene.camera.setAngles(-90, 0, 0);
    scene.camera.setPan({4, 0, 4});
    scene.camera.setDistance(5);
    QCOMPARE(scene.paint().pixelColor(30, 30), QColor(Qt::black));
}

KM_TEST(tst_KMRendererUpdates);

#include "tst_KMRendererUpdates.moc"
