#include "shell/docks/kmcoodinatewidget.h"

#include "core/KMDpi.h"
#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "shell/widgets/KMFieldPanel.h"
#include "shell/widgets/KMTransformFields.h"

#include <QLabel>
#include <QVBoxLayout>

kmcoodinatewidget::kmcoodinatewidget(QWidget *parent)
    : KMDockWidget(QStringLiteral("kmcoodinatewidget"), tr("Coordinate"), QStringLiteral("coordinate"), parent)
    , m_panel(new KMFieldPanel)
    , m_title(new QLabel)
    , m_fields(new KMTransformFields)
{
    auto *layout = new QVBoxLayout(m_panel);
    const int margin = dpiScaled(4);
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSpacing(dpiScaled(2));
    m_title->setObjectName(QStringLiteral("coordinateTitle"));
    m_title->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long name must not widen the panel
    layout->addWidget(m_title);
    layout->addWidget(m_fields);
    layout->addStretch(1);
    setWidget(m_panel);
    connect(gSolution, &KMSolution::currentNodeChanged, this, &kmcoodinatewidget::refresh);
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
    m_fields->editNode(part, axis, number, KMTransformEdit::Reach::Object);
}

void kmcoodinatewidget::refresh()
{
    KMNullNode *node = shownNode();
    m_title->setText(node ? node->name() : tr("Nothing with a place is selected"));
    m_title->setEnabled(node);
    m_fields->showNode(node);
}

void kmcoodinatewidget::commit()
{
    m_panel->commit();
}

void kmcoodinatewidget::releaseDocument()
{
    m_released = true;
    refresh();
}
