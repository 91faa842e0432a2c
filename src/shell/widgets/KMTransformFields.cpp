#include "shell/widgets/KMTransformFields.h"

#include "core/KMDpi.h"
#include "shell/widgets/KMNumberField.h"

#include <QGridLayout>
#include <QLabel>

namespace {

constexpr const char *axisNames[] = {"X", "Y", "Z"};
constexpr const char *partNames[] = {"position", "rotation", "scale"};

} // namespace

KMTransformFields::KMTransformFields(QWidget *parent)
    : QWidget(parent)
{
    auto *grid = new QGridLayout(this);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(dpiScaled(2));
    for (int axis = 0; axis < 3; ++axis)
        grid->addWidget(new QLabel(QLatin1String(axisNames[axis])), 1 + axis, 0);
    for (const Part part : {KMTransformEdit::Position, KMTransformEdit::Rotation, KMTransformEdit::Scale})
        addColumn(grid, part);
    setTitle(KMTransformEdit::Position, tr("Position"));
    setTitle(KMTransformEdit::Rotation, tr("Rotation"));
    setTitle(KMTransformEdit::Scale, tr("Scale"));
}

void KMTransformFields::addColumn(QGridLayout *grid, Part part)
{
    constexpr int digits = 3; // more would not fit into a panel of the usual width
    const int column = 1 + part;
    m_titles[part] = new QLabel;
    m_titles[part]->setAlignment(Qt::AlignCenter);
    grid->addWidget(m_titles[part], 0, column);
    grid->setColumnStretch(column, 1);
    for (int axis = 0; axis < 3; ++axis) {
        auto *field = new KMNumberField;
        field->setObjectName(QLatin1String(partNames[part]) + QLatin1String(axisNames[axis]));
        field->setDecimals(digits);
        field->setButtonSymbols(QAbstractSpinBox::NoButtons);
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        field->setMinimumWidth(dpiScaled(36));
        field->setSingleStep(part == KMTransformEdit::Scale ? 0.1 : 1.0);
        if (part == KMTransformEdit::Rotation)
            field->setToolTip(tr("Degrees about X first, then Y, then Z"));
        grid->addWidget(field, 1 + axis, column);
        m_fields[part][size_t(axis)] = field;
        connect(field, &KMNumberField::committed, this,
                [this, part, axis](double number) { emit edited(part, axis, number); });
    }
}

void KMTransformFields::setTitle(Part part, const QString &title)
{
    m_titles[part]->setText(title);
}

void KMTransformFields::showNumbers(Part part, const kvm::Vector3 &numbers)
{
    for (int axis = 0; axis < 3; ++axis) {
        field(part, axis)->setEnabled(true);
        field(part, axis)->showNumber(double(numbers[axis]));
    }
}

void KMTransformFields::leaveEmpty(Part part)
{
    for (int axis = 0; axis < 3; ++axis) {
        field(part, axis)->setEnabled(false);
        field(part, axis)->drop();
        field(part, axis)->clear();
    }
}

void KMTransformFields::showNode(KMNullNode *node)
{
    if (node != m_node) {
        m_angles = {};
        for (const auto &column : m_fields) {
            for (KMNumberField *field : column)
                field->drop(); // what was meant for another node
        }
    }
    m_node = node;
    for (const Part part : {KMTransformEdit::Position, KMTransformEdit::Rotation, KMTransformEdit::Scale}) {
        if (!node) {
            leaveEmpty(part);
            continue;
        }
        showNumbers(part, KMTransformEdit::shown(node, part, m_angles));
        for (int axis = 0; axis < 3; ++axis)
            field(part, axis)->setEnabled(!node->isLocked());
    }
}

void KMTransformFields::editNode(Part part, int axis, double number, KMTransformEdit::Reach reach)
{
    if (m_node && !KMTransformEdit::set(m_node, part, axis, number, m_angles, reach))
        showNode(m_node);
}
