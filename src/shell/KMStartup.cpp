#include "shell/KMStartup.h"

#include "core/KMDpi.h"
#include "core/KMMessageHandler.h"
#include "core/KMOutput.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "shell/KMApplicationFont.h"
#include "shell/KMEmergency.h"
#include "shell/KMScreenManager.h"
#include "shell/KMSpeech.h"
#include "shell/KMStartFiles.h"
#include "shell/KMStyle.h"
#include "shell/KMSurfaceFormat.h"
#include "shell/kmmainwidget.h"

#include <QApplication>
#include <QDebug>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QFontInfo>
#include <QSplashScreen>
#include <QTextCodec>
#include <QThread>
#include <QWindow>

#include <cstdlib>
#include <utility>
#include <vector>

namespace {

/// The display scale, asked from an application that lives only for this question. It gets arguments of its own,
/// since it takes out those that it understands.
double scaleOfPrimaryScreen(int argc, char **argv)
{
    std::vector<char *> arguments(argv, argv + argc);
    arguments.push_back(nullptr);
    const QGuiApplication temporary(argc, arguments.data());
    return screenScale();
}

/// A translation may change both, so this is done again once the translations stand.
void setIdentity()
{
    QCoreApplication::setApplicationName(QObject::tr("KELMO2"));
    QCoreApplication::setApplicationVersion(QObject::tr("225"));
}

/// Gives the display a moment to map a window that was just shown.
void waitUntilExposed(const QWidget &widget)
{
    constexpr int longestWait = 200; // ms
    QElapsedTimer timer;
    timer.start();
    while (!widget.windowHandle()->isExposed() && !timer.hasExpired(longestWait)) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
        QThread::msleep(1);
    }
}

template <class T>
void deleteAndClear(T *&object)
{
    delete std::exchange(object, nullptr);
}

} // namespace

KMStartup::KMStartup(int &argc, char **argv)
    : m_argc(argc)
    , m_argv(argv)
{
}

KMStartup::~KMStartup() = default;

int KMStartup::run()
{
    createSettings();
    createApplication();
    showSplash();
    gSettings->load();
    installTranslations();
    chooseSurfaceFormat();
    chooseLook();
    if (!isSystemSupported())
        return refuse();
    createWindow();
    logVersions();

    m_selfTest.prepare();
    int exitCode = 0;
    const bool undisturbed = m_faults.guard([this, &exitCode] {
        openFirstDocument();
        exitCode = runLoop();
    });
    if (!undisturbed)
        handleFault();
    appShutdown(m_window);
    if (!undisturbed && m_faults.record().inWorkerThread)
        std::_Exit(0); // the application would wait for that thread, which stands still for good
    return undisturbed ? exitCode : 0;
}

/// They know the display scale before anything else exists.
void KMStartup::createSettings()
{
    if (const unsigned seconds = KMSelfTest::watchdogSeconds())
        m_faults.setWatchdogSeconds(seconds);
    QCoreApplication::setAttribute(Qt::AA_EnableHighDpiScaling, true);
    QCoreApplication::setAttribute(Qt::AA_UseHighDpiPixmaps, true);
    const double scale = scaleOfPrimaryScreen(m_argc, m_argv);
    QCoreApplication::setAttribute(Qt::AA_SynthesizeMouseForUnhandledTouchEvents, false);
    QCoreApplication::setAttribute(Qt::AA_SynthesizeTouchForUnhandledMouseEvents, false);

    gSettings = new KMSettings;
    gSettings->dpiScale = scale;
}

void KMStartup::createApplication()
{
    qInstallMessageHandler(messageHandler);
    QCoreApplication::setAttribute(Qt::AA_UseDesktopOpenGL, true);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts, true); // has no effect once there is an application
    m_application = std::make_unique<QApplication>(m_argc, m_argv);
    m_selfTest.answerBoxes();
    m_screens = std::make_unique<KMScreenManager>();
    QCoreApplication::setAttribute(Qt::AA_SynthesizeTouchForUnhandledMouseEvents, false);
    QCoreApplication::setAttribute(Qt::AA_SynthesizeMouseForUnhandledTouchEvents, false);
}

/// The start doesn't come back to the event loop before the window stands, so the picture is painted here.
void KMStartup::showSplash()
{
    const QPixmap picture(QStringLiteral(":/img/Resources/splash.png"));
    m_splash = std::make_unique<QSplashScreen>(
        picture.scaled(dpiScaled(512), dpiScaled(256), Qt::KeepAspectRatio, Qt::SmoothTransformation));
    m_splash->setWindowFlags(m_splash->windowFlags() | Qt::WindowStaysOnTopHint);
    m_splash->show();
    waitUntilExposed(*m_splash);
    m_splash->repaint();
}

