#include "formats/PmxExport.h"

#include "core/KMNodeType.h"
#include "core/KMOutlinePercent.h"
#include "core/KMProject.h"
#include "core/KMWaitingMacro.h"
#include "formats/PmxAgreement.h"
#include "formats/PmxExporter.h"
#include "formats/PmxMesh.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMMorphBake.h"
#include "rig/KMTagMorph.h"

#include <QDebug>
#include <QDesktopServices>
#include <QDir>
#include <QUrl>

namespace {

using Options = PmxExportOptions;

constexpr char scaleKey[] = "export-scale";
constexpr char outlineKey[] = "env-outline";
constexpr char openKey[] = "open-with";
constexpr char rootKey[] = "root-bone";
constexpr char resetKey[] = "reset-morph";

/// A check box of the form; without a member it is asked for by its key.
struct Row
{
    const char *key;
    const char *label;
    bool Options::*member;
    bool isOn;
};

constexpr Row rows[] = {
    {"view-nodes-only", QT_TRANSLATE_NOOP("PmxExport", "view Nodes Only"), &Options::viewNodesOnly, true},
    {"freeze-mods", QT_TRANSLATE_NOOP("PmxExport", "freeze Mods"), &Options::freezeMods, true},
    {"skip-hide-face", QT_TRANSLATE_NOOP("PmxExport", "Skip Hide Face"), &Options::skipHideFace, false},
    {outlineKey, QT_TRANSLATE_NOOP("PmxExport", "Use EnvOutline Value"), nullptr, false},
    {"skip-physics", QT_TRANSLATE_NOOP("PmxExport", "Skip Physics"), &Options::skipPhysics, false},
    {"no-overwrite-prompt", QT_TRANSLATE_NOOP("PmxExport", "Don't Confirm Overwrite"), &Options::noOverwritePrompt,
     false},
    {openKey, QT_TRANSLATE_NOOP("PmxExport", "Open with"), nullptr, false},
    {"relative-path", QT_TRANSLATE_NOOP("PmxExport", "To Relative Path"), &Options::relativePaths, true},
    {"convert-axis", QT_TRANSLATE_NOOP("PmxExport", "convert Operation Axis"), &Options::convertAxis, false},
    {"psd-to-png", QT_TRANSLATE_NOOP("PmxExport", "PSD and CLIP to PNG"), &Options::psdToPng, false},
    {"development", QT_TRANSLATE_NOOP("PmxExport", "Development "), &Options::developmentFlip, false},
    {resetKey, QT_TRANSLATE_NOOP("PmxExport", "Reset Morph"), nullptr, false},
};

QHash<QString, QVariant> lastAnswers; // of this run, but for the rig

KMOption rigOption(const QString &label)
{
    KMOption option{QLatin1String(rootKey), label, KMOption::Choice, 0};
    const QList<KMBoneContainer *> all = KMBoneContainer::inTree();
    for (const KMBoneContainer *rig : all)
        option.choices.append(rig->name());
    option.value = qMax(0, all.indexOf(KMBoneContainer::activeBoneContainer()));
    return option;
}

Options optionsOf(const KMOptionForm &answers)
{
    Options options;
    options.scale = answers.value(QLatin1String(scaleKey)).toFloat();
    for (const Row &row : rows) {
        if (row.member)
            options.*row.member = answers.value(QLatin1String(row.key)).toBool();
    }
    if (answers.value(QLatin1String(outlineKey)).toBool())
        options.edgeScale = float(KMOutlinePercent::current()) * 0.01f;
    options.parent = answers.parent;
    options.root = KMBoneContainer::inTree().value(answers.value(QLatin1String(rootKey)).toInt());
    return options;
}

} // namespace

KMOptionForm PmxExport::form()
{
    KMOptionForm form;
    form.title = tr("File I/O");
    KMOption scale{QLatin1String(scaleKey), tr("scale"), KMOption::Float, double(Options().scale), 0.0001, 10000.0};
    scale.value = QString::number(Options().scale).toDouble(); // not the nearest float
    scale.step = 0.1;
    form.options.append(scale);
    for (const Row &row : rows)
        form.options.append({QLatin1String(row.key), tr(row.label), KMOption::Bool, row.isOn});
    form.options.append(rigOption(tr("RootBone")));
    for (KMOption &option : form.options) {
        option.value = lastAnswers.value(option.key, option.value);
        option.isEnabled = option.key != QLatin1String("development");
    }
    return form;
}

void PmxExport::forgetAnswers()
{
    lastAnswers.clear();
}

bool PmxExport::write(const QString &path, const KMOptionForm &answers)
{
    for (const KMOption &option : answers.options) {
        if (option.kind != KMOption::Choice)
            lastAnswers.insert(option.key, option.value);
    }
    if (!PmxAgreement::obtain())
        return false;
    PmxExporter exporter(optionsOf(answers));
    if (exporter.root && PmxMesh::arePosed(exporter) && !mayWritePosed(answers.parent))
        return false;
    if (exporter.root && answers.value(QLatin1String(resetKey)).toBool()) // else nothing is going to be written
        resetMorphs();
    const bool isWritten = exporter.exportTo(path);
    if (!isWritten) {
        const QString text = QStringLiteral("%1\n%2").arg(QDir::toNativeSeparators(path), exporter.error());
        qDebug().noquote() << text;
        KMPrompt::current().warn(text);
        return false;
    }
    if (answers.value(QLatin1String(openKey)).toBool())
        QDesktopServices::openUrl(QUrl::fromLocalFile(path));
    return true;
}

bool PmxExport::mayWritePosed(QWidget *parent)
{
    KMMessage question;
    question.icon = QMessageBox::Warning;
    question.text = tr("The rig is posed: the surface is written in this pose, the bones at rest. "
                       "\"Disable All BoneMod\" writes it at rest.");
    question.buttons = QMessageBox::Ok | QMessageBox::Cancel;
    question.defaultButton = QMessageBox::Ok;
    question.parent = parent;
    return KMPrompt::current().message(question) == QMessageBox::Ok;
}

void PmxExport::resetMorphs()
{
    const KMWaitingMacro macro(tr("Reset Morph"));
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        const QVector<KMTagMorph *> tags = KMMorphBake::tagsOf(*mesh);
        for (KMTagMorph *tag : tags)
            tag->resetValues();
    }
}
