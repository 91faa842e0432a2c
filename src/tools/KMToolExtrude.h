#pragma once

#include "mesh/KMExtrusion.h"
#include "tools/KMPreviewTool.h"

#include <vector>

/// Extrudes the selected faces. Its modes are those of KMExtrusion.
class KMToolExtrude : public KMPreviewTool
{
    Q_OBJECT
public:
    static constexpr int SliderSteps = 100; ///< of the panel's slider to a world unit

    explicit KMToolExtrude(QWidget *parent = nullptr);

    void setMode(int mode) override;
    bool perFaces() const { return m_perFaces; }
    bool canBePerFaces() const; ///< in this mode
    void resetOptions() override;

public slots:
    void setPerFaces(bool perFaces);
    void onExtrudeSliderValueChanged(int steps);
    void onExtrudeSpinValueChanged(double value);
    void onExtrudeApply();
    void onExtrudeBtnPressed(); ///< of the button with the property "mode" that is connected

signals:
    void onExtrudeValueChanged(float value);
    void perFacesChanged(bool perFaces);

protected:
    KMPickRequest pickRequest() const override;
    void select(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers) override;
    bool build(const QList<KMMeshNode *> &meshes) override;
    void stretch(float value) override;
    void dragTo(const KMMouseEvent &event, const KMCameraNode &camera) override;
    void showOn(KMToolMesh *mesh) const override;
    void commit() override;
    void forget() override;
    void valueSet() override { emit onExtrudeValueChanged(value()); }

private:
    KMExtrusion::Mode extrusionMode() const { return KMExtrusion::Mode(mode()); }

    std::vector<KMExtrusion> m_extrusions; // one for each mesh
    bool m_perFaces = false;
};
