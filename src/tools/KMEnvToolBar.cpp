#include "tools/KMEnvToolBar.h"

#include "core/KMIcon.h"
#include "core/KMSolution.h"

#include <QAction>
#include <QActionGroup>

namespace {

using Shape = KMEditFilter::Shape;

struct Row
{
    const char *objectName;
    const char *text;
    const char *icon;
    bool KMEditFilter::*toggle; ///< null for a shape
    Shape shape;
    const char *tip;
};

constexpr Row rows[] = {
    {"envVertex", QT_TRANSLATE_NOOP("KMEnvToolBar", "Vertex"), "reason", &KMEditFilter::vertices, Shape::Square,
     QT_TRANSLATE_NOOP("KMEnvToolBar", "The mouse reaches vertices")},
    {"envEdge", QT_TRANSLATE_NOOP("KMEnvToolBar", "Edge"), "share22", &KMEditFilter::edges, Shape::Square,
     QT_TRANSLATE_NOOP("KMEnvToolBar", "The mouse reaches edges")},
    {"envFace", QT_TRANSLATE_NOOP("KMEnvToolBar", "Face"), "four45", &KMEditFilter::faces, Shape::Square,
     QT_TRANSLATE_NOOP("KMEnvToolBar", "The mouse reaches faces")},
    {"envSymmetry", QT_TRANSLATE_NOOP("KMEnvToolBar", "Symmetry"), "butterfly83", &KMEditFilter::symmetry,
     Shape::Square, QT_TRANSLATE_NOOP("KMEnvToolBar", "What lies opposite in the mesh is edited along")},
    {"envSquare", QT_TRANSLATE_NOOP("KMEnvToolBar", "Square Select"), "browser11", nullptr, Shape::Square,
     QT_TRANSLATE_NOOP("KMEnvToolBar", "A drag over empty space selects by a rectangle")},
    {"envBrush", QT_TRANSLATE_NOOP("KMEnvToolBar", "Brush Select"), "circular2", nullptr, Shape::Brush,
     QT_TRANSLATE_NOOP("KMEnvToolBar", "A drag over empty space selects what the brush touches")},
    {"envLasso", QT_TRANSLATE_NOOP("KMEnvToolBar", "Lasso Select"), "lasso", nullptr, Shape::Lasso,
     QT_TRANSLATE_NOOP("KMEnvToolBar", "A drag over empty space selects what it encloses")},
};

} // namespace

KMEnvToolBar::KMEnvToolBar(QWidget *parent)
    : KMPanelBar(QStringLiteral("KMEnvToolBar"), tr("Operation Panel"), parent)
{
    toggleViewAction()->setStatusTip(tr("Show or hide the buttons that say what the mouse works on"));
    auto *shapes = new QActionGroup(this);
    for (const Row &row : rows) {
        if (!row.toggle && shapes->actions().isEmpty())
            addSeparator();
        QAction *button = addAction(KMIcon::icon(QLatin1String(row.icon)), tr(row.text));
        button->setObjectName(QLatin1String(row.objectName));
        button->setStatusTip(tr(row.tip));
        button->setCheckable(true);
        if (!row.toggle)
            shapes->addAction(button);
    }
    connect(this, &QToolBar::actionTriggered, this, &KMEnvToolBar::applyChoice);
    sync();
}

void KMEnvToolBar::applyChoice(QAction *action)
{
    KMEditFilter filter = gSolution->editFilter();
    for (const Row &row : rows) {
        if (action->objectName() != QLatin1String(row.objectName))
            continue;
        if (row.toggle)
            filter.*row.toggle = action->isChecked();
        else
            filter.shape = row.shape;
    }
    gSolution->setEditFilter(filter);
    emit onEditFilterChanged();
}

void KMEnvToolBar::sync()
{
    const KMEditFilter &filter = gSolution->editFilter();
    for (const Row &row : rows)
        findChild<QAction *>(QLatin1String(row.objectName))
            ->setChecked(row.toggle ? filter.*row.toggle : filter.shape == row.shape);
}
