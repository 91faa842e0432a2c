#pragma once

#include "mesh/KMBevel.h"
#include "tools/KMPreviewTool.h"

#include <algorithm>
#include <vector>

/// Bevels the selected edges.
class KMToolBevel : public KMPreviewTool
{
    Q_OBJECT
public:
    static constexpr int SliderSteps = 100; ///< of the panel's slider to a world unit

    explicit KMToolBevel(QWidget *parent = nullptr);

public slots:
    void onBevelSliderValueChanged(int steps);
    void onBevelSpinValueChanged(double value);
    void onBevelApply();

signals:
    void onBevelValueChanged(float value);

protected:
    KMPickRequest pickRequest() const override;
    void select(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers) override;
    bool build(const QList<KMMeshNode *> &meshes) override;
    float limited(float value) const override { return std::max(value, 0.0f); }
    void stretch(float value) override;
    void showOn(KMToolMesh *mesh) const override;
    void commit() override;
    void forget() override;
    void valueSet() override { emit onBevelValueChanged(value()); }

private:
    std::vector<KMBevel> m_bevels; // one for each mesh
};
