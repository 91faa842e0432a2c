#pragma once

#include "shell/docks/KMShelfDock.h"

/// The shaders of the document, each as a lit ball.
class kmshaderwidget : public KMShelfDock
{
    Q_OBJECT
public:
    explicit kmshaderwidget(QWidget *parent = nullptr); ///< gSolution and gProject stand already

protected:
    QList<KMContainerNode *> nodes() const override;
    QPixmap picture(KMContainerNode *node, const QSize &size) const override;
    QByteArray pictureKey(KMContainerNode *node) const override;
    KMContainerNode *current() const override;
    void setCurrent(KMContainerNode *node) override;
};
