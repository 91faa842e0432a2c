#pragma once

#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "render/KMMouseEvent.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMViewTool.h"
#include "shell/KMMainBox.h"
#include "shell/kmmainwidget.h"
#include "support/TestWindow.h"
#include "support/ViewMouse.h"

#include <QCoreApplication>
#include <QHash>
#include <QTest>

#include <array>

using Mouse = ViewMouse;

/// Writes down what a view hands to the tool.
class EventLogTool : public KMViewTool
{
public:
    explicit EventLogTool(int id)
        : m_id(id)
    {
        gSolution->setTool(this);
    }
    ~EventLogTool() override { gSolution->setTool(nullptr); }

    bool isEditing() const override { return false; }
    void reset() override {}
    void historyChanged(int) override {}
    void commandRun() override {}
    int toolId() const override { return m_id; }
    int mode() const override { return m_mode; }
    void setMode(int mode) override { m_mode = mode; }
    void requestActivation() override { log << QStringLiteral("activate"); }
    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *) override { return note("press", *event); }
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *) override { return note("move", *event); }
    bool mouseRelease(KMMouseEvent *event, KMOpenGLWidget *) override { return note("release", *event); }

    QStringList log;
    QList<double> pressures;
    bool takes = false;

private:
    bool note(const char *what, const KMMouseEvent &event)
    {
        log << QStringLiteral("%1 %2").arg(QLatin1String(what)).arg(int(event.buttons()));
        pressures << event.pressure;
        return takes;
    }

    int m_id;
    int m_mode = 0;
};

using Pose = std::array<float, 7>; // pitch, yaw, fov, distance, zoom, length of the pan, roll

Pose poseOf(const KMCameraNode &camera);
QString changes(const Pose &before, const Pose &after); ///< names of what differs

/// How often each view was painted.
class PaintCounter : public QObject
{
public:
    explicit PaintCounter(KMOpenGLContainer *views)
    {
        for (int i = 0; i < views->count(); ++i)
            views->widget(i)->installEventFilter(this);
    }
    bool eventFilter(QObject *watched, QEvent *event) override
    {
        if (event->type() == QEvent::Paint)
            ++counts[watched];
        return false;
    }
    QHash<QObject *, int> counts;
};

/// The window with painted views, and no tool in the hand.
struct ViewWindow : TestWindow
{
    ViewWindow()
        : views((*this)->mainBox()->views())
    {
        gSettings->animateCamera = false;
        gSolution->setTool(nullptr);
    }
    KMOpenGLWidget *view() const { return views->current(); }
    bool isPainted() const
    {
        return QTest::qWaitFor([this] { return view() && view()->isInitialised(); });
    }
    KMOpenGLContainer *views;
};
