#pragma once

#include "tools/KMToolMesh.h"

class QPointF;

/// A small cross in the window, over the place that a click would act on.
class KMToolCross : public KMToolMesh
{
    Q_OBJECT
public:
    explicit KMToolCross(QObject *parent = nullptr);

    void moveTo(const QPointF &place); ///< window pixels
};
