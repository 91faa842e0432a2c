#include "core/KMEmbeddedTextureNode.h"

#include "core/KMNodeType.h"

#include <QBuffer>
#include <QDebug>
#include <QImageReader>

namespace {

QImage decoded(QByteArray png)
{
    constexpr int mostPixels = 16384; // on a side: more than any graphics card takes
    QBuffer buffer(&png);
    QImageReader reader(&buffer, "png");
    const QSize size = reader.size();
    QImage image;
    if (size.width() > mostPixels || size.height() > mostPixels || !reader.read(&image))
        qDebug() << "embedded texture [NG]" << size << reader.errorString();
    return image;
}

} // namespace

KMEmbeddedTextureNode::KMEmbeddedTextureNode()
{
    setType(KMNodeType::EmbeddedTexture);
    setName(tr("EmbeddedTexture"));
}

QImage KMEmbeddedTextureNode::image() const
{
    if (m_image.isNull() && !m_encoded.isEmpty())
        m_image = decoded(m_encoded);
    return m_image;
}

void KMEmbeddedTextureNode::setImage(const QImage &image)
{
    m_image = image;
    m_encoded.clear();
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
    emit imageChanged();
}

KMContainerNode *KMEmbeddedTextureNode::clone() const
{
    auto *copy = new KMEmbeddedTextureNode;
    copy->setName(name());
    copy->setEnName(enName());
    copy->m_encoded = m_encoded;
    copy->m_image = m_image;
    cloneTagsTo(copy);
    return copy;
}
