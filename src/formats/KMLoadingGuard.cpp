#include "formats/KMLoadingGuard.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"

KMLoadingGuard::KMLoadingGuard()
    : m_treeSignals(gProject->tree())
    , m_projectSignals(gProject)
    , m_wasBusy(gSolution->isBusy())
    , m_wasHidden(gProject->tree()->isHidden())
    , m_hadFocus(gProject->tree()->hasFocus())
{
    gSolution->setBusy(true);
    gProject->tree()->hide();
}

KMLoadingGuard::~KMLoadingGuard()
{
    if (!m_wasHidden)
        gProject->tree()->show();
    if (m_hadFocus)
        gProject->tree()->setFocus(); // hiding had passed the keyboard on
    gSolution->setBusy(m_wasBusy);
    m_projectSignals.unblock();
    gProject->announceShelves();
}

void KMLoadingGuard::selectNothing()
{
    gProject->tree()->clearSelection();
    gProject->tree()->setCurrentItem(nullptr);
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(gProject->tree()))
        KMTreeWidget::nodeOf(row)->setSelected(false);
}
