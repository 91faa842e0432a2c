#include "shell/docks/kmcoodinatewidget.h"

#include "core/KMDpi.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "mesh/KMSelectionCoordinates.h"
#include "shell/widgets/KMFieldPanel.h"
#include "shell/widgets/KMNumberField.h"
#include "shell/widgets/KMTransformFields.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

kmcoodinatewidget::kmcoodinatewidget(QWidget *parent)
    : KMDockWidget(QStringLiteral("kmcoodinatewidget"), tr("Coordinate"), QStringLiteral("coordinate"), parent)
    , m_panel(new KMFieldPanel)
    , m_title(new QLabel)
    , m_target(new QComboBox)
    , m_fields(new KMTransformFields)
{
    auto *layout = new QVBoxLayout(m_panel);
    const int margin = dpiScaled(4);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(dpiScaled(2));
    m_title->setObjectName(QStringLiteral("coordinateTitle"));
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name must not widen the panel
    m_target->setObjectName(QStringLiteral("coordinateTarget"));
    m_target->addItems({tr("Selection"), tr("Node")});
    m_target->setToolTip(tr("What the numbers are of while elements of a mesh are selected"));
    auto *top = new QHBoxLayout;
    top->addWidget(m_title, 1);
    top->addWidget(m_target);
    layout->addLayout(top);
    layout->addWidget(m_fields);
    layout->addStretch(1);
    setWidget(m_panel);
    connect(gSolution, &KMSolution::currentNodeChanged, this, &kmcoodinatewidget::refresh);
    connect(gProject->tree(), &QTreeWidget::itemSelectionChanged, this, &kmcoodinatewidget::refresh,
            Qt::QueuedConnection);
    connect(m_target, qOverload<int>(&QComboBox::activated), this, &kmcoodinatewidget::refresh);
    connect(m_fields, &KMTransformFields::edited, this, &kmcoodinatewidget::setNumber);
    refresh();
}

KMNullNode *kmcoodinatewidget::shownNode() const
{
    KMNode *node = m_released ? nullptr : gSolution->currentNode();
    return node && isTransformable(node->type()) ? nodeAs<KMNullNode>(node) : nullptr;
}

void kmcoodinatewidget::setNumber(KMTransformEdit::Part part, int axis, double number)
{
    KMSelectionCoordinates selection;
    if (!isForSelection(selection))
        return m_fields->editNode(part, axis, number, KMTransformEdit::Reach::Object);
    bool changed = false;
    switch (part) {
    case KMTransformEdit::Position:
        changed = selection.setCentre(axis, float(number));
        break;
    case KMTransformEdit::Rotation:
        changed = selection.turn(axis, float(number));
        break;
    case KMTransformEdit::Scale:
        changed = selection.setSize(axis, float(number));
        break;
    case KMTransformEdit::PartCount:
        break;
    }
    if (!changed)
        refresh();
}

bool kmcoodinatewidget::isForSelection(const KMSelectionCoordinates &selection) const
{
    return m_target->currentIndex() == Selection && !selection.isEmpty();
}

/// Nobody reads what isn't on the screen, and a large selection takes a while to measure.
void kmcoodinatewidget::refresh()
{
    if (m_released || !isVisible())
        return;
    const KMSelectionCoordinates selection;
    m_target->setVisible(!selection.isEmpty());
    if (isForSelection(selection))
        showSelection(selection);
    else
        showNode();
}

void kmcoodinatewidget::showSelection(const KMSelectionCoordinates &selection)
{
    m_fields->showNode(nullptr); // what was typed for a node isn't meant for its vertices
    m_title->setText(tr("Selected vertices: %1").arg(selection.vertexCount()));
    m_title->setEnabled(true);
    m_fields->setTitle(KMTransformEdit::Rotation, tr("Turn by"));
    m_fields->setTitle(KMTransformEdit::Scale, tr("Size"));
    m_fields->showNumbers(KMTransformEdit::Position, selection.centre());
    m_fields->showNumbers(KMTransformEdit::Rotation, {});
    m_fields->showNumbers(KMTransformEdit::Scale, selection.size());
    for (int axis = 0; axis < 3; ++axis)
        m_fields->field(KMTransformEdit::Scale, axis)->setEnabled(selection.size()[axis] != 0.0f);
}

void kmcoodinatewidget::showNode()
{
    KMNullNode *node = shownNode();
    m_title->setText(node ? node->name() : tr("Nothing with a place is selected"));
    m_title->setEnabled(node);
    m_fields->setTitle(KMTransformEdit::Rotation, tr("Rotation"));
    m_fields->setTitle(KMTransformEdit::Scale, tr("Scale"));
    m_fields->showNode(node);
}

/// The node may be gone before the panel is seen again.
void kmcoodinatewidget::hideEvent(QHideEvent *event)
{
    KMDockWidget::hideEvent(event);
    m_fields->showNode(nullptr);
}

void kmcoodinatewidget::showEvent(QShowEvent *event)
{
    KMDockWidget::showEvent(event);
    refresh();
}

void kmcoodinatewidget::commit()
{
    m_panel->commit();
}

void kmcoodinatewidget::releaseDocument()
{
    m_released = true;
    m_fields->showNode(nullptr);
}
