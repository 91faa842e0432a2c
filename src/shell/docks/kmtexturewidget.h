#pragma once

#include "shell/docks/KMShelfDock.h"

/// The textures of the document, each as its picture.
class kmtexturewidget : public KMShelfDock
{
    Q_OBJECT
public:
    explicit kmtexturewidget(QWidget *parent = nullptr); ///< gSolution and gProject stand already

protected:
    QList<KMContainerNode *> nodes() const override;
    QPixmap picture(KMContainerNode *node, const QSize &size) const override;
    QByteArray pictureKey(KMContainerNode *node) const override;
    KMContainerNode *current() const override;
    void setCurrent(KMContainerNode *node) override;
};
