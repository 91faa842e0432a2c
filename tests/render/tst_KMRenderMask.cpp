#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMRenderMask.h"
#include "render/KMViewFilter.h"
#include "support/MeshFixtures.h"
#include "support/TestModifier.h"
#include "support/TestRegistry.h"

#include <QTest>

using namespace KMRenderMask;

/// What of a mesh a view shows, by what is active, the view's flags and filters, and the place in a chain.
class tst_KMRenderMask : public QObject
{
    Q_OBJECT
private slots:
    void plainMesh_data();
    void plainMesh();
    void chain_data();
    void chain();
};

namespace {

constexpr quint32 all = Vertices | Edges | Faces | UVEdges | UVVertices;

void setFilter(KMViewFilter::Switch filter, bool on)
{
    KMSolution::ViewFlags flags = gSolution->viewFlags();
    flags.at(filter) = on;
    gSolution->setViewFlags(flags);
}

} // namespace

void tst_KMRenderMask::plainMesh_data()
{
    QTest::addColumn<bool>("isActive");
    QTest::addColumn<bool>("isVisible");
    QTest::addColumn<bool>("showsUnselected");
    QTest::addColumn<bool>("isFront");
    QTest::addColumn<bool>("cullsCurrentOnly");
    QTest::addColumn<quint32>("mask");
    QTest::newRow("active") << true << true << false << false << true << all;
    QTest::newRow("another") << false << true << false << false << true << quint32(Faces);
    QTest::newRow("another, shown whole") << false << true << true << false << true << all;
    QTest::newRow("hidden") << true << false << true << true << true << 0u;
    QTest::newRow("front, active") << true << true << false << true << true << (all | FrontOnly);
    QTest::newRow("front, another") << false << true << false << true << true << quint32(Faces | CullBack);
    QTest::newRow("front, all alike") << false << true << false << true << false << quint32(Faces | FrontOnly);
}

void tst_KMRenderMask::plainMesh()
{
    QFETCH(bool, isActive);
    QFETCH(bool, isVisible);
    QFETCH(bool, showsUnselected);
    QFETCH(bool, isFront);
    QFETCH(bool, cullsCurrentOnly);
    const MeshScene scene(MeshFixtures::cube());
    scene.mesh->setSelected(false);
    gSolution->setCurrentNode(isActive ? scene.mesh : nullptr);
    scene.mesh->setVisible(isVisible);
    setFilter(KMViewFilter::UnselectedElements, showsUnselected);
    setFilter(KMViewFilter::CullingCurrentOnly, cullsCurrentOnly);
    KMCameraNode camera;
    camera.setViewFlag(KMCameraNode::FrontOnly, isFront);
    QTEST(KMRenderMask::of(*scene.mesh, camera), "mask");
}

void tst_KMRenderMask::chain_data()
{
    QTest::addColumn<int>("type"); // of the modifier
    QTest::addColumn<QString>("active");
    QTest::addColumn<bool>("isLast");
    QTest::addColumn<bool>("isCageVisible");
    QTest::addColumn<quint32>("mask"); // of the result
    const int symmetry = KMNodeType::ModSym;
    const int generator = KMNodeType::ModSdv;
    QTest::newRow("symmetry") << symmetry << "" << true << true << quint32(Faces);
    QTest::newRow("active symmetry") << symmetry << "modifier" << true << true << quint32(Faces | Edges);
    QTest::newRow("generator") << generator << "" << true << true << quint32(Faces);
    QTest::newRow("active generator") << generator << "modifier" << true << true << quint32(Faces | UVEdges);
    QTest::newRow("active cage") << generator << "cage" << true << true << quint32(Faces | Edges | UVEdges | CageEdges);
    QTest::newRow("not the last") << generator << "" << false << true << quint32(Faces | BoundsOnly);
    QTest::newRow("hidden cage") << generator << "modifier" << true << false << quint32(BoundsOnly);
}

void tst_KMRenderMask::chain()
{
    QFETCH(int, type);
    QFETCH(QString, active);
    QFETCH(bool, isLast);
    QFETCH(bool, isCageVisible);
    const MeshScene scene(MeshFixtures::cube());
    scene.mesh->setSelected(false);
    QStringList log;
    TestModifier modifier(scene.mesh, &log, QStringLiteral("stage"));
    TestModifier next(scene.mesh, &log, QStringLiteral("next"));
    modifier.setType(type);
    modifier.nextStage = isLast ? nullptr : &next;
    scene.mesh->setVisible(isCageVisible);
    KMNode *node = active == QLatin1String("cage") ? static_cast<KMNode *>(scene.mesh) : &modifier;
    gSolution->setCurrentNode(active.isEmpty() ? nullptr : node);
    KMViewFilter::reset();
    const KMCameraNode camera;
    QTEST(KMRenderMask::of(*modifier.modMesh(), camera), "mask");
    QVERIFY2(KMRenderMask::of(*scene.mesh, camera) == 0 || (KMRenderMask::of(*scene.mesh, camera) & BoundsOnly),
             "the result stands in place of the source");
    gSolution->setCurrentNode(nullptr);
}

KM_TEST(tst_KMRenderMask);

#include "tst_KMRenderMask.moc"
