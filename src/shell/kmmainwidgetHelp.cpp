// The window's slots of the Help menu.

#include "core/KMDpi.h"
#include "core/KMMessageHandler.h"
#include "core/KMProject.h"
#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "core/KMVersion.h"
#include "render/KMRenderer.h"
#include "shell/KMBenchMark.h"
#include "shell/KMHelpWidget.h"
#include "shell/KMMainBox.h"
#include "shell/KMOnlinePages.h"
#include "shell/kmmainwidget.h"

#include <QApplication>
#include <QUndoStack>

namespace {

/// What the driver says of itself.
QString driverText()
{
    if (!KMRenderer::ensure())
        return QStringLiteral("none");
    gRenderer->makeShareCurrent();
    QStringList parts;
    for (const GLenum name : {GLenum(GL_VENDOR), GLenum(GL_RENDERER), GLenum(GL_VERSION)})
        parts << QString::fromLatin1(reinterpret_cast<const char *>(gRenderer->glGetString(name)));
    gRenderer->doneShareCurrent();
    return parts.join(QStringLiteral(", "));
}

} // namespace

void kmmainwidget::onMenuHelpIndex()
{
    m_help->show();
    m_help->raise();
    m_help->activateWindow();
}

void kmmainwidget::onMenuOnlineManual()
{
    if (!KMOnlinePages::open(KMOnlinePages::Manual))
        inform(tr("Online Manual"), tr("No address of an online manual is known to this version."),
               tr("The page \"%1\" of this menu lists what the keys and the mouse do.")
                   .arg(action("actionHelpIndex")->text()));
}

void kmmainwidget::onMenuCheckUpdate()
{
    if (!KMOnlinePages::open(KMOnlinePages::Update))
        inform(tr("Check Update"), tr("No address to ask for a newer version is known to this version."),
               tr("You are running version %1.").arg(KMVersion::Number));
}

/// A box with one button.
void kmmainwidget::inform(const QString &title, const QString &text, const QString &more)
{
    KMMessage box;
    box.icon = QMessageBox::Information;
    box.title = title;
    box.text = text;
    box.informativeText = more;
    box.parent = this;
    KMPrompt::current().message(box);
}

void kmmainwidget::onMenuAbout()
{
    inform(tr("About"), tr("%1 %2").arg(QApplication::applicationName(), QApplication::applicationVersion()),
           tr("A polygon modeller for character models."));
}

void kmmainwidget::onMenuAboutQt()
{
    inform(tr("About Qt"), tr("This program uses Qt version %1.").arg(QLatin1String(qVersion())),
           tr("Qt is a toolkit for programs with a user interface, used here under the GNU Lesser General "
              "Public License. See https://www.qt.io for more."));
}

void kmmainwidget::onMenuBenchMark()
{
    commitOpenEditors();
    setProgress(tr("Measuring..."));
    QApplication::setOverrideCursor(Qt::WaitCursor);
    const KMBenchMark::Result result = KMBenchMark::run();
    QApplication::restoreOverrideCursor();
    setProgress({});
    if (result.frames == 0)
        return inform(tr("BenchMark"), tr("Nothing could be drawn: there is no OpenGL."), {});
    const QString text = tr("%1 frames in %2 milliseconds").arg(result.frames).arg(result.milliseconds, 0, 'f', 0);
    logWhole(QStringLiteral("BenchMark: %1 frames, %2 ms").arg(result.frames).arg(result.milliseconds, 0, 'f', 1));
    inform(tr("BenchMark"), text,
           tr("%1 milliseconds a frame, %2 frames a second.\n%3 faces, %4 x %5 pixels, each picture read back.")
               .arg(result.milliseconds / result.frames, 0, 'f', 1)
               .arg(result.frames * 1000.0 / result.milliseconds, 0, 'f', 1)
               .arg(result.faces)
               .arg(result.size.width())
               .arg(result.size.height()));
}

void kmmainwidget::onMenuDebug()
{
    const QString report =
        QStringLiteral("Program: %1 %2, Qt %3, %4\nOpenGL: %5\nWindow: %6 x %7, scale %8, layout %9\n")
            .arg(QApplication::applicationName(), QApplication::applicationVersion(), QLatin1String(qVersion()),
                 QSysInfo::prettyProductName(), driverText())
            .arg(width())
            .arg(height())
            .arg(screenScale())
            .arg(m_mainBox->viewMode());
    logWhole(report
             + QStringLiteral("Document: %1 nodes, %2 drawn meshes, %3 shaders, %4 textures\nHistory: %5 of %6 steps")
                   .arg(gProject->allNodes().size())
                   .arg(gProject->renderMeshes().size())
                   .arg(gProject->shaders().size())
                   .arg(gProject->textures().size())
                   .arg(m_undoStack->index())
                   .arg(m_undoStack->count()));
    showDock("kmoutputwidget");
}
