#include "tools/KMAlignVertexDialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QPushButton>
#include <QRadioButton>

KMAlignVertexDialog::KMAlignVertexDialog(QWidget *parent)
    : QDialog(parent)
    , m_world(new QRadioButton(tr("World")))
    , m_local(new QRadioButton(tr("Local")))
{
    setObjectName(QStringLiteral("alignVertex"));
    auto *layout = new QFormLayout(this);
    layout->addRow(createSpaces());
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QPushButton *ok = buttons->button(QDialogButtonBox::Ok);
    const auto updateOk = [this, ok] { ok->setEnabled(aligns(0) || aligns(1) || aligns(2)); };
    for (int axis = 0; axis < 3; ++axis) {
        const QString name = QString(QLatin1Char("XYZ"[axis]));
        m_aligns[axis] = new QCheckBox(name);
        m_aligns[axis]->setObjectName(QStringLiteral("align") + name);
        m_values[axis] = new QDoubleSpinBox;
        m_values[axis]->setObjectName(QStringLiteral("value") + name);
        m_values[axis]->setDecimals(5);
        m_values[axis]->setRange(-1e6, 1e6);
        m_values[axis]->setSingleStep(0.1);
        connect(m_aligns[axis], &QCheckBox::toggled, this, updateOk);
        connect(m_values[axis], qOverload<double>(&QDoubleSpinBox::valueChanged), this, [this, axis] {
            if (m_values[axis]->hasFocus())
                m_aligns[axis]->setChecked(true);
        });
        layout->addRow(m_aligns[axis], m_values[axis]);
    }
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addRow(buttons);
    setWorld(true);
    updateOk();
}

QWidget *KMAlignVertexDialog::createSpaces()
{
    auto *spaces = new QWidget;
    auto *row = new QHBoxLayout(spaces);
    row->setContentsMargins({});
    m_world->setObjectName(QStringLiteral("world"));
    m_local->setObjectName(QStringLiteral("local"));
    row->addWidget(m_world);
    row->addWidget(m_local);
    row->addStretch();
    connect(m_world, &QRadioButton::clicked, this, [this] { emit onSetWorld(this, true); });
    connect(m_local, &QRadioButton::clicked, this, [this] { emit onSetWorld(this, false); });
    return spaces;
}

bool KMAlignVertexDialog::isWorld() const
{
    return m_world->isChecked();
}

void KMAlignVertexDialog::setWorld(bool isWorld)
{
    (isWorld ? m_world : m_local)->setChecked(true);
}

bool KMAlignVertexDialog::aligns(int axis) const
{
    return m_aligns[axis]->isChecked();
}

void KMAlignVertexDialog::setAligns(int axis, bool aligns)
{
    m_aligns[axis]->setChecked(aligns);
}

kvm::Vector3 KMAlignVertexDialog::values() const
{
    return {float(m_values[0]->value()), float(m_values[1]->value()), float(m_values[2]->value())};
}

void KMAlignVertexDialog::setValues(const kvm::Vector3 &values)
{
    for (int axis = 0; axis < 3; ++axis)
        m_values[axis]->setValue(double(values[axis]));
}
