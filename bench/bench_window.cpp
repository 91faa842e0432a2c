// How long the user waits for the window.

#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "measure.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "shell/KMMainBox.h"
#include "shell/kmmainwidget.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QSet>
#include <QStackedWidget>
#include <QTemporaryDir>
#include <QUndoStack>

#include <algorithm>
#include <cmath>

namespace {

using kvm::Vector3;

/// The main window with a grid in its document.
class Window
{
public:
    explicit Window(int quads)
    {
        gSettings = new KMSettings(m_folder.path());
        gSettings->load();
        m_window = new kmmainwidget(nullptr);
        m_window->setAttribute(Qt::WA_DeleteOnClose, true);
        m_window->createPreferences();
        m_window->resize(1280, 800);
        auto *mesh = new KMMeshNode;
        const float side = std::max(1.0f, std::sqrt(float(quads)));
        addGrid(*mesh, quads, [side](float i, float j) {
            return Vector3((j / side - 0.5f) * 200, 10.0f * std::sin(i * 0.1f), (i / side - 0.5f) * 200);
        });
        gProject->addToScene(mesh);
        m_window->show();
        millisecondsUntil(KMOpenGLContainer::Single);
    }
    ~Window()
    {
        gSolution->markSaved(); // or the window asks
        m_window->close();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    /// Switches to a layout; answers when each of its views has shown a frame.
    double millisecondsUntil(int layout)
    {
        KMOpenGLContainer *views = m_window->mainBox()->views();
        const QVector<KMOpenGLWidget *> widgets = views->widgetsOf(layout);
        QSet<KMOpenGLWidget *> shown;
        QObject receiver;
        for (KMOpenGLWidget *widget : widgets)
            QObject::connect(widget, &QOpenGLWidget::frameSwapped, &receiver, [&shown, widget] { shown << widget; });
        QElapsedTimer clock;
        clock.start();
        m_window->mainBox()->setViewMode(layout);
        while (shown.size() < widgets.size() && clock.elapsed() < 30000)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 100);
        return double(clock.nsecsElapsed()) * 1e-6;
    }

private:
    QTemporaryDir m_folder;
    kmmainwidget *m_window;
};

/// The four views have never been shown, beside the switch to them when they have.
void fourViews(benchmark::State &state)
{
    constexpr int rounds = 3;
    double first = 1e9;
    double again = 1e9;
    for (auto _ : state) {
        for (int round = 0; round < rounds; ++round) {
            Window window(int(state.range(0)));
            first = std::min(first, window.millisecondsUntil(KMOpenGLContainer::Quad));
            window.millisecondsUntil(KMOpenGLContainer::Single);
            again = std::min(again, window.millisecondsUntil(KMOpenGLContainer::Quad));
        }
        state.SetIterationTime(first * 1e-3);
    }
    state.counters["ms"] = first;
    state.counters["again_ms"] = again;
}

const bool registered = [] {
    benchmark::RegisterBenchmark("window/first switch to four views", fourViews)
        ->Arg(0)
        ->Arg(10000)
        ->Arg(100000)
        ->Iterations(1)
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime();
    return true;
}();

} // namespace
