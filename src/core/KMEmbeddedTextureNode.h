#pragma once

#include "core/KMTextureNode.h"

/// A texture whose pixels lie in the document itself.
class KMEmbeddedTextureNode : public KMTextureNode
{
    Q_OBJECT
public:
    KMEmbeddedTextureNode();

    QImage image() const override { return m_image; }
    void setImage(const QImage &image);
    KMContainerNode *clone() const override;

private:
    QImage m_image;
};
