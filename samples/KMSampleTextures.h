#pragma once

#include <QDir>
#include <QImage>
#include <QString>
#include <QVector>

/// The pictures of the figure, drawn here.
namespace KMSampleTextures {

enum Texture {
    SkinPicture,
    IrisPicture,
    WhitePicture,
    HairPicture,
    JacketPicture,
    SkirtPicture,
    SkinToon,
    ClothToon,
    TextureCount
};

QString path(int texture); ///< relative to the document
QImage draw(int texture);
bool write(const QDir &folder); ///< all of them, below the folder of the document; false when one can't be written

} // namespace KMSampleTextures
