#pragma once

#include "render/KMCameraNode.h"

#include <QToolBar>

#include <array>

class KMOpenGLContainer;
class KMSwitchMenu;
class QToolButton;

/// The bar above the views: menus for camera, layout, filter and snap, and the buttons that say which elements the
/// current view shows. A right click on one of those shows that kind of elements alone.
class KMViewBar : public QToolBar
{
    Q_OBJECT
public:
    explicit KMViewBar(KMOpenGLContainer *container, QWidget *parent = nullptr);

    void setCameraActions(const QList<QAction *> &actions); ///< a null stands for a line; so below
    void setViewActions(const QList<QAction *> &actions);
    KMSwitchMenu *filterMenu() const { return m_filterMenu; }
    KMSwitchMenu *snapMenu() const { return m_snapMenu; }

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void onViewOptionChanged();
    void onViewOptionChangedByRightClick(int flag);
    void sync();

private:
    static constexpr int ButtonCount = KMCameraNode::ShowGrid;
    using Flags = std::array<bool, ButtonCount>;

    QToolButton *addMenuButton(const char *objectName, const QString &text, const char *icon, QMenu *menu);
    void addFlagButtons();
    void createFilterMenu();
    void createSnapMenu();
    void setFlags(const Flags &flags);

    KMOpenGLContainer *m_container;
    QMenu *m_cameraMenu;
    QMenu *m_viewMenu;
    KMSwitchMenu *m_filterMenu = nullptr;
    KMSwitchMenu *m_snapMenu = nullptr;
    std::array<QToolButton *, ButtonCount> m_buttons{};
};
