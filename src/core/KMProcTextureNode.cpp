#include "core/KMProcTextureNode.h"

#include "core/KMNodeType.h"

#include <QPainter>

KMProcTextureNode::KMProcTextureNode()
{
    setType(KMNodeType::ProcTexture);
    setName(tr("PTexture"));
}

QImage KMProcTextureNode::image() const
{
    constexpr int side = 256;
    constexpr int cell = 32;
    QImage image(side, side, QImage::Format_ARGB32);
    image.fill(QColor(208, 208, 208));
    QPainter painter(&image);
    for (int y = 0; y < side; y += cell) {
        for (int x = (y / cell) % 2 * cell; x < side; x += 2 * cell)
            painter.fillRect(x, y, cell, cell, QColor(112, 112, 112));
    }
    return image;
}

KMContainerNode *KMProcTextureNode::clone() const
{
    auto *copy = new KMProcTextureNode;
    copy->setName(name());
    copy->setEnName(enName());
    cloneTagsTo(copy);
    return copy;
}
