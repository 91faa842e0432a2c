#pragma once

#include "tools/KMToolMesh.h"

#include <QPointF>

/// The rectangle of a selection, in window pixels.
class KMToolSquare : public KMToolMesh
{
    Q_OBJECT
public:
    explicit KMToolSquare(QObject *parent = nullptr);

    void stretch(const QPointF &from, const QPointF &to); ///< two opposite corners
};
