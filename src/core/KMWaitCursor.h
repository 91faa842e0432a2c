#pragma once

#include <QGuiApplication>

/// Shows the wait cursor for as long as it lives.
class KMWaitCursor
{
    Q_DISABLE_COPY(KMWaitCursor)
public:
    KMWaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
    ~KMWaitCursor() { QGuiApplication::restoreOverrideCursor(); }
};
