#pragma once

#include "tools/KMPanelBar.h"

class KMPlayback;
class KMTransport;

/// The buttons that play the motion, with its current frame, in a bar below the views.
class kmanimationpanel : public KMPanelBar
{
    Q_OBJECT
public:
    explicit kmanimationpanel(KMPlayback *playback, QWidget *parent = nullptr);

    KMTransport *transport() const { return m_transport; }

private:
    KMTransport *m_transport;
};
