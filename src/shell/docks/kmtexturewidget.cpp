#include "shell/docks/kmtexturewidget.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTextureNode.h"
#include "shell/KMTexturePicture.h"

kmtexturewidget::kmtexturewidget(QWidget *parent)
    : KMShelfDock(QStringLiteral("kmtexturewidget"), tr("Texture"), QStringLiteral("texture"), parent)
{
    connect(gProject, &KMProject::texturesChanged, this, [this] {
        refill();
        for (const KMTextureNode *texture : gProject->textures())
            connect(texture, &KMTextureNode::imageChanged, this, &kmtexturewidget::refresh, Qt::UniqueConnection);
    });
}

QList<KMContainerNode *> kmtexturewidget::nodes() const
{
    QList<KMContainerNode *> nodes;
    for (KMTextureNode *texture : gProject->textures())
        nodes << texture;
    return nodes;
}

QPixmap kmtexturewidget::picture(KMContainerNode *node, const QSize &size) const
{
    return texturePicture(nodeAs<KMTextureNode>(node), size);
}

QByteArray kmtexturewidget::pictureKey(KMContainerNode *node) const
{
    return QByteArray::number(nodeAs<KMTextureNode>(node)->image().cacheKey());
}

KMContainerNode *kmtexturewidget::current() const
{
    return nodeAs<KMContainerNode>(gSolution->currentTexture());
}

void kmtexturewidget::setCurrent(KMContainerNode *node)
{
    gSolution->setCurrentTexture(node);
}
