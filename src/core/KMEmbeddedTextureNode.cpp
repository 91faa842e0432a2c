#include "core/KMEmbeddedTextureNode.h"

#include "core/KMNodeType.h"

KMEmbeddedTextureNode::KMEmbeddedTextureNode()
{
    setType(KMNodeType::EmbeddedTexture);
    setName(tr("EmbeddedTexture"));
}

void KMEmbeddedTextureNode::setImage(const QImage &image)
{
    m_image = image;
    emit imageChanged();
}

KMContainerNode *KMEmbeddedTextureNode::clone() const
{
    auto *copy = new KMEmbeddedTextureNode;
    copy->setName(name());
    copy->setEnName(enName());
    copy->m_image = m_image;
    cloneTagsTo(copy);
    return copy;
}
