#pragma once

#include "render/KMVertexLayout.h"

#include <QVector>

#include <map>
#include <memory>

class KMCameraNode;
class KMRenderer;
struct RenderGroup;

/// Many small shapes that lie over the scene, such as bones, collected anew for each frame and drawn in a few calls:
/// lit faces, and lines with a dark rim, which makes them stand out from light and dark grounds alike.
class KMGuideBatch
{
    Q_DISABLE_COPY(KMGuideBatch)
public:
    KMGuideBatch();
    ~KMGuideBatch(); ///< the share context must be current once it was drawn

    void clear();
    void addTriangle(const kvm::Vector3 &a, const kvm::Vector3 &b, const kvm::Vector3 &c, const QColor &color);
    void addLine(const kvm::Vector3 &a, const kvm::Vector3 &b, const QColor &color) { addLine(a, b, color, color); }
    void addLine(const kvm::Vector3 &a, const kvm::Vector3 &b, const QColor &colorA, const QColor &colorB);

    /// With a frame's context current. Faces hide one another; lines show wherever they lie.
    void draw(KMRenderer &renderer, const KMCameraNode &camera);

private:
    struct Faces
    {
        QColor color;
        QVector<KMFaceElement> elements;
        std::unique_ptr<RenderGroup> group; // null until it is drawn
    };

    void drawFaces(KMRenderer &renderer, const KMCameraNode &camera);
    void drawLines(KMRenderer &renderer, const KMCameraNode &camera);

    std::map<QRgb, Faces> m_faces; // by colour, which is one for a call
    QVector<KMLineElement> m_rims;
    QVector<KMLineElement> m_lines;
    std::unique_ptr<RenderGroup> m_rimGroup;
    std::unique_ptr<RenderGroup> m_lineGroup;
};
