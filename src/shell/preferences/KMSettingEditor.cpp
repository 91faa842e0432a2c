#include "shell/preferences/KMSettingEditor.h"

#include "core/KMDpi.h"
#include "core/KMPrompt.h"
#include "core/KMSettings.h"
#include "shell/preferences/KMSettingField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QDir>
#include <QDoubleSpinBox>
#include <QFontComboBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolButton>

#include <cmath>

namespace {

constexpr int WideField = 220; // pixels at a display scale of 1
constexpr int NarrowField = 110;

KMSettingEditor checkEditor(const KMSettingField &field, QWidget *parent)
{
    auto *box = new QCheckBox(settingText(field.label), parent);
    return {box, [box](const QVariant &value) { box->setChecked(value.toBool()); },
            [box] { return QVariant(box->isChecked()); }};
}

KMSettingEditor intEditor(const KMSettingField &field, const KMSettingsRow &row, QWidget *parent)
{
    auto *box = new QSpinBox(parent);
    box->setRange(int(row.lowest), int(row.highest));
    box->setSingleStep(int(field.step));
    box->setSuffix(settingText(field.suffix));
    return {box, [box](const QVariant &value) { box->setValue(value.toInt()); },
            [box] { return QVariant(box->value()); }};
}

/// How many decimals it takes to show a number, two at most.
int decimalsOf(double number)
{
    constexpr double Tolerance = 1e-6;
    int decimals = 0;
    while (decimals < 2 && std::abs(number - std::round(number)) > Tolerance) {
        number *= 10.0;
        ++decimals;
    }
    return decimals;
}

KMSettingEditor floatEditor(const KMSettingField &field, const KMSettingsRow &row, QWidget *parent)
{
    auto *box = new QDoubleSpinBox(parent);
    box->setDecimals(qMax(1, qMax(decimalsOf(field.step), decimalsOf(row.lowest))));
    box->setRange(row.lowest, row.highest);
    box->setSingleStep(field.step);
    box->setSuffix(settingText(field.suffix));
    return {box, [box](const QVariant &value) { box->setValue(value.toDouble()); },
            [box] { return QVariant(box->value()); }};
}

KMSettingEditor choiceEditor(const KMSettingField &field, QWidget *parent)
{
    auto *box = new QComboBox(parent);
    for (const KMSettingChoice &choice : field.choices)
        box->addItem(settingText(choice.label), choice.value);
    const int others = field.choiceOfOthers;
    const auto show = [box, others](const QVariant &value) {
        const int index = box->findData(value);
        box->setPlaceholderText(value.toString());
        box->setCurrentIndex(index < 0 ? others : index);
    };
    return {box, show, [box] { return box->currentData(); }};
}

KMSettingEditor fontEditor(QWidget *parent)
{
    auto *box = new QFontComboBox(parent);
    box->lineEdit()->setPlaceholderText(QCoreApplication::translate("KMSettingField", "Default"));
    // No clear button: Qt leaks the animation of one whose text is set before it is ever shown.
    return {box, [box](const QVariant &value) { box->setEditText(value.toString()); },
            [box] { return QVariant(box->currentText().trimmed()); }};
}

KMSettingEditor lineEditor(QWidget *parent)
{
    auto *line = new QLineEdit(parent);
    return {line, [line](const QVariant &value) { line->setText(value.toString()); },
            [line] { return QVariant(line->text()); }};
}

/// The backup looks for a relative folder beside the program, so the picker starts there.
void pickFolder(QLineEdit *line)
{
    const QString start = gSettings ? gSettings->filePath(line->text()) : line->text();
    const QString title = QCoreApplication::translate("KMSettingField", "Backup Folder");
    const QString folder = KMPrompt::current().folder({title, QDir::cleanPath(start), QString(), line->window()});
    if (!folder.isEmpty())
        line->setText(QDir::toNativeSeparators(folder));
}

KMSettingEditor folderEditor(const char *key, QWidget *parent)
{
    auto *frame = new QWidget(parent);
    KMSettingEditor editor = lineEditor(frame);
    auto *line = static_cast<QLineEdit *>(editor.widget);
    line->setObjectName(QLatin1String(key));
    auto *button = new QToolButton(frame);
    button->setObjectName(QLatin1String(key) + QStringLiteral("/pick"));
    button->setText(QStringLiteral("..."));
    button->setToolTip(QCoreApplication::translate("KMSettingField", "Choose a folder"));
    QObject::connect(button, &QToolButton::clicked, line, [line] { pickFolder(line); });

    auto *layout = new QHBoxLayout(frame);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(line);
    layout->addWidget(button);
    frame->setFocusProxy(line);
    editor.widget = frame;
    return editor;
}

KMSettingEditor makeEditor(const KMSettingField &field, const KMSettingsRow &row, QWidget *parent)
{
    switch (field.editor) {
    case KMSettingField::Check:
        return checkEditor(field, parent);
    case KMSettingField::Number:
        return row.fallback.type() == QVariant::Int ? intEditor(field, row, parent) : floatEditor(field, row, parent);
    case KMSettingField::Choice:
        return choiceEditor(field, parent);
    case KMSettingField::Font:
        return fontEditor(parent);
    case KMSettingField::Folder:
        return folderEditor(field.key, parent);
    case KMSettingField::Line:
        return lineEditor(parent);
    }
    return {};
}

} // namespace

KMSettingEditor makeSettingEditor(const KMSettingField &field, const KMSettingsRow &row, QWidget *parent)
{
    KMSettingEditor editor = makeEditor(field, row, parent);
    if (field.editor != KMSettingField::Folder)
        editor.widget->setObjectName(QLatin1String(field.key));
    if (field.editor != KMSettingField::Check)
        editor.widget->setFixedWidth(dpiScaled(field.editor == KMSettingField::Number ? NarrowField : WideField));
    return editor;
}
