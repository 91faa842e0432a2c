#pragma once

#include "core/KMContainerNode.h"
#include "math/Matrix4.h"

#include <QPointF>

#include <array>

class KMMouseEvent;
class QWheelEvent;
struct KMDCamera;

/// What a view looks through: kind, pivot, distance, rotation and lens, and the matrices that follow from them.
/// Every public operation leaves the matrices consistent.
///
/// A point of the world goes through modelView and projection, in this order, and is then divided by w; depths
/// are 0 to 1. The view is left-handed: x runs to the right, y up and z away from the viewer.
class KMCameraNode : public KMContainerNode
{
    Q_OBJECT
public:
    enum Kind { Perspective = 1, Top = 2, Front = 4, Right = 8, UV = 16 }; ///< also the id of the camera
    enum ViewFlag { ShowVertices, ShowEdges, ShowFaces, FrontOnly, ShowGrid, ViewFlagCount };
    using ViewFlags = std::array<bool, ViewFlagCount>;

    static constexpr std::array<int, 5> kinds = {Perspective, Top, Front, Right, UV};

    explicit KMCameraNode(int kind = Perspective);

    // What it looks through

    int kind() const { return m_kind; }
    void setKind(int kind); ///< with name, start rotation, pan and projection of that kind; unknown ones are ignored
    bool isPerspectiveKind() const { return m_kind == Perspective; }
    bool isUV() const { return m_kind == UV; }
    bool isOrtho() const { return m_ortho; }
    void setOrtho(bool ortho); ///< what lies at the depth of the pivot keeps its place and size on the screen
    bool isFlipped() const { return m_flipped; }
    void setFlipped(bool flipped); ///< to the opposite of a fixed view: "Bottom View" for "Top View"
    void reset();                  ///< as newly made, for the same viewport
    const ViewFlags &viewFlags() const { return m_viewFlags; }
    bool viewFlag(ViewFlag flag) const { return m_viewFlags[flag]; }
    void setViewFlags(const ViewFlags &flags) { m_viewFlags = flags; }
    void setViewFlag(ViewFlag flag, bool on) { m_viewFlags[flag] = on; }

    // Lens. Values outside the limits are brought to the next one

    int width() const { return m_width; } ///< of the viewport in pixels
    int height() const { return m_height; }
    void resize(int width, int height); ///< sizes below 1 count as 1
    float fov() const { return m_fov; } ///< vertical, degrees
    void setFov(float degrees);
    /// Changes the field of view and moves the camera, so that what is as far as the pivot keeps its size.
    void setFovKeepExtent(float deltaDegrees);
    float distance() const { return m_distance; } ///< from the camera to the pivot
    void setDistance(float distance);
    float orthoZoom() const { return m_orthoZoom; }
    void setOrthoZoom(float zoom);
    float nearPlane() const { return m_nearPlane; }
    float farPlane() const { return m_farPlane; }

    // Place and rotation. Angles are degrees

    float pitch() const { return m_pitch; }
    float yaw() const { return m_yaw; }
    float roll() const { return m_roll; } ///< turns the picture of the UV view only
    void setAngles(float pitch, float yaw,
                   float roll); ///< without limits; the pivot stays in its place, in the UV view the middle
    void rotateBy(float pitchPixels, float yawPixels); ///< by a drag of so many pixels, within the user's limits
    const kvm::Vector3 &pivot() const { return m_pivot; }
    void setPivot(const kvm::Vector3 &pivot); ///< the picture stays as it is; nothing for the UV view
    const kvm::Vector3 &pan() const { return m_pan; }
    void setPan(const kvm::Vector3 &pan);
    /// Puts all that the picture is moved by into the pan, so that the next rotation starts from here.
    /// The picture stays as it is.
    void commitView();
    const kvm::Vector3 &eye() const { return m_eye; } ///< in the world
    const kvm::Vector3 &viewAxis() const
    {
        return m_viewAxis;
    } ///< the direction of looking in the world, of unit length
    /// Where the light stands, seen from the scene, 1000 away: it turns with the camera.
    kvm::Vector3 lightDirection() const;

    // Navigation by drags, wheel and fingers. Positions are pixels of the viewport

    void mousePress(KMMouseEvent *event);
    bool mouseMove(KMMouseEvent *event); ///< whether the camera moved
    void mouseRelease();
    void wheel(QWheelEvent *event);
    void beginPan(const QPoint &position);
    void panBy(const QPoint &offset); ///< from where the pan began
    void checkViewChanged();          ///< emits viewChanged() when the view isn't that of the last press any more
    /// What a rotating drag does in the UV view: turn by its length, by its angle about the middle, or not at all.
    enum class RollMode { None, ByLength, ByAngle };
    void setRollMode(RollMode mode) { m_rollMode = mode; }

