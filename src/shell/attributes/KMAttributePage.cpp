#include "shell/attributes/KMAttributePage.h"

#include "core/KMDpi.h"
#include "shell/widgets/KMColorField.h"
#include "shell/widgets/KMNumberField.h"
#include "shell/widgets/KMTextField.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>

KMAttributePage::KMAttributePage(QWidget *parent)
    : KMFieldPanel(parent)
    , m_form(new QFormLayout(this))
{
    const int margin = dpiScaled(6);
    m_form->setContentsMargins(margin, margin, margin, margin);
    m_form->setVerticalSpacing(dpiScaled(4));
    m_form->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    m_form->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
}

void KMAttributePage::refresh()
{
    for (const auto &show : std::as_const(m_showers))
        show();
}

void KMAttributePage::retire()
{
    for (QWidget *child : findChildren<QWidget *>())
        child->blockSignals(true);
}

void KMAttributePage::addRow(const QString &label, QWidget *editor, const QString &objectName)
{
    editor->setObjectName(objectName);
    m_form->addRow(label, editor);
}

KMTextField *KMAttributePage::addText(const QString &label, const QString &objectName)
{
    auto *field = new KMTextField;
    addRow(label, field, objectName);
    return field;
}

KMNumberField *KMAttributePage::addNumber(const QString &label, const QString &objectName)
{
    auto *field = new KMNumberField;
    addRow(label, field, objectName);
    return field;
}

KMNumberField *KMAttributePage::addWhole(const QString &label, const QString &objectName, int least, int most)
{
    auto *field = new KMNumberField(KMNumberField::Kind::Whole);
    field->setRange(least, most);
    addRow(label, field, objectName);
    return field;
}

KMColorField *KMAttributePage::addColor(const QString &label, const QString &objectName)
{
    auto *field = new KMColorField(label);
    addRow(label, field, objectName);
    return field;
}

QCheckBox *KMAttributePage::addCheck(const QString &label, const QString &objectName)
{
    auto *box = new QCheckBox(label);
    addRow({}, box, objectName);
    return box;
}

QComboBox *KMAttributePage::addChoice(const QString &label, const QString &objectName, const QStringList &choices)
{
    auto *box = new QComboBox;
    box->addItems(choices);
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(8); // a long texture name must not widen the whole panel
    addRow(label, box, objectName);
    return box;
}

void KMAttributePage::addHeading(const QString &text)
{
    auto *heading = new QLabel(text);
    QFont font = heading->font();
    font.setBold(true);
    heading->setFont(font);
    heading->setContentsMargins(0, dpiScaled(6), 0, 0);
    m_form->addRow(heading);
}
