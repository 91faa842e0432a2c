#pragma once

#include "tools/KMPanelBar.h"

/// Will play the motion and move its current frame; until then it keeps its place and says so.
class kmanimationpanel : public KMPanelBar
{
    Q_OBJECT
public:
    explicit kmanimationpanel(QWidget *parent = nullptr);
};