    // In the native file

    KMDCamera stored() const;
    void restore(const KMDCamera &camera); ///< all but kind and name; values outside the limits are brought to them

    // Matrices

    void updateMatrices(); ///< from the fields; the other operations have done so already
    const kvm::Matrix4 &projection() const { return m_projection; }
    const kvm::Matrix4 &modelView() const { return m_modelView; }
    const kvm::Matrix4 &viewProjection() const { return m_viewProjection; } ///< modelView, then projection
    const kvm::Matrix4 &screenMatrix() const { return m_screenMatrix; }     ///< window pixels to clip space
    kvm::Matrix4 worldToScreenMatrix() const; ///< world to window pixels and depth, before the division by w
    kvm::Matrix4 viewRotation() const;        ///< the rotation alone
    /// 3x3: normals stay in world space, and the light moves instead.
    static const float *normalMatrix();

    // Between world and window. Window coordinates are pixels from the upper left corner, and depth

    kvm::Vector3 worldToWindow(const kvm::Vector3 &point) const; ///< left stays left for a point behind the eye
    kvm::Vector3 windowToWorld(const kvm::Vector3 &window) const;
    /// The point under a pixel on the plane through depthPoint that stands square to the view axis.
    kvm::Vector3 unproject(float x, float y, const kvm::Vector3 &depthPoint) const;
    kvm::Vector3 projectToHud(const kvm::Vector3 &point) const; ///< pixels and depth, by the worldToScreenMatrix()
    float pixelWorldLength(const kvm::Vector3 &point) const; ///< world length of 100 pixels at the depth of the point
    float pixelScale(float pixels) const;                    ///< world length of so many pixels at the pivot

signals:
    void viewChanged();                       ///< found by checkViewChanged()
    void messageChanged(const QString &text); ///< what the status bar has to show

private:
    /// The two matrices of one moment; a drag reckons with those of its start.
    struct View
    {
        kvm::Matrix4 projection;
        kvm::Matrix4 modelView;
    };

    /// What a drag is doing, and what it started from.
    struct Drag
    {
        bool dollyZoomActive = false;
        bool leftRightZoomActive = false;
        bool panActive = false;
        bool rotateActive = false;
        bool leftHeld = false;
        bool fovZoomActive = false;
        QPointF pressPos;
        QPoint lastPos;
        float pressRoll = 0.0f;
        kvm::Vector3 panAnchor;   // the point under the cursor, plus the pan
        float panDepth = 0.0f;    // of the pivot in the view
        kvm::Vector3 savedPivot;  // to be restored after a dolly zoom
        float dollyExtent = 0.0f; // half of what a dolly zoom keeps in the picture
    };

    void startPan(const QPointF &position, bool keepExtent);
    void panTo(const QPointF &position);
    void zoomDrag(int dy);
    void rotateDrag(const QPoint &delta, bool inSteps);
    void rollTo(float degrees, bool inSteps, bool snap);
    float angleFromPress(const QPointF &position) const;
    float zoomRuler() const;
    void restoreDefaults();
    void applyKind();
    void updateName();
    void fixRotation();
    void buildProjection();
    void buildModelView();
    void combine();
    kvm::Matrix4 bareModelView() const;
    void movePivotTo(const kvm::Vector3 &inView);
    float halfExtent() const;
    float viewDepth(const kvm::Vector3 &point) const;
    float pivotDepth() const;
    void setLens(float fov, float distance, float orthoZoom);
    View view() const { return {m_projection, m_modelView}; }
    kvm::Vector3 unproject(const View &view, const QPointF &pixel, float depthInView) const;

    int m_width = 100;
    int m_height = 100;
    float m_fov;
    float m_nearPlane = 0.01f;
    float m_farPlane = 5000.0f;
    float m_distance;
    float m_orthoZoom;
    kvm::Vector3 m_eye;
    kvm::Vector3 m_viewAxis;
    kvm::Vector3 m_pivot;
    kvm::Vector3 m_pan;
    float m_pitch;
    float m_yaw;
    float m_roll;
    kvm::Matrix4 m_projection;
    kvm::Matrix4 m_modelView;
    kvm::Matrix4 m_viewProjection;
    kvm::Matrix4 m_screenMatrix;
    kvm::Vector3 m_panShift;   // of the view by the pan; stays through a rotation, which is about the pivot's place
    kvm::Vector3 m_pivotShift; // of the view, keeps the picture still when the pivot moves
    bool m_flipped = false;
    bool m_ortho = false;
    int m_kind;
    ViewFlags m_viewFlags;
    View m_saved; // at the last press, or when a change was last told
    Drag m_drag;
    RollMode m_rollMode = RollMode::ByLength;
};
