#include "shell/docks/kmcoodinatewidget.h"

#include "core/KMDpi.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "shell/widgets/KMFieldPanel.h"
#include "shell/widgets/KMNumberField.h"

#include <QGridLayout>
#include <QLabel>

using KMTransformEdit::Part;

namespace {

constexpr const char *axisNames[] = {"X", "Y", "Z"};
constexpr const char *partNames[] = {"position", "rotation", "scale"};

} // namespace

kmcoodinatewidget::kmcoodinatewidget(QWidget *parent)
    : KMDockWidget(QStringLiteral("kmcoodinatewidget"), tr("Coordinate"), QStringLiteral("coordinate"), parent)
    , m_panel(new KMFieldPanel)
    , m_title(new QLabel)
{
    auto *grid = new QGridLayout(m_panel);
    const int margin = dpiScaled(4);
    grid->setContentsMargins(margin, margin, margin, margin);
    grid->setSpacing(dpiScaled(2));
    m_title->setObjectName(QStringLiteral("coordinateTitle"));
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    grid->addWidget(m_title, 0, 0, 1, 4);
    for (int axis = 0; axis < 3; ++axis)
        grid->addWidget(new QLabel(QLatin1String(axisNames[axis])), 2 + axis, 0);
    addColumn(grid, KMTransformEdit::Position, 1, tr("Position"));
    addColumn(grid, KMTransformEdit::Scale, 2, tr("Scale"));
    addColumn(grid, KMTransformEdit::Rotation, 3, tr("Rotation"));
    grid->setRowStretch(5, 1);
    setWidget(m_panel);
    connect(gSolution, &KMSolution::currentNodeChanged, this, &kmcoodinatewidget::refresh);
    refresh();
}

void kmcoodinatewidget::addColumn(QGridLayout *grid, Part part, int column, const QString &title)
{
    auto *heading = new QLabel(title);
    heading->setAlignment(Qt::AlignCenter);
    grid->addWidget(heading, 1, column);
    grid->setColumnStretch(column, 1);
    for (int axis = 0; axis < 3; ++axis) {
        auto *field = new KMNumberField;
        field->setObjectName(QLatin1String(partNames[part]) + QLatin1String(axisNames[axis]));
        field->setButtonSymbols(QAbstractSpinBox::NoButtons); // the column is no wider than the digits
        field->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
        field->setMinimumWidth(dpiScaled(36));
        field->setSingleStep(part == KMTransformEdit::Scale ? 0.1 : 1.0);
        if (part == KMTransformEdit::Rotation)
            field->setToolTip(tr("Degrees about X first, then Y, then Z"));
        grid->addWidget(field, 2 + axis, column);
        m_fields[part][size_t(axis)] = field;
        connect(field, &KMNumberField::committed, this,
                [this, part, axis](double number) { setNumber(part, axis, number); });
    }
}

KMNullNode *kmcoodinatewidget::shownNode() const
{
    KMNode *node = m_released ? nullptr : gSolution->currentNode();
    return node && isTransformable(node->type()) ? nodeAs<KMNullNode>(node) : nullptr;
}

void kmcoodinatewidget::setNumber(Part part, int axis, double number)
{
    if (!m_node || m_node != shownNode()
        || !KMTransformEdit::set(m_node, part, axis, number, m_angles, KMTransformEdit::Reach::Object))
        refresh();
}

void kmcoodinatewidget::refresh()
{
    KMNullNode *node = shownNode();
    if (node != m_node)
        m_angles = {};
    m_node = node;
    m_title->setText(node ? node->name() : tr("No node with a place is selected"));
    for (size_t part = 0; part < m_fields.size(); ++part) {
        const kvm::Vector3 numbers = node ? KMTransformEdit::shown(node, Part(part), m_angles) : kvm::Vector3();
        for (int axis = 0; axis < 3; ++axis) {
            m_fields[part][size_t(axis)]->showNumber(double(numbers[axis]));
            m_fields[part][size_t(axis)]->setEnabled(node && !node->isLocked());
        }
    }
}

void kmcoodinatewidget::commit()
{
    m_panel->commit();
}

void kmcoodinatewidget::resetDocument()
{
    m_node = nullptr;
    refresh();
}

void kmcoodinatewidget::releaseDocument()
{
    m_released = true;
    refresh();
}
