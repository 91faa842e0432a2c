#pragma once

#include "tools/KMTool.h"

struct KMPickRequest;

/// Deletes the vertex, edge or face that is clicked, with its mirror image where symmetry is on.
class KMToolErase : public KMTool
{
    Q_OBJECT
public:
    explicit KMToolErase(QWidget *parent = nullptr);

    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget) override;

private:
    static void erase(const KMPickRequest &hit, float mirrorTolerance);
};
