#include "core/kmfileiodialog.h"

#include "core/KMPrompt.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QLineEdit>
#include <QMetaProperty>
#include <QSpinBox>

#include <limits>

namespace {

QSpinBox *intEditor(const KMOption &option)
{
    auto *box = new QSpinBox;
    box->setRange(int(qMax<double>(option.minimum, std::numeric_limits<int>::min())),
                  int(qMin<double>(option.maximum, std::numeric_limits<int>::max())));
    box->setValue(option.value.toInt());
    return box;
}

QDoubleSpinBox *floatEditor(const KMOption &option)
{
    auto *box = new QDoubleSpinBox;
    box->setDecimals(4);
    box->setRange(option.minimum, option.maximum);
    box->setSingleStep(option.step);
    box->setSuffix(option.unit);
    box->setValue(option.value.toDouble());
    return box;
}

QComboBox *choiceEditor(const KMOption &option)
{
    auto *box = new QComboBox;
    box->addItems(option.choices);
    box->setCurrentIndex(option.value.toInt());
    return box;
}

} // namespace

kmfileiodialog::kmfileiodialog(const KMOptionForm &form)
    : QDialog(form.parent ? form.parent : QApplication::activeWindow())
{
    setObjectName(QStringLiteral("kmfileiodialog"));
    setWindowTitle(form.title);
    auto *layout = new QFormLayout(this);
    for (const KMOption &option : form.options) {
        QWidget *editor = createEditor(option);
        editor->setObjectName(option.key);
        editor->setEnabled(option.isEnabled);
        m_editors << editor;
        if (option.kind == KMOption::Bool)
            layout->addRow(editor);
        else
            layout->addRow(option.label, editor);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addRow(buttons);
}

QWidget *kmfileiodialog::createEditor(const KMOption &option)
{
    switch (option.kind) {
    case KMOption::Bool: {
        auto *box = new QCheckBox(option.label);
        box->setChecked(option.value.toBool());
        return box;
    }
    case KMOption::Int:
        return intEditor(option);
    case KMOption::Float:
        return floatEditor(option);
    case KMOption::Text:
        return new QLineEdit(option.value.toString());
    case KMOption::Choice:
        return choiceEditor(option);
    }
    return nullptr;
}

/// The user property of each editor is what it edits; that of a list of choices is its text.
QVector<QVariant> kmfileiodialog::answers() const
{
    QVector<QVariant> values;
    for (const QWidget *editor : m_editors) {
        if (const auto *choice = qobject_cast<const QComboBox *>(editor))
            values << choice->currentIndex();
        else
            values << editor->property(editor->metaObject()->userProperty().name());
    }
    return values;
}
