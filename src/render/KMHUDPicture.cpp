#include "render/KMHUDPicture.h"

#include "render/KMShareContext.h"

#include <QDebug>
#include <QImage>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLTexture>

#include <utility>

namespace {

constexpr int levels = 3; // pictures are drawn at a quarter of their size, or nearly so

/// The smaller levels are made here: a driver that draws them itself needs a program for each of them, and compiles
/// all of those anew in each context.
void fill(QOpenGLTexture &texture, QImage picture)
{
    texture.setAutoMipMapGenerationEnabled(false);
    texture.setFormat(QOpenGLTexture::RGBA8_UNorm);
    texture.setSize(picture.width(), picture.height());
    texture.setMipLevels(levels);
    texture.setMinMagFilters(QOpenGLTexture::LinearMipMapLinear, QOpenGLTexture::Linear);
    texture.setWrapMode(QOpenGLTexture::ClampToEdge);
    texture.allocateStorage(QOpenGLTexture::RGBA, QOpenGLTexture::UInt8);
    for (int level = 0; level < texture.mipLevels(); ++level) {
        const QImage bytes = picture.convertToFormat(QImage::Format_RGBA8888);
        texture.setData(level, QOpenGLTexture::RGBA, QOpenGLTexture::UInt8, bytes.constBits());
        picture = picture.scaled(qMax(picture.width() / 2, 1), qMax(picture.height() / 2, 1), Qt::IgnoreAspectRatio,
                                 Qt::SmoothTransformation);
    }
}

} // namespace

KMHUDPicture::KMHUDPicture(const QImage &picture)
{
    const KMShareContext context;
    if (picture.isNull() || !QOpenGLContext::currentContext())
        return;
    auto texture = std::make_unique<QOpenGLTexture>(QOpenGLTexture::Target2D);
    if (!texture->create()) {
        qDebug() << "no texture for an icon";
        return;
    }
    fill(*texture, picture);
    m_texture = std::move(texture);
    QOpenGLContext::currentContext()->functions()->glFlush(); // other contexts draw with it from now on
}

KMHUDPicture::~KMHUDPicture()
{
    const KMShareContext context;
    m_texture.reset();
}

bool KMHUDPicture::bind()
{
    if (m_texture)
        m_texture->bind(0);
    return m_texture != nullptr;
}

void KMHUDPicture::release()
{
    m_texture->release(0);
}
