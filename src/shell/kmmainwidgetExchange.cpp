// The window's slots that take files into the open document, and write it in other forms.

#include "core/KMPrompt.h"
#include "core/KMSolution.h"
#include "core/KMVersion.h"
#include "core/KMWaitCursor.h"
#include "formats/KMDFormat.h"
#include "formats/KMExchangeFormat.h"
#include "formats/KMNativeFormat.h"
#include "shell/KMPlayback.h"
#include "shell/docks/kmattributewidget.h"
#include "shell/kmmainwidget.h"

#include <QFileInfo>

namespace {

struct TakeRow
{
    const char *key;
    const char *label;
    int bit;
};

/// What a model file holds besides its nodes.
constexpr TakeRow takeRows[] = {
    {"views", QT_TRANSLATE_NOOP("kmmainwidget", "Settings of the views"), KMD::TakeViewState},
    {"cameras", QT_TRANSLATE_NOOP("kmmainwidget", "Cameras"), KMD::TakeCameras},
};

/// What the status bar says about long work.
class Progress
{
    Q_DISABLE_COPY(Progress)
public:
    explicit Progress(const QString &text) { gSolution->setProgress(text); }
    ~Progress() { gSolution->setProgress({}); }
};

/// Reads or writes a file with the answers to the questions that come before. False when it failed or was given up.
bool exchange(const KMExchangeFormat::Form &questions, const KMExchangeFormat::Work &work, const QString &path,
              const QString &progress, QWidget *window)
{
    KMOptionForm form;
    if (!KMExchangeFormat::ask(questions, form, window))
        return false;
    const Progress shown(progress.arg(QFileInfo(path).fileName()));
    const KMWaitCursor cursor;
    if (!work(path, form))
        return false;
    gSolution->setDirectory(QFileInfo(path).absoluteDir());
    return true;
}

} // namespace

void kmmainwidget::onMenuImportKMD()
{
    commitOpenEditors();
    m_playback->stop();
    KMOptionForm form;
    form.title = QStringLiteral("KMD");
    form.parent = this;
    for (const TakeRow &row : takeRows)
        form.options << KMOption{QLatin1String(row.key), tr(row.label), KMOption::Bool, false};
    form.options << KMOption{QStringLiteral("import-scale"), tr("Scale"), KMOption::Float, 1.0, 0.0001, 10000.0};
    if (!KMPrompt::current().options(form))
        return;
    int mask = 0;
    for (const TakeRow &row : takeRows)
        mask |= form.value(QLatin1String(row.key)).toBool() ? row.bit : 0;
    const QString path = askOpenPath(tr("Import File"), tr("kelmo Model File (*.kmd)"));
    if (!path.isEmpty())
        importModel(path, mask, form.value(QStringLiteral("import-scale")).toFloat());
}

/// An import ends the history. What was changed before it must still be asked for at the end.
void kmmainwidget::importModel(const QString &path, int mask, float scale)
{
    const bool wasModified = gSolution->isModified();
    if (!m_format->importFile(path, mask, scale))
        return;
    if (wasModified)
        gSolution->markUnsaved();
    gSolution->setDirectory(QFileInfo(path).absoluteDir());
    onUndoIndexChanged(0);
    m_attributeDock->refresh();
    gSolution->refreshViews(31);
}

/// The document stays what it is: it keeps its name and whether it is saved.
void kmmainwidget::onMenuExportKMDVer1()
{
    commitOpenEditors();
    const QString path = askSavePath(tr("Export File"), tr("KELMO ver1 compatibility(*.kmd)"), QStringLiteral("_ver1"));
    if (!path.isEmpty() && m_format->write(path, KMVersion::CompatibilityForm))
        gSolution->setDirectory(QFileInfo(path).absoluteDir());
}

void kmmainwidget::importAs(const QString &suffix, const QString &given)
{
    commitOpenEditors();
    m_playback->stop(); // keys go to the frame that the user sees
    const KMExchangeFormat *format = exchangeFormat(suffix);
    if (!format || !format->read)
        return;
    const QString path = given.isEmpty() ? askOpenPath(tr("Import File"), format->filter) : given;
    if (path.isEmpty() || !exchange(format->readForm, format->read, path, tr("Reading %1..."), this))
        return;
    m_attributeDock->refresh();
    gSolution->refreshViews(31);
}

/// The document stays what it is: it keeps its name and whether it is saved.
void kmmainwidget::exportAs(const QString &suffix)
{
    commitOpenEditors();
    m_playback->stop(); // the pose that the user sees is written, though dialogues let time go on
    const KMExchangeFormat *format = exchangeFormat(suffix);
    if (!format || !format->write)
        return;
    const QString path = askSavePath(tr("Export File"), format->filter);
    if (!path.isEmpty())
        exchange(format->writeForm, format->write, path, tr("Writing %1..."), this);
}

void kmmainwidget::onMenuImportPMX()
{
    importAs(QStringLiteral("pmx"));
}

void kmmainwidget::onMenuExportPMX()
{
    exportAs(QStringLiteral("pmx"));
}

void kmmainwidget::onMenuImportVMD()
{
    importAs(QStringLiteral("vmd"));
}

void kmmainwidget::onMenuImportVPD()
{
    importAs(QStringLiteral("vpd"));
}
