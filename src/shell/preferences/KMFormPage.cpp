#include "shell/preferences/KMFormPage.h"

#include "core/KMDpi.h"
#include "core/KMSettingsValues.h"
#include "shell/preferences/KMSettingField.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>

#include <algorithm>

namespace {

QString restartNote()
{
    return KMFormPage::tr("This setting will take effect after the application restart");
}

} // namespace

KMFormPage::KMFormPage(const QVector<KMSettingField> &fields, QWidget *parent)
    : KMPreferencesPage(parent)
{
    auto *layout = new QFormLayout(this);
    layout->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    layout->setFormAlignment(Qt::AlignLeft | Qt::AlignTop);
    layout->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
    layout->setHorizontalSpacing(dpiScaled(12));
    for (const KMSettingField &field : fields)
        addField(layout, field);
    if (std::any_of(fields.begin(), fields.end(), [](const auto &field) { return field.needsRestart; }))
        addRestartNote(layout);
}

void KMFormPage::addField(QFormLayout *layout, const KMSettingField &field)
{
    const KMSettingsRow *row = settingsRow(field.key);
    Q_ASSERT(row);
    if (field.heading)
        addHeading(layout, field.heading);

    const KMSettingEditor editor = makeSettingEditor(field, *row, this);
    QLabel *label = nullptr;
    if (field.editor != KMSettingField::Check) {
        const QString mark = field.needsRestart ? QStringLiteral(" *") : QString();
        label = new QLabel(settingText(field.label) + mark, this);
        label->setBuddy(editor.widget);
    }
    if (field.needsRestart)
        editor.widget->setToolTip(restartNote());
    layout->addRow(label, editor.widget);
    if (field.enabledBy)
        bindEnabled(field, editor.widget, label);
    m_entries.append({row, editor, QVariant()});
}

void KMFormPage::addHeading(QFormLayout *layout, const char *heading)
{
    auto *label = new QLabel(settingText(heading), this);
    QFont font = label->font();
    font.setBold(true);
    label->setFont(font);
    label->setContentsMargins(0, layout->rowCount() ? dpiScaled(12) : 0, 0, dpiScaled(2));
    layout->addRow(label);
}

void KMFormPage::addRestartNote(QFormLayout *layout)
{
    auto *note = new QLabel(QStringLiteral("* ") + restartNote(), this);
    note->setObjectName(QStringLiteral("restartNote"));
    note->setContentsMargins(0, dpiScaled(12), 0, 0);
    layout->addRow(note);
}

void KMFormPage::bindEnabled(const KMSettingField &field, QWidget *editor, QWidget *label)
{
    auto *box = findChild<QCheckBox *>(QLatin1String(field.enabledBy));
    Q_ASSERT(box);
    for (QWidget *widget : {editor, label}) {
        if (!widget)
            continue;
        widget->setEnabled(box->isChecked());
        connect(box, &QCheckBox::toggled, widget, &QWidget::setEnabled);
    }
}

void KMFormPage::load(const KMSettingsValues &values)
{
    for (Entry &entry : m_entries) {
        entry.editor.show(entry.row->value(values));
        entry.shown = entry.editor.value();
    }
}

/// An editor may show a value coarser than it is, or not at all; so a value that was not touched is not written.
void KMFormPage::store(KMSettingsValues &values)
{
    for (const Entry &entry : std::as_const(m_entries)) {
        const QVariant edited = entry.editor.value();
        if (edited != entry.shown)
            entry.row->setValue(values, edited);
    }
}
