#pragma once

#include "render/KMHUDQuad.h"

#include <QObject>
#include <QPointF>

#include <memory>

class KMHUDPicture;
class QAction;

/// A button that is drawn into a view: one mode of a tool. Its action is checked while the tool works in that mode.
class KMHUDIcon : public QObject
{
    Q_OBJECT
public:
    KMHUDIcon(const QString &drawing, int toolId, int mode, QObject *parent = nullptr);
    ~KMHUDIcon() override; ///< with a context current that shares the buffers, once it was drawn

    static int size(); ///< pixels of a side
    int toolId() const { return m_toolId; }
    int mode() const { return m_mode; }
    QAction *action() const { return m_action; } ///< checkable

    void setPosition(const QPointF &upperLeft) { m_position = upperLeft; }
    QRectF place() const { return {m_position, QSizeF(size(), size())}; }
    bool contains(const QPointF &position) const; ///< within the round plate

    void draw(KMRenderer &renderer, const KMCameraNode &camera); ///< with the view's context current

private slots:
    void onToggled(bool checked);

private:
    QImage picture(bool checked) const;

    QString m_drawing;
    int m_toolId;
    int m_mode;
    QAction *m_action;
    QPointF m_position{12.0, 12.0};
    bool m_isChecked = false;
    KMHUDQuad m_quad;
    std::unique_ptr<KMHUDPicture> m_normal, m_checked; // null until they are drawn
};
