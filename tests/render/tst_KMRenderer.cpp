#include "core/KMBluePrint.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "core/KMTextureNode.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMPrimCubeNode.h"
#include "modifiers/KMPrimCylinderNode.h"
#include "modifiers/KMPrimPlaneNode.h"
#include "modifiers/KMPrimSphereNode.h"
#include "modifiers/KMPrimTorusNode.h"
#include "render/KMCameraBox.h"
#include "render/KMRenderer.h"
#include "render/KMShareContext.h"
#include "render/KMViewFilter.h"
#include "support/MeshFixtures.h"
#include "support/PictureCheck.h"
#include "support/RenderScene.h"
#include "support/TestRegistry.h"

#include <QPainter>
#include <QTest>

#define CHECK_PICTURE(picture, name)                                                                                   \
    do {                                                                                                               \
        const QString fault = pictureFault(picture, QStringLiteral(name));                                             \
        QVERIFY2(fault.isEmpty(), qPrintable(fault));                                                                  \
    } while (false)

namespace {

QImage checker(const QColor &light, const QColor &dark, int cells = 4)
{
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(dark);
    QPainter painter(&image);
    const int cell = 64 / cells;
    for (int i = 0; i < cells * cells; ++i) {
        if ((i % cells + i / cells) % 2)
            painter.fillRect(i % cells * cell, i / cells * cell, cell, cell, light);
    }
    painter.fillRect(0, 0, cell, cell, Qt::red); // the upper left corner
    return image;
}

/// Bright in the middle, as a sphere map is.
QImage spot()
{
    QImage image(64, 64, QImage::Format_ARGB32);
    image.fill(QColor(60, 60, 60));
    QPainter painter(&image);
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor(230, 220, 120));
    painter.drawEllipse(12, 6, 24, 24); // above and to the left
    return image;
}

/// Lit above, two shades below.
QImage toonRamp()
{
    QImage image(32, 32, QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.fillRect(0, 4, 32, 6, QColor(170, 150, 200));
    painter.fillRect(0, 10, 32, 22, QColor(90, 70, 140));
    return image;
}

/// Straight down on a place, so much of the world to the right and to the left.
void lookDown(KMCameraNode &camera, const kvm::Vector3 &centre, float halfWidth)
{
    camera.setKind(KMCameraNode::Top);
    camera.setPan(centre);
    camera.setOrthoZoom(1000.0f / halfWidth);
}

class FakeTool : public KMViewTool
{
public:
    bool isEditing() const override { return false; }
    void reset() override {}
    void historyChanged(int) override {}
    void commandRun() override {}
    int toolId() const override { return 1; }
    void draw(KMOpenGLWidget *) override { ++draws; }
    QVector<KMToolOverlay> overlays(OverlayGroup group) const override { return groups[group]; }

    QVector<KMToolOverlay> groups[4];
    int draws = 0;
};

} // namespace

class tst_KMRenderer : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void primitives();
    void shaderTypes();
    void materials();
    void outline();
    void elements();
    void frontOnly();
    void uvView();
    void backgrounds();
    void blueprints();
    void cameraBox();
    void toolOverlays();
    void materialBalls();
};

void tst_KMRenderer::initTestCase()
{
    RenderScene scene;
    if (!scene.view.isValid())
        QSKIP("no OpenGL");
}

void tst_KMRenderer::primitives()
{
    QVector<QImage> pictures;
    for (const float angle : {60.0f, 0.0f}) {
        RenderScene scene;
        scene.setFlags({false, false, true, false, false});
        const QVector<KMPrimitiveNode *> all = {
            scene.add(new KMPrimSphereNode, {-90, 40, 0}), scene.add(new KMPrimCubeNode, {0, 40, 0}),
            scene.add(new KMPrimCylinderNode, {90, 40, 0}), scene.add(new KMPrimTorusNode, {-50, -50, 0}),
            scene.add(new KMPrimPlaneNode, {50, -50, 0})};
        for (KMPrimitiveNode *primitive : all)
            primitive->mesh()->setSmoothAngle(angle);
        pictures << scene.paint();
    }
    CHECK_PICTURE(contactSheet(pictures, 1), "primitives");
}

