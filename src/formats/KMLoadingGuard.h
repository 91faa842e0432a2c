#pragma once

#include <QSignalBlocker>

/// While it lives nothing is saved by itself, and the tree shows and tells nothing. What changed on the
/// shelves is told once, at the end: a panel makes all its tiles anew each time.
class KMLoadingGuard
{
    Q_DISABLE_COPY(KMLoadingGuard)
public:
    KMLoadingGuard();
    ~KMLoadingGuard();

    static void selectNothing(); ///< no node of the tree is selected or its current one any more

private:
    QSignalBlocker m_treeSignals;
    QSignalBlocker m_projectSignals;
    bool m_wasBusy;
    bool m_wasHidden;
    bool m_hadFocus;
};
