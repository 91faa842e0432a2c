#include "core/KMEmbeddedTextureNode.h"

#include "core/KMNodeType.h"

#include <QBuffer>
#include <QDebug>
#include <QImageReader>

#include <utility>

namespace {

QImage decoded(QByteArray png)
{
    constexpr int mostPixels = 16384; // on a side: more than any graphics card takes
    QBuffer buffer(&png);
    QImageReader reader(&buffer, "png");
    const QSize size = reader.size();
    QImage image;
    if (size.width() <= mostPixels && size.height() <= mostPixels && reader.read(&image))
        return image;
    qDebug() << "embedded texture [NG]" << size << reader.errorString();
    return {}; // what a reader leaves half done holds pixels of nothing
}

} // namespace

KMEmbeddedTextureNode::KMEmbeddedTextureNode()
{
    setType(KMNodeType::EmbeddedTexture);
    setName(tr("EmbeddedTexture"));
}

QImage KMEmbeddedTextureNode::image() const
{
    if (std::exchange(m_isPacked, false))
        m_image = decoded(m_encoded);
    return m_image;
}

void KMEmbeddedTextureNode::setImage(const QImage &image)
{
    m_image = image;
    m_encoded.clear();
    m_isPacked = false;
    emit imageChanged();
}

QByteArray KMEmbeddedTextureNode::encodedImage() const
{
    if (m_encoded.isEmpty() && !m_image.isNull()) {
        QBuffer buffer(&m_encoded);
        m_image.save(&buffer, "png");
    }
    return m_encoded;
}

void KMEmbeddedTextureNode::setEncodedImage(const QByteArray &png)
{
    m_encoded = png;
    m_image = {};
    m_isPacked = !png.isEmpty();
    emit imageChanged();
}

KMContainerNode *KMEmbeddedTextureNode::clone() const
{
    auto *copy = new KMEmbeddedTextureNode;
    copy->setName(name());
    copy->setEnName(enName());
    copy->m_encoded = m_encoded;
    copy->m_image = m_image;
    copy->m_isPacked = m_isPacked;
    cloneTagsTo(copy);
    return copy;
}
