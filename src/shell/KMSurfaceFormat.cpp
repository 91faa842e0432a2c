#include "shell/KMSurfaceFormat.h"

#include "core/KMSettingsValues.h"

#include <QOpenGLContext>

namespace {

struct ProfileRow
{
    int glCore; // value of the setting
    int major;
    int minor;
    QSurfaceFormat::OpenGLContextProfile profile;
};

constexpr ProfileRow profileRows[] = {
    {2, 4, 0, QSurfaceFormat::CoreProfile},
    {1, 4, 0, QSurfaceFormat::CompatibilityProfile},
};

constexpr ProfileRow otherwise = {0, 2, 1, QSurfaceFormat::CompatibilityProfile};

ProfileRow profileFor(int glCore)
{
    for (const ProfileRow &row : profileRows) {
        if (row.glCore == glCore)
            return row;
    }
    return otherwise;
}

} // namespace

QSurfaceFormat surfaceFormatFor(const KMSettingsValues &settings)
{
    const ProfileRow row = profileFor(settings.glCore);
    QSurfaceFormat format;
    format.setRenderableType(QSurfaceFormat::OpenGL);
    format.setVersion(row.major, row.minor);
    format.setProfile(row.profile);
    format.setSamples(settings.glSamples);
    format.setSwapInterval(settings.swapInterval);
    format.setOption(QSurfaceFormat::DeprecatedFunctions, true);
    return format;
}

void useSurfaceFormat(const QSurfaceFormat &format)
{
    // The shared context came with the application, before the settings were read. Drivers share objects most
    // readily between contexts of one profile and version, so it is made again; Qt's warning that it has another
    // format than the default is about the moment in between.
    const QtMessageHandler handler =
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    QSurfaceFormat::setDefaultFormat(format);
    qInstallMessageHandler(handler);
    if (QOpenGLContext *shared = QOpenGLContext::globalShareContext()) {
        shared->setFormat(format);
        shared->create();
    }
}
