#include "shell/widgets/KMVectorField.h"

#include "core/KMDpi.h"
#include "shell/widgets/KMNumberField.h"

#include <QHBoxLayout>

namespace {

constexpr const char *axisNames[] = {"X", "Y", "Z"};

} // namespace

KMVectorField::KMVectorField(QWidget *parent)
    : QWidget(parent)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(dpiScaled(2));
    for (size_t axis = 0; axis < m_fields.size(); ++axis) {
        auto *field = new KMNumberField;
        field->setObjectName(QLatin1String(axisNames[axis]));
        field->setToolTip(QLatin1String(axisNames[axis]));
        field->setButtonSymbols(QAbstractSpinBox::NoButtons); // three pairs of arrows leave no room for digits
        field->setMinimumWidth(dpiScaled(36));
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        row->addWidget(field, 1);
        m_fields[axis] = field;
        connect(field, &KMNumberField::committed, this, [this] {
            emit committed({float(m_fields[0]->shownNumber()), float(m_fields[1]->shownNumber()),
                            float(m_fields[2]->shownNumber())});
        });
    }
}

void KMVectorField::showVector(const kvm::Vector3 &vector)
{
    m_fields[0]->showNumber(double(vector.x));
    m_fields[1]->showNumber(double(vector.y));
    m_fields[2]->showNumber(double(vector.z));
}

void KMVectorField::setSingleStep(double step)
{
    for (KMNumberField *field : m_fields)
        field->setSingleStep(step);
}