void tst_KMRenderer::shaderTypes()
{
    RenderScene scene({240, 80});
    scene.setFlags({false, false, true, false, false});
    for (int type = 0; type < 3; ++type) {
        KMBasicShader values;
        values.diffuse = QColor(230, 140, 60);
        values.specular = QColor(120, 120, 120);
        values.shaderType = type;
        scene.add(new KMPrimSphereNode, {60.0f * float(type - 1), 0, 0})->setShader(scene.addShader(values));
    }
    scene.camera.setKind(KMCameraNode::Front);
    scene.camera.setOrthoZoom(12.0f);
    CHECK_PICTURE(scene.paint(), "shader_types");
}

void tst_KMRenderer::materials()
{
    QVector<QImage> pictures;
    for (const bool flat : {false, true}) {
        RenderScene scene({320, 160});
        scene.setFlags({false, false, true, false, false});
        scene.setFilter(KMViewFilter::FlatTexture, flat);
        const int diffuse = scene.addTexture(checker(Qt::white, QColor(80, 110, 200)));
        const int sphere = scene.addTexture(spot());
        const int toon = scene.addTexture(toonRamp());
        QImage half = checker(QColor(255, 200, 0, 255), QColor(0, 120, 0, 60), 8);
        const int multi = scene.addTexture(half);
        const int normal = scene.addTexture(checker(QColor(128, 128, 255), QColor(200, 128, 220), 8));
        const std::array<int, KMBasicShader::TextureSlotCount> slotRows[] = {
            {diffuse, -1, -1, -1, -1, -1},    {diffuse, sphere, -1, -1, -1, -1}, {diffuse, sphere, -1, -1, -1, -1},
            {-1, -1, -1, toon, -1, -1},       {diffuse, -1, -1, -1, multi, -1},  {diffuse, -1, -1, -1, multi, -1},
            {diffuse, -1, -1, -1, multi, -1}, {-1, -1, normal, -1, -1, -1}};
        for (int i = 0; i < 8; ++i) {
            KMBasicShader values;
            values.diffuse = QColor(210, 210, 210);
            values.textures = slotRows[i];
            values.sphereAdd = i == 2;
            values.multiMode = i >= 4 && i < 7 ? i - 4 : 0;
            scene.add(new KMPrimSphereNode, {60.0f * (float(i % 4) - 1.5f), i < 4 ? 30.0f : -30.0f, 0})
                ->setShader(scene.addShader(values));
        }
        scene.camera.setKind(KMCameraNode::Front);
        scene.camera.setOrthoZoom(8.0f);
        pictures << scene.paint();
    }
    CHECK_PICTURE(contactSheet(pictures, 1), "materials");
}

void tst_KMRenderer::outline()
{
    RenderScene scene;
    scene.setFlags({false, false, true, false, false});
    KMBasicShader values;
    values.diffuse = QColor(250, 210, 180);
    values.outlineEnabled = true;
    values.outlineColor = QColor(160, 0, 40);
    values.outlineSize = 20.0f;
    const int shader = scene.addShader(values);
    scene.add(new KMPrimTorusNode, {-45, 0, 0})->setShader(shader);
    scene.add(new KMPrimSphereNode, {45, 0, 0})->setShader(shader);
    scene.camera.setDistance(300);
    CHECK_PICTURE(scene.paint(), "outline");
}

void tst_KMRenderer::elements()
{
    RenderScene scene({320, 200});
    KMMeshNode *mesh = scene.add(MeshFixtures::grid(6, 4)); // vertices in rows of 7
    mesh->setFaceFlag(0, KMElementFlag::Selected);
    mesh->setFaceFlag(2, KMElementFlag::Hot);
    mesh->setFaceFlag(9, KMElementFlag::Hidden);
    mesh->setVertexFlag(15, KMElementFlag::Selected);
    mesh->setVertexFlag(29, KMElementFlag::Hot);
    mesh->setEdgeFlag(25, 26, KMElementFlag::Selected);
    mesh->setEdgeFlag(26, 33, KMElementFlag::Hot);
    KMMeshNode *other = scene.add(MeshFixtures::grid(1, 4));
    for (int i = 0; i < other->vertexCount(); ++i)
        other->setPosition(i, other->position(i) + kvm::Vector3(7, 0, 0));
    gSolution->setCurrentNode(mesh);
    scene.setFilter(KMViewFilter::UnselectedElements, true);
    scene.setFlags({true, true, true, false, false});
    lookDown(scene.camera, {4, 0, 2}, 4.5f);
    CHECK_PICTURE(scene.paint(), "elements");
}