void KMStartup::installTranslations()
{
    const QLocale locale(QLocale::Language(gSettings->language), QLocale::AnyCountry);
    setIdentity();
    m_translators.install(locale, QCoreApplication::applicationDirPath());
    setIdentity();
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    qInstallMessageHandler(messageHandler);
}

/// Shift is the way out for a driver that can't run the chosen profile. The values go into the settings file at exit.
void KMStartup::chooseSurfaceFormat()
{
    if (KMStartFiles::isShiftHeld()) {
        gSettings->glCore = 0;
        gSettings->glSamples = 0;
    }
    useSurfaceFormat(surfaceFormatFor(*gSettings));
}

void KMStartup::chooseLook()
{
    QApplication::setFont(applicationFont(gSettings->fontType, gSettings->fontSize));
    const int pixels = QFontInfo(QApplication::font()).pixelSize();
    gSettings->rowHeight = int(pixels * 2.5);
    gSettings->wideRowHeight = pixels * 5;

    m_style = new KMStyle(QStringLiteral("fusion"));
    QApplication::setStyle(m_style);
    m_style->applyTheme(gSettings->theme);
}

bool KMStartup::isSystemSupported()
{
    m_system = KMSelfTest::operatingSystem();
    return m_system.isSupported;
}

int KMStartup::refuse()
{
    m_splash->finish(nullptr);
    KMMessage box;
    box.text = m_system.name + QStringLiteral(" is not supported.");
    KMPrompt::current().message(box);
    deleteAndClear(gSettings);
    return -1;
}

void KMStartup::createWindow()
{
    m_window = new kmmainwidget(m_style, nullptr);
    m_window->createPreferences();
    QObject::connect(gSolution, &KMSolution::speechRequested, new KMSpeech(gSolution), &KMSpeech::say);
    m_window->setAttribute(Qt::WA_DeleteOnClose, true);
    m_window->show();
    m_splash->finish(m_window);
}

/// The version lines come first; what was logged before there was an output dock follows as one text.
void KMStartup::logVersions() const
{
    constexpr int subdivisionVersion[] = {3, 3, 3};
    const QString early = std::exchange(gMessageBuffer, {});
    qDebug("KM Version:%s", qUtf8Printable(QCoreApplication::applicationVersion()));
    qDebug("OS Version:%s (%s)", qUtf8Printable(m_system.name), qUtf8Printable(QSysInfo::kernelVersion()));
    qDebug("Qt Version:%s", qVersion());
    qDebug("Osd Version:%d.%d.%d", subdivisionVersion[0], subdivisionVersion[1], subdivisionVersion[2]);
    qDebug("CPU Threads:%d", QThread::idealThreadCount());
    logWhole(early);
}

void KMStartup::openFirstDocument()
{
    if (m_window->recoverBackup())
        return;
    QStringList arguments = QCoreApplication::arguments();
    if (!arguments.isEmpty())
        arguments.removeFirst();
    if (!arguments.isEmpty())
        gSolution->load(
            QFileInfo(arguments.first()).absoluteFilePath()); // the list of recent files outlives the folder
    else
        m_window->loadStartupFile();
}

int KMStartup::runLoop()
{
    m_selfTest.begin(m_window);
    m_isLoopRunning = true;
    return QApplication::exec();
}

/// Without a session, which the closed window has taken along, there is nothing left to save.
void KMStartup::handleFault()
{
    using Document = KMEmergency::Document;
    if (!gSolution)
        return;
    const KMEmergency emergency(QCoreApplication::applicationDirPath());
    emergency.run(m_faults.record(), m_isLoopRunning ? Document::Edited : Document::BeingOpened, m_window);
}

void appShutdown(kmmainwidget *window)
{
    if (window)
        window->setUpdatesEnabled(false); // what it shows is about to go
    if (gSolution) {
        // Commands own nodes and reach for the project when they go; the window hears of none of that.
        gSolution->setWindow(nullptr);
        gSolution->setViews(nullptr);
        gSolution->setTool(nullptr);
        if (gProject)
            gSolution->clearHistory();
        gSolution->setProject(nullptr);
    }
    deleteAndClear(gProject);
    deleteAndClear(gSolution);
    if (gSettings)
        gSettings->setMainWidget(nullptr);
    deleteAndClear(gSettings);
}
