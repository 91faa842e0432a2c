#pragma once

#include <QtGlobal>

/// Makes the context that all views share objects with the current one, for work outside of a frame, and gives the
/// former one back at its end. Without a renderer, or where the driver refuses, nothing is changed.
class KMShareContext
{
    Q_DISABLE_COPY(KMShareContext)
public:
    KMShareContext();
    ~KMShareContext();

private:
    bool m_entered;
};