void tst_KMRenderer::frontOnly()
{
    QVector<QImage> pictures;
    for (const bool culledCurrentOnly : {false, true}) {
        RenderScene scene({320, 160});
        scene.setFlags({true, true, true, true, false});
        scene.setFilter(KMViewFilter::CullingCurrentOnly, culledCurrentOnly);
        for (const float x : {-2.5f, 2.5f}) {
            KMMeshNode *cone = scene.add(MeshFixtures::openCone(12));
            for (int i = 0; i < cone->vertexCount(); ++i)
                cone->setPosition(i, cone->position(i) * 1.5f + kvm::Vector3(x, 0, 0));
            cone->markMoved();
            gSolution->setCurrentNode(cone);
        }
        scene.camera.setAngles(25, 20, 0); // from below, into the cones
        scene.camera.setDistance(11);
        pictures << scene.paint();
    }
    CHECK_PICTURE(contactSheet(pictures, 1), "front_only");
}

void tst_KMRenderer::uvView()
{
    RenderScene scene({240, 200});
    scene.setFlags({true, true, true, false, false});
    KMMeshNode *mesh = scene.add(MeshFixtures::grid(3, 3));
    for (int f = 0; f < mesh->faceCount(); ++f) {
        for (int c = 0; c < 4; ++c) {
            const kvm::Vector3 &p = mesh->position(mesh->face(f)->indices[c]);
            mesh->face(f)->uvs[c] = {0.1f + p.x * 0.2f, 0.1f + p.z * 0.3f};
        }
    }
    mesh->setCornerFlag(0, 0, KMElementFlag::Selected);
    mesh->setCornerFlag(8, 2, KMElementFlag::UVLocked);
    mesh->setFaceFlag(4, KMElementFlag::Hidden);
    gSolution->setCurrentNode(mesh);
    const int texture = scene.addTexture(checker(Qt::white, QColor(80, 110, 200)));
    gSolution->setCurrentTexture(gProject->textures().at(texture));
    scene.camera.setKind(KMCameraNode::UV);
    scene.camera.setOrthoZoom(14.0f);
    CHECK_PICTURE(scene.paint(), "uv_view");
}

void tst_KMRenderer::backgrounds()
{
    QVector<QImage> pictures;
    RenderScene scene({64, 64});
    scene.background = QColor(125, 130, 140);
    for (const float pitch : {-80.0f, 0.0f, 80.0f}) {
        scene.camera.setAngles(pitch, 30, 0);
        for (const int gradient : {0, 1, 2, 3}) {
            gSettings->gradBG = gradient;
            pictures << scene.paint();
        }
    }
    CHECK_PICTURE(contactSheet(pictures, 4), "backgrounds");
}

/// Each blend behind the model, standing in the world, and below in front of it, turned to the view.
void tst_KMRenderer::blueprints()
{
    QVector<QImage> pictures;
    for (const int inFront : {0, 1}) {
        for (const int blend : {KMBluePrintValues::Mix, KMBluePrintValues::Add, KMBluePrintValues::Multiply}) {
            RenderScene scene({120, 90});
            scene.setFlags({false, false, true, false, false});
            scene.add(new KMPrimSphereNode);
            const QImage picture = checker(QColor(230, 230, 120), QColor(80, 110, 200)).scaled(64, 32);
            auto *plate = new KMBluePrint;
            const int mode = inFront ? KMBluePrintValues::FixedOnScreen : KMBluePrintValues::InWorld;
            plate->setValues({mode, scene.addTexture(picture), inFront, blend, 0.6f});
            plate->setTransform({{3, 3, 3}, kvm::Quaternion::fromEuler(0, 0, 0.3f), {20, 10, -40}});
            gProject->addToScene(plate);
            auto *hidden = static_cast<KMBluePrint *>(plate->clone());
            hidden->setVisible(false);
            gProject->addToScene(hidden);
            auto *other = static_cast<KMBluePrint *>(plate->clone());
            other->setValues({mode, 77, inFront, blend, 1.0f}); // no such picture
            gProject->addToScene(other);
            scene.camera.setAngles(-20, 40, 0);
            scene.camera.setDistance(220);
            pictures << scene.paint();
        }
    }
    CHECK_PICTURE(contactSheet(pictures, 3), "blueprints");
}

