#pragma once

#include "render/KMHUDQuad.h"

#include <array>
#include <memory>

class KMCameraNode;
class QPointF;

/// The icons in the upper right corner of a view, for those who navigate with one button: a drag on one of them pans,
/// zooms or, in perspective, rotates.
class KMNavigationIcons
{
public:
    /// What is under the cursor. RightHeld is added while the right button is down on an icon, and then means Shift.
    enum Code { NoIcon = 0, Pan = 1, Zoom = 2, Rotate = 4, RightHeld = 32 };

    static int bottom(); ///< pixels from the upper edge that they need
    static QRectF place(const KMCameraNode &camera, int index);
    static int codeAt(const KMCameraNode &camera, const QPointF &position);

    KMNavigationIcons(); ///< in the colours that the program has now

    void draw(KMRenderer &renderer, const KMCameraNode &camera, int hotCode); ///< with the view's context current

private:
    struct Pictures;

    static std::shared_ptr<Pictures> sharedPictures();

    std::shared_ptr<Pictures> m_pictures; // the same for all views
    std::array<KMHUDQuad, 3> m_quads;
};
