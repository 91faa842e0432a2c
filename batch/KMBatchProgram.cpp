#include "KMBatchProgram.h"

#include "KMBatchInfo.h"
#include "KMBatchPicture.h"
#include "KMBatchPrompt.h"
#include "core/KMHeadlessSession.h"
#include "core/KMInputFile.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTexturePath.h"
#include "core/KMVersion.h"
#include "formats/KMExchangeFormat.h"
#include "formats/KMNativeFormat.h"
#include "formats/VmdImporter.h"
#include "formats/VpdImporter.h"
#include "render/KMCameraSet.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QImageWriter>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSaveFile>
#include <QTextCodec>

#include <unistd.h>

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <vector>

namespace {

/// The log of the window program, and Qt's remarks on the platform, would drown what the user has to read.
void logHandler(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        KMBatchPrompt::print(text);
}

QString suffixOf(const QString &path)
{
    return QFileInfo(path).suffix().toLower();
}

bool isNative(const QString &path)
{
    return suffixOf(path) == QLatin1String("kmd");
}

void printUnknownFormat(const QString &path, const QString &done)
{
    const QString suffix = suffixOf(path);
    KMBatchPrompt::print(
        suffix.isEmpty()
            ? QStringLiteral("kelmo-batch: \"%1\" has no suffix that tells its format, such as .kmd").arg(path)
            : QStringLiteral("kelmo-batch: files of the suffix \"%1\" can't be %2 in this version").arg(suffix, done));
}

/// What a format does with a file, after its questions were answered by switches.
KMBatchProgram::ExitCode exchange(const KMExchangeFormat::Form &questions, const KMExchangeFormat::Work &work,
                                  const QString &path, KMBatchProgram::ExitCode failure)
{
    KMOptionForm form;
    if (!KMExchangeFormat::ask(questions, form))
        return KMBatchProgram::WrongUse;
    return work(path, form) ? KMBatchProgram::Done : failure; // which has said why
}

bool isThere(const QString &path)
{
    const QString fault = KMInputFile::obstacle(path);
    if (!fault.isEmpty())
        KMBatchPrompt::print(QStringLiteral("kelmo-batch: \"%1\": %2").arg(path, fault));
    return fault.isEmpty();
}

/// Drawing needs a display. Where there is none the program starts itself anew inside a virtual one; it comes back from
/// here only when that isn't installed.
void enterVirtualDisplay(int argc, char **argv)
{
    constexpr char screen[] = "-screen 0 1280x1024x24";
    std::vector<const char *> command = {"xvfb-run", "-a", "-s", screen};
    command.insert(command.end(), argv, argv + argc);
    command.push_back(nullptr);
    execvp(command.front(), const_cast<char *const *>(command.data()));
}

bool writeOut(const QByteArray &bytes)
{
    return std::fwrite(bytes.constData(), 1, size_t(bytes.size()), stdout) == size_t(bytes.size())
           && std::fflush(stdout) == 0;
}

} // namespace

void KMBatchProgram::prepareEnvironment(int argc, char **argv)
{
    const bool draws = argc > 1 && std::strcmp(argv[1], "render") == 0;
    if (draws && qEnvironmentVariableIsEmpty("DISPLAY") && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        enterVirtualDisplay(argc, argv);
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts, true);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) { // a display that is named need not be there
        const bool hasDisplay = draws && !qEnvironmentVariableIsEmpty("DISPLAY");
        qputenv("QT_QPA_PLATFORM", hasDisplay ? "xcb;offscreen" : "offscreen");
    }
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
    qInstallMessageHandler(logHandler);
}

int KMBatchProgram::run()
{
    const KMHeadlessSession session; // the questions of the formats, which are switches, may look at it
    QString error;
    m_arguments = KMBatchArguments::parse(m_argumentList, error);
    if (!error.isEmpty()) {
        KMBatchPrompt::print(QStringLiteral("kelmo-batch: %1\n%2").arg(error, KMBatchArguments::usage()));
        return WrongUse;
    }
    if (m_arguments.command == QLatin1String("help"))
        return writeOut(KMBatchArguments::usage().toUtf8()) ? Done : NoOutput;

    KMBatchPrompt prompt(m_arguments.switches);
    const KMPromptScope scope(&prompt);
    m_format = installNativeFormat(gSolution);
    const KMCameraSet cameras(m_format); // so that they survive a conversion
    return runCommand(prompt);
}

KMBatchProgram::ExitCode KMBatchProgram::runCommand(KMBatchPrompt &prompt)
{
    ExitCode code = WrongUse;
    if (m_arguments.command == QLatin1String("info"))
        code = info();
    else if (m_arguments.command == QLatin1String("convert"))
        code = convert();
    else if (m_arguments.command == QLatin1String("render"))
        code = render();
    else
        KMBatchPrompt::print(QStringLiteral("kelmo-batch: %1 isn't possible in this version").arg(m_arguments.command));
    if (code != Done)
        return code;
    for (const QString &name : prompt.unusedSwitches()) {
        if (isMeaningless(name))
            KMBatchPrompt::print(QStringLiteral("--%1 has no meaning for these files").arg(name));
    }
    return Done;
}

