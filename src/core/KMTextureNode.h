#pragma once

#include "core/KMContainerNode.h"

#include <QImage>

/// A picture that materials refer to by its place in KMProject::textures().
/// Subclasses say where the pixels come from; what the graphics card holds of them is the renderer's.
class KMTextureNode : public KMContainerNode
{
    Q_OBJECT
public:
    KMTextureNode();
    void pushAddCommand() override;

    virtual QImage image() const = 0; ///< the pixels in full size; null when there are none

signals:
    void imageChanged(); ///< views and thumbnails must fetch the pixels again
};
