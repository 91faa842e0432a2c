#pragma once

#include "render/KMPickRequest.h"
#include "tools/KMTool.h"

class KMToolCross;

/// Deletes the vertex, edge, face or bone that is clicked, with its mirror image where symmetry is on.
class KMToolErase : public KMTool
{
    Q_OBJECT
public:
    explicit KMToolErase(QWidget *parent = nullptr);

    void initialize() override;
    void finalize() override;
    void refresh() override;
    void cancel() override;
    void leave(QEvent *event, KMOpenGLWidget *widget) override;
    void draw(KMOpenGLWidget *widget) override;
    bool mousePress(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    bool mouseMove(KMMouseEvent *event, KMOpenGLWidget *widget) override;

protected:
    bool isSymmetric() const override { return true; }

private:
    static void erase(const KMPickRequest &hit, float mirrorTolerance);

    KMPickRequest m_hover;           // what the cursor is over; compared, never used, but for its point
    KMToolCross *m_marker = nullptr; // at what a click deletes
};
