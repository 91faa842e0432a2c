#pragma once

#include "shell/docks/KMShelfDock.h"

#include <memory>

class KMOffscreenView;

/// The shaders of the document, each as a lit ball.
class kmshaderwidget : public KMShelfDock
{
    Q_OBJECT
public:
    explicit kmshaderwidget(QWidget *parent = nullptr); ///< gSolution and gProject stand already
    ~kmshaderwidget() override;

protected:
    QList<KMContainerNode *> nodes() const override;
    QPixmap picture(KMContainerNode *node, const QSize &size) const override;
    QByteArray pictureKey(KMContainerNode *node) const override;
    KMContainerNode *current() const override;
    void setCurrent(KMContainerNode *node) override;

private:
    mutable std::unique_ptr<KMOffscreenView> m_view; // of the size that was asked for last
};
