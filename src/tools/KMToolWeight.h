#pragma once

#include "mesh/KMCreaseEdit.h"
#include "tools/KMCreaseColors.h"
#include "tools/KMToolUniv.h"

class KMCreaseDrag;

/// Selects as the universal tool does; a drag at a selected vertex or edge to the right or left changes the crease
/// weights of all that are selected, each from its own, in steps with Shift. Its page sets them to one value.
class KMToolWeight : public KMToolUniv
{
    Q_OBJECT
public:
    static constexpr int SliderSteps = 100; ///< to a weight of 1

    explicit KMToolWeight(QWidget *parent = nullptr);

    KMMeshTargets::Elements kinds() const;
    void setKinds(KMMeshTargets::Elements kinds); ///< what gets weights, and what a click finds
    KMCreaseRange weights() const;                ///< of what is selected

    void setWeight(float weight);     ///< of all that is selected, as one step
    void previewWeight(float weight); ///< the same without a step, until applyWeight() or cancel()
    void applyWeight();               ///< nothing without a preview

    void refresh() override;
    void cancel() override;
    void resetOptions() override;
    bool mouseRelease(KMMouseEvent *event, KMOpenGLWidget *widget) override;
    const KMVertexColors *vertexColors(const KMMeshNode &mesh) const override;

signals:
    void kindsChanged();
    void weightsChanged();                ///< other elements, or other weights of the same
    void onWeightValueChanged(int value); ///< the same, where all have one; in steps of the slider

protected:
    KMPickRequest requestFor(float margin) const override;
    DragState dragBy(const QPointF &way, Qt::KeyboardModifiers modifiers) override;

private:
    KMToolWeight(KMCreaseDrag *subject, QWidget *parent); ///< takes it over
    void tellWeights();

    KMCreaseDrag *m_crease; // owned as the subject
    KMCreaseColors m_colors;
    bool m_isPreviewing = false; // for the panel
};
