#pragma once

#include "core/KMFaultHandler.h"
#include "shell/KMSelfTest.h"
#include "shell/KMTranslators.h"

#include <QPointer>

#include <memory>

class KMScreenManager;
class KMStyle;
class QApplication;
class QSplashScreen;
class kmmainwidget;

/// The life of the window program from the first instruction to the exit code. Each step needs those before it.
/// Its members are destroyed in the opposite order: translations, splash, displays, application, fault handler.
class KMStartup
{
    Q_DISABLE_COPY(KMStartup)
public:
    KMStartup(int &argc, char **argv); ///< both have to outlive it
    ~KMStartup();

    /// Starts, runs the event loop and shuts down. Returns the exit code: the event loop's, 0 after a fault that was
    /// handled, -1 when the operating system is refused. Leaves gSolution, gProject and gSettings null.
    int run();

private:
    void createSettings();
    void createApplication();
    void showSplash();
    void installTranslations();
    void chooseSurfaceFormat();
    void chooseLook();
    bool isSystemSupported();
    int refuse();
    void createWindow();
    void logVersions() const;
    void openFirstDocument();
    int runLoop();
    void handleFault();

    KMFaultHandler m_faults;
    int &m_argc;
    char **m_argv;
    std::unique_ptr<QApplication> m_application;
    KMSelfTest m_selfTest;
    std::unique_ptr<KMScreenManager> m_screens;
    std::unique_ptr<QSplashScreen> m_splash;
    KMTranslators m_translators;
    KMOperatingSystem m_system;
    KMStyle *m_style = nullptr;      // the application's
    QPointer<kmmainwidget> m_window; // deletes itself when it is closed
    bool m_isLoopRunning = false;
};

/// Deletes the process-wide objects that are still set, gProject, gSolution, gRenderer, gSettings, and sets each
/// pointer to null. The window is null when it has gone already, with most of them.
void appShutdown(kmmainwidget *window);