void tst_KMRenderer::cameraBox()
{
    struct BoxParts : KMFrameParts
    {
        void drawCameraBox(const KMCameraNode &camera) override
        {
            box->draw(gRenderer->program(KMShaderPrograms::Face2D), camera);
        }
        std::unique_ptr<KMCameraBox> box = std::make_unique<KMCameraBox>(0);
    } parts;
    RenderScene scene({160, 120});
    KMFrame request;
    request.camera = &scene.camera;
    request.background = scene.background;
    request.parts = &parts;
    QVector<QImage> pictures;
    constexpr float attitudes[][2] = {{0, 0}, {-20, 30}, {-89, 0}, {35, 200}};
    for (const auto &[pitch, yaw] : attitudes) {
        scene.camera.setAngles(pitch, yaw, 0);
        pictures << scene.view.paint(request);
    }
    const KMShareContext context;
    parts.box.reset();
    CHECK_PICTURE(contactSheet(pictures, 2), "camera_box");
}

/// A plate of points, edges and faces in the scene, a cone that shows its near side alone, and a frame in window
/// pixels.
void tst_KMRenderer::toolOverlays()
{
    const std::unique_ptr<KMMeshNode> plate(MeshFixtures::grid(3, 2));
    const std::unique_ptr<KMMeshNode> frame(MeshFixtures::grid(1, 1));
    const std::unique_ptr<KMMeshNode> cone(MeshFixtures::openCone(12));
    for (int i = 0; i < cone->vertexCount(); ++i)
        cone->setPosition(i, cone->position(i) - kvm::Vector3(2, 0, 0));
    const std::unique_ptr<KMMeshNode> hidden(MeshFixtures::torus(8, 8));
    hidden->setVisible(false);
    const kvm::Vector3 corners[] = {{20, 20, 0}, {140, 20, 0}, {20, 100, 0}, {140, 100, 0}};
    for (int i = 0; i < 4; ++i)
        frame->setPosition(i, corners[i]);
    frame->markDirty(KMMeshDirty::Positions);

    FakeTool tool;
    tool.groups[KMViewTool::FaceMeshes] = {{plate.get(), KMToolOverlay::Faces, QColor(255, 120, 0, 160)},
                                           {hidden.get(), KMToolOverlay::Faces, Qt::red}};
    tool.groups[KMViewTool::EdgeMeshes] = {{plate.get(), KMToolOverlay::Edges, Qt::yellow},
                                           {cone.get(), KMToolOverlay::Front, Qt::green}};
    tool.groups[KMViewTool::PointMeshes] = {{plate.get(), KMToolOverlay::Points, Qt::cyan}};
    tool.groups[KMViewTool::ScreenLines] = {{frame.get(), KMToolOverlay::Edges, Qt::white}};
    RenderScene scene({160, 120});
    scene.camera.setAngles(-50, 20, 0);
    scene.camera.setDistance(12);
    KMFrame request;
    request.camera = &scene.camera;
    request.background = scene.background;
    request.tool = &tool;
    const QImage picture = scene.view.paint(request);
    QCOMPARE(tool.draws, 1);
    CHECK_PICTURE(picture, "tool_overlays");
}

void tst_KMRenderer::materialBalls()
{
    RenderScene scene({96, 96});
    KMBasicShader plain;
    plain.diffuse = QColor(200, 60, 60);
    plain.specular = QColor(200, 200, 200);
    KMBasicShader toon;
    toon.textures[KMBasicShader::Diffuse] = scene.addTexture(checker(Qt::white, QColor(80, 110, 200)));
    toon.textures[KMBasicShader::Sphere] = scene.addTexture(spot());
    toon.textures[KMBasicShader::Toon] = scene.addTexture(toonRamp());
    KMBasicShader glass = plain;
    glass.diffuse.setAlpha(90);
    QVector<QImage> pictures;
    for (const KMBasicShader &values : {plain, toon, glass})
        pictures << scene.view.paintMaterial(gProject->shader(scene.addShader(values)));
    pictures << scene.view.paintMaterial(nullptr);
    CHECK_PICTURE(contactSheet(pictures, 4), "material_balls");
}

KM_TEST(tst_KMRenderer);

#include "tst_KMRenderer.moc"
