#include "shell/KMBenchMark.h"

#include "core/KMProject.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMMeshNode.h"
#include "render/KMCameraNode.h"
#include "render/KMOffscreenView.h"

#include <QElapsedTimer>

#include <cmath>

namespace {

constexpr int Side = 200;         // cells of the grid
constexpr int Turn = 120;         // frames
constexpr int LongestTime = 5000; // milliseconds
constexpr float Extent = 300.0f;
const QSize FrameSize(1280, 720);
const QColor Background(127, 127, 127);

/// A document of its own in the place of the user's, which comes back untouched.
class Scene
{
    Q_DISABLE_COPY(Scene)
public:
    Scene()
        : m_document(gProject)
    {
        gProject = nullptr; // as it is for every project that is being made
        gProject = m_project = new KMProject;
        auto *mesh = new KMMeshNode;
        fill(*mesh);
        gProject->addRaw(mesh);
        gProject->tree()->insertRow(nullptr, -1, KMTreeWidget::makeRow(mesh));
        gProject->rebuildDerivedLists();
    }
    ~Scene()
    {
        delete m_project;
        gProject = m_document;
    }

private:
    /// A sheet in waves.
    static void fill(KMMeshNode &mesh)
    {
        constexpr int row = Side + 1;
        mesh.reserve(row * row, Side * Side);
        for (int i = 0; i < row * row; ++i) {
            const float x = float(i % row) / float(Side) - 0.5f;
            const float z = float(i / row) / float(Side) - 0.5f;
            mesh.addVertexRaw({x * Extent, 20.0f * std::sin(x * 25.0f) * std::cos(z * 20.0f), z * Extent});
        }
        for (int i = 0; i < Side * Side; ++i) {
            const int first = i / Side * row + i % Side;
            const int corners[] = {first, first + 1, first + row + 1, first + row};
            mesh.addFaceRaw(4, corners);
        }
    }

    KMProject *m_document;
    KMProject *m_project;
};

} // namespace

KMBenchMark::Result KMBenchMark::run()
{
    Result result;
    result.size = FrameSize;
    result.faces = Side * Side;
    const Scene scene;
    KMCameraNode camera;
    KMOffscreenView view(FrameSize);
    camera.setAngles(-30.0f, 0.0f, 0.0f);
    if (view.paint(camera, Background).isNull())
        return result;
    QElapsedTimer clock;
    clock.start();
    while (result.frames < Turn && clock.elapsed() < LongestTime) {
        ++result.frames;
        camera.setAngles(-30.0f, 360.0f * float(result.frames) / float(Turn), 0.0f);
        view.paint(camera, Background);
    }
    result.milliseconds = double(clock.nsecsElapsed()) / 1e6;
    return result;
}