/// Of a switch that no form has asked for.
bool KMBatchProgram::isMeaningless(const QString &name) const
{
    if (name == QLatin1String("compatibility"))
        return !isNative(m_arguments.paths.last());
    static const char *const ofPictures[] = {"view", "size", "motion", "frame", "pose"};
    return std::none_of(std::begin(ofPictures), std::end(ofPictures),
                        [&name](const char *own) { return name == QLatin1String(own); });
}

KMBatchProgram::ExitCode KMBatchProgram::readInput(const QString &path) const
{
    const KMExchangeFormat *format = exchangeFormat(suffixOf(path));
    const bool isReadable = isNative(path) || (format && format->read);
    if (QFileInfo(path).isFile() && !isReadable) {
        printUnknownFormat(path, QStringLiteral("read"));
        return WrongUse;
    }
    if (!isReadable || isNative(path))
        return gSolution->load(path) ? Done : BadInput; // which has said why
    return isThere(path) ? exchange(format->readForm, format->read, path, BadInput) : BadInput;
}

KMBatchProgram::ExitCode KMBatchProgram::info()
{
    const QString path = m_arguments.paths.first();
    const ExitCode read = readInput(path);
    if (read != Done)
        return read;
    const QJsonObject told = documentInfo(suffixOf(path), KMTexturePath::folderOf(path));
    return writeOut(QJsonDocument(told).toJson()) ? Done : NoOutput;
}

KMBatchProgram::ExitCode KMBatchProgram::convert()
{
    const QString output = m_arguments.paths.last();
    const KMExchangeFormat *format = exchangeFormat(suffixOf(output));
    if (!isNative(output) && !(format && format->write)) {
        printUnknownFormat(output, QStringLiteral("written"));
        return WrongUse;
    }
    const ExitCode read = readInput(m_arguments.paths.first());
    return read == Done ? write(output) : read;
}

KMBatchProgram::ExitCode KMBatchProgram::write(const QString &path) const
{
    if (!isNative(path)) {
        const KMExchangeFormat *format = exchangeFormat(suffixOf(path));
        return exchange(format->writeForm, format->write, path, NoOutput);
    }
    const bool compatibility = m_arguments.has(QStringLiteral("compatibility"));
    return m_format->write(path, compatibility ? KMVersion::CompatibilityForm : KMVersion::WriterForm) ? Done
                                                                                                       : NoOutput;
}

KMBatchProgram::ExitCode KMBatchProgram::render()
{
    const QString output = m_arguments.paths.last();
    if (!QImageWriter::supportedImageFormats().contains(suffixOf(output).toLatin1())) {
        KMBatchPrompt::print(QStringLiteral("kelmo-batch: \"%1\" is no kind of picture").arg(suffixOf(output)));
        return WrongUse;
    }
    ExitCode code = readInput(m_arguments.paths.first());
    if (code == Done)
        code = pose();
    return code == Done ? writePicture(output) : code;
}

/// The pose comes last: its keys stand at the frame that is shown.
KMBatchProgram::ExitCode KMBatchProgram::pose() const
{
    const QMap<QString, QString> &switches = m_arguments.switches;
    const QString motion = switches.value(QStringLiteral("motion"));
    if (!motion.isEmpty() && !(isThere(motion) && VmdImporter::load(motion)))
        return BadInput;
    if (m_arguments.has(QStringLiteral("frame")))
        gProject->setCurrentFrame(switches.value(QStringLiteral("frame")).toInt());
    gSolution->update(0); // the picture is aimed at what the chains make of the frame
    const QString pose = switches.value(QStringLiteral("pose"));
    return pose.isEmpty() || (isThere(pose) && VpdImporter::load(pose)) ? Done : BadInput;
}

KMBatchProgram::ExitCode KMBatchProgram::writePicture(const QString &path) const
{
    const QMap<QString, QString> &switches = m_arguments.switches;
    const QString view = switches.value(QStringLiteral("view"), QStringLiteral("perspective"));
    const QStringList size = switches.value(QStringLiteral("size"), QStringLiteral("1280x680")).split(QLatin1Char('x'));
    const QImage picture = documentPicture(view, {size.first().toInt(), size.last().toInt()});
    if (picture.isNull()) {
        KMBatchPrompt::print(
            QStringLiteral("kelmo-batch: nothing can be drawn here: it takes OpenGL on a display, or xvfb-run to make "
                           "one, and a size that the driver can do"));
        return NoOutput;
    }
    QSaveFile file(path);
    if (file.open(QIODevice::WriteOnly) && picture.save(&file, suffixOf(path).toLatin1().constData()) && file.commit())
        return Done;
    KMBatchPrompt::print(QStringLiteral("kelmo-batch: %1 can't be written: %2").arg(path, file.errorString()));
    return NoOutput;
}
