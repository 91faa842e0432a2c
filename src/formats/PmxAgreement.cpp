#include "formats/PmxAgreement.h"

#include "core/KMPrompt.h"
#include "core/KMSettings.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSettings>
#include <QVBoxLayout>

namespace {

constexpr char settingsKey[] = "PMX/Agreement";

QSettings *openSettings(QObject *parent)
{
    return new QSettings(gSettings->kelmoFile(), QSettings::IniFormat, parent);
}

bool hasAgreed = false; // in this run

} // namespace

PmxAgreement::PmxAgreement(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("PmxAgreement"));
    setWindowTitle(tr("IMPORTANT NOTICE, AND AGREEMENT"));
    auto *text = new QLabel(tr("Models, motions, textures and other data may belong to somebody else. Their authors "
                               "decide what may be done with them.\n\n"
                               "Before you export a model that contains work of other authors, read the terms that "
                               "came with it. Don't change, combine, publish or pass on such data where its terms "
                               "don't allow that, and name the authors where they ask for it.\n\n"
                               "By going on you agree to respect the rights of all authors whose data you use."));
    text->setWordWrap(true);
    text->setMinimumWidth(text->fontMetrics().averageCharWidth() * 64);
    auto *buttons = new QDialogButtonBox;
    buttons->addButton(tr("I agree"), QDialogButtonBox::AcceptRole)->setObjectName(QStringLiteral("agree"));
    QPushButton *cancel = buttons->addButton(tr("canecl"), QDialogButtonBox::RejectRole);
    cancel->setObjectName(QStringLiteral("cancel"));
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(text);
    layout->addWidget(buttons);
    cancel->setDefault(true); // nobody agrees by pressing Enter too often
}

bool PmxAgreement::obtain()
{
    QObject owner;
    QSettings *settings = openSettings(&owner);
    hasAgreed = hasAgreed || settings->value(QLatin1String(settingsKey)).toBool();
    if (hasAgreed)
        return true;
    PmxAgreement question(QApplication::activeWindow());
    hasAgreed = KMPrompt::current().dialog(question);
    if (hasAgreed && gSettings->mainWidget) // a program without a user has asked nobody
        settings->setValue(QLatin1String(settingsKey), true);
    return hasAgreed;
}
