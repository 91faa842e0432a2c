#pragma once

#include <QRectF>

#include <memory>

class KMCameraNode;
class KMHUDPicture;
class KMRenderer;
struct RenderGroup;

/// A rectangle of window pixels with a picture, over all that was drawn before. It is made by the first draw.
class KMHUDQuad
{
    Q_DISABLE_COPY(KMHUDQuad)
public:
    KMHUDQuad();
    ~KMHUDQuad(); ///< with a context current that shares the buffers, once it was drawn

    void draw(KMRenderer &renderer, const KMCameraNode &camera, const QRectF &place,
              KMHUDPicture &picture); ///< with the view's context current

private:
    void build(KMRenderer &renderer, const QRectF &place);

    std::unique_ptr<RenderGroup> m_corners;
    QRectF m_place; // what the buffers hold
};
