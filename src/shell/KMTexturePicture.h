#pragma once

#include <QPixmap>

class KMTextureNode;

/// A texture fitted into a size, on a checker where it is transparent. A texture without pixels shows a crossed frame.
QPixmap texturePicture(const KMTextureNode *texture, const QSize &size);
