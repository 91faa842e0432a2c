#pragma once

#include "mesh/KMMeshTargets.h"
#include "shell/widgets/KMFieldPanel.h"

class KMNumberField;
class KMToolWeight;
class QCheckBox;
class QPushButton;
class QSlider;

/// The controls of the crease weight tool: which elements get weights, and the weight of what is selected.
class KMWeightPage : public KMFieldPanel
{
    Q_OBJECT
public:
    explicit KMWeightPage(KMToolWeight *tool, QWidget *parent = nullptr);

private slots:
    void showKinds();
    void showWeights(); ///< nothing in the number where they differ
    void onSliderMoved(int value);

private:
    QCheckBox *kindBox(const QString &text, const char *objectName, KMMeshTargets::Element kind);
    QPushButton *presetButton(const QString &text, const char *objectName, float weight);

    KMToolWeight *m_tool;
    QCheckBox *m_vertices;
    QCheckBox *m_edges;
    KMNumberField *m_number;
    QSlider *m_slider;
    QPushButton *m_none;
    QPushButton *m_full;
};
