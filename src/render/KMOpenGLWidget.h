#pragma once

#include "render/KMCameraNode.h"
#include "render/KMFrame.h"
#include "render/KMTouchInput.h"
#include "render/KMViewInput.h"

#include <QOpenGLWidget>
#include <QPointer>

#include <memory>

class KMBonePass;
class KMCameraBox;
class KMFadeOutLabel;
class KMGridNode;
class KMHUDIcon;
class KMOpenGLContainer;
class KMPhysicsPass;
class KMSessionTool;
class KMToolIcons;
class KMViewTool;

/// One view: a surface, the camera that it looks through, and what lies over the scene in it. It draws nothing without
/// a camera, and stays empty where there is no OpenGL.
class KMOpenGLWidget : public QOpenGLWidget, private KMFrameParts
{
    Q_OBJECT
public:
    /// Made by KMOpenGLContainer::createWidget().
    KMOpenGLWidget(KMOpenGLContainer *container, bool hasToolIcons, QWidget *parent);
    ~KMOpenGLWidget() override;

    KMCameraNode *camera() const { return m_camera; }
    void setCamera(KMCameraNode *camera); ///< not owned; null leaves the view empty
    KMOpenGLContainer *container() const { return m_container; }
    KMGridNode *grid() const { return m_grid.get(); }      ///< null without a camera
    KMCameraBox *cameraBox() const { return m_box.get(); } ///< of the perspective camera; null before the first frame
    KMToolIcons *toolIcons() const { return m_toolIcons.get(); } ///< null where the view has none
    static KMViewTool *currentTool();                            ///< in the user's hand; may be null

    bool isActive() const { return m_isActive; }
    void setActive(bool active); ///< with the background colour that shows it
    bool isMouseInside() const { return m_isMouseInside; }
    bool isInitialised() const { return m_isInitialised; }
    void showTitle(); ///< the name of the camera, when it is another
    void syncHudIcons(const KMViewTool *tool);
    void endNavigation() { m_input.endNavigation(); } ///< before something else moves the camera

signals:
    void cameraBoxClicked(int code);       ///< of KMCameraBoxShape
    void onActive(KMOpenGLWidget *widget); ///< the user has turned to this view

protected:
    void initializeGL() override;
    void paintGL() override;
    void resizeGL(int width, int height) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void enterEvent(QEvent *event) override;
    void leaveEvent(QEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void changeEvent(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;

private slots:
    void onDPColorChanged();
    void onCommandChanged(KMSessionTool *tool);

private:
    void cleanup();
    void makeBox();
    void makeToolIcons();
    void updateBackground();

    void drawGrid(const KMCameraNode &camera) override;
    void drawBones(const KMCameraNode &camera) override;
    void drawTags(const KMCameraNode &camera) override;
    void drawToolIcons(const KMCameraNode &camera) override;
    void drawNavigationIcons(const KMCameraNode &camera) override;
    void drawCameraBox(const KMCameraNode &camera) override;

    KMOpenGLContainer *m_container;
    QPointer<KMCameraNode> m_camera;
    std::unique_ptr<KMGridNode> m_grid;
    std::unique_ptr<KMBonePass> m_bones; // these two are null until the first frame
    std::unique_ptr<KMPhysicsPass> m_physics;
    std::unique_ptr<KMCameraBox> m_box;
    std::unique_ptr<KMNavigationIcons> m_navigation;
    std::unique_ptr<KMToolIcons> m_toolIcons;
    KMFadeOutLabel *m_label;
    KMViewInput m_input;
    KMTouchInput m_touch;
    QColor m_background;
    bool m_hasToolIcons;
    bool m_isActive = false;
    bool m_isMouseInside = false;
    bool m_isInitialised = false;
    bool m_isFirstFrame = true;
};
