#pragma once

#include "math/Matrix4.h"
#include "render/KMFrame.h"
#include "render/KMMaterial.h"
#include "render/KMRendererMesh.h"
#include "render/KMShaderPrograms.h"
#include "render/KMTextureCache.h"
#include "render/KMViewTool.h"

#include <QOpenGLFunctions>
#include <QVector>

#include <memory>

class KMBluePrint;
class KMGuideBatch;
class KMNode;
class QOffscreenSurface;
class QOpenGLContext;
class QSurface;

/// One mesh of the scene for one call of the parallel steps.
struct RendeFuncStruct
{
    KMMeshNode *node;
    const KMCameraNode *camera;
    bool isMoved = false;   ///< the screen positions are others
    bool isRedrawn = false; ///< what of it is drawn may be other
    bool isAnew = false;    ///< so may be the edges and vertices
    bool isOther = false;   ///< answer: other elements of it are drawn than before
};

/// Draws the scene: one for the process, made by the first view. It owns programs, textures and what all meshes share;
/// a mesh owns its own buffers. paintScene() has the one order of a frame, for windows and pictures alike.
///
/// All of it belongs to the main thread. The refresh of meshes before the frame, and their way to the screen, run in
/// parallel, a mesh at a time, while the main thread waits.
class KMRenderer : public QOpenGLFunctions
{
    Q_DISABLE_COPY(KMRenderer)
public:
    /// Makes gRenderer when there is none yet. Null, and the log says why, where there is no OpenGL.
    static KMRenderer *ensure();
    ~KMRenderer();

    // For work outside of a frame; a nested pair gives back what was current before it

    void makeShareCurrent();
    void doneShareCurrent();

    /// Paints one frame into what is bound in the current context; its viewport is set already. Nothing while another
    /// frame is being painted.
    void paintScene(const KMFrame &frame);
    bool isBusy() const { return m_busy; }
    void setQuickFrame(bool quick) { m_quickFrame = quick; } ///< no more than bones and tags over the grid is drawn

    void beginScene(); ///< the state that passes start from: paintScene() does so itself

    // The steps of a frame

    void prepareFrame(const KMCameraNode &camera); ///< computes what changed; nothing when nothing did
    void finishFrame();
    /// The first of the two without a frame: screen positions and what is drawn of the meshes become those of a view.
    void refreshWindowCoords(const KMCameraNode &camera);
    /// False where the view has no gradient and has to be cleared with its colour.
    bool drawBackground(const KMCameraNode &camera, const QColor &color);
    void drawBlueprints(const KMCameraNode &camera, bool foreground); ///< behind the model or in front of it
    void drawFaces(const KMCameraNode &camera);
    void drawMarkedFaces(const KMCameraNode &camera); ///< of shapes that are wires; they hide nothing
    void drawEdges(const KMCameraNode &camera);
    void drawVertices(const KMCameraNode &camera);
    void drawNormals(const KMCameraNode &camera); ///< while the normal tool is in the hand
    void drawUVPlate(const KMCameraNode &camera);
    void drawUVEdges(const KMCameraNode &camera);
    void drawUVVertices(const KMCameraNode &camera);
    void drawModelEdgesInUV();
    void drawToolPasses(const KMCameraNode &camera);

    KMOpenGLShaderProgram &program(KMShaderPrograms::Id id) const { return m_programs[id]; }
    KMTextureCache &textures() { return *m_textures; }
    KMMaterial &material() { return *m_material; }
    void drawElements(RenderGroup &group, const KMVertexLayout &layout, GLenum mode); ///< with the current program
    /// Four corners, in the order of a fan. False, and what is there stays, when the driver gives no memory.
    bool writeQuad(RenderGroup &group, const void *elements, int elementBytes);

private:
    struct Item
    {
        KMMeshNode *mesh;
        KMRendererMesh *data;
        bool current;
    };
    struct Saved
    {
        QOpenGLContext *context;
        QSurface *surface;
    };

    KMRenderer();
    bool initialize();
    void bindVertexArray();
    void resetState();
    void setPlainBlending();
    void clearDepth();
    void setLineWidth(float width);

    // Order of the frame
    void drawParts(const KMCameraNode &camera);
    void drawScene(const KMCameraNode &camera);
    void drawUVScene(const KMCameraNode &camera);
    void drawControls(const KMCameraNode &camera);
    void drawOverlays(const KMCameraNode &camera);
    void clearFaceDepth();

    // Preparation
    void noteView(const KMCameraNode &camera);
    void refreshChains();
    void refreshMeshes(const KMCameraNode &camera);
    void prepareMeshes(const KMCameraNode &camera);
    void prepareMesh(KMMeshNode &mesh, const KMCameraNode &camera, quint32 changed); ///< changed: bits for its mask
    void projectMeshes(const KMCameraNode &camera);

    // Passes
    KMFaceStyle faceStyle(const Item &item) const;
    KMElementStyle edgeStyle(const Item &item) const;
    KMElementStyle pointStyle(const Item &item) const;
    const KMVertexColors *toolColors(const Item &item, bool arePoints) const; ///< null: those by flags
    int toolId() const;                                                       ///< -1 without a tool
    void drawBlueprint(const KMCameraNode &camera, const KMBluePrint &bluePrint);
    void drawOutlines(const KMCameraNode &camera, const QVector<Item> &items);
    void drawOutline(const Item &item);
    void drawReal(const Item &item);
    void drawUV(const KMCameraNode &camera, quint32 maskBit, bool asPoints);
    void drawToolPass(const KMCameraNode &camera, KMViewTool::OverlayGroup group, KMToolOverlay::Element element);
    void drawOverlay(const KMCameraNode &camera, const KMToolOverlay &overlay, KMToolOverlay::Element element);
    KMRendererMesh &refreshOverlay(const KMCameraNode &camera, const KMToolOverlay &overlay);

    std::unique_ptr<QOffscreenSurface> m_surface; // of the shared context
    QVector<Saved> m_saved;                       // what was current before makeShareCurrent()
    KMShaderPrograms m_programs;
    std::unique_ptr<KMTextureCache> m_textures;
    std::unique_ptr<KMMaterial> m_material;
    std::unique_ptr<RenderGroup> m_background;
    std::unique_ptr<RenderGroup> m_plate;
    std::unique_ptr<RenderGroup> m_blueprint;
    std::unique_ptr<KMGuideBatch> m_marks;

    const KMFrame *m_frame = nullptr; // while it is painted
    QVector<Item> m_items;            // of the frame, the active mesh last
    const void *m_lastCamera = nullptr;
    const KMNode *m_lastActive = nullptr; // may be gone
    kvm::Matrix4 m_lastViewProjection;
    QSize m_lastSize;
    quint64 m_viewNumber = 0; // counts the views: another camera, place, lens or size
    bool m_busy = false;
    bool m_quickFrame = false;
};

extern KMRenderer *gRenderer; ///< null before the first view and after the program's last context
