#pragma once

#include "tools/KMHandleDrag.h"
#include "tools/KMToolMesh.h"

#include <memory>
#include <vector>

/// The handle at the selection: arrows that move it, boxes that scale it, balls and a ring that turn it. It has the
/// same size on the screen in each view, so it is shaped for the view that is drawn.
class KMToolHandle : public KMToolMesh
{
    Q_OBJECT
public:
    explicit KMToolHandle(QObject *parent = nullptr);
    ~KMToolHandle() override;

    int mode() const { return m_mode; }
    void setMode(int mode); ///< bits of KMHandleCode::Mode: the parts that it has
    bool isVisible() const override { return m_isVisible; }
    void setVisible(bool visible) override;
    bool isZReversed() const { return m_isZReversed; }

    void setPlace(const kvm::Vector3 &position, const kvm::Quaternion &axes);
    const kvm::Vector3 &position() const { return m_position; }
    const kvm::Quaternion &axes() const { return m_axes; }
    KMHandlePlace placeIn(const KMCameraNode &camera) const;
    void aim(const KMCameraNode &camera); ///< shapes it for a view

    /// The part of its mode at a place of the window, shown or not; KMHandleCode::NoPart for none.
    int codeAt(const KMCameraNode &camera, const QPointF &position) const;
    bool setHot(int code); ///< lights up a part; whether another one did before
    QVector<KMToolOverlay> overlays() const override;

public slots:
    void onZRevChanged(bool reversed);

private:
    struct Part;

    void showParts();
    void colorParts();
    kvm::Vector3 placed(const Part &part, const kvm::Vector3 &point, const KMCameraNode &camera, float unit) const;
    bool isAtCentre(const KMCameraNode &camera, const QPointF &position) const;
    bool depthAt(const Part &part, const KMCameraNode &camera, const QPointF &position, float &depth) const;
    bool isOnRing(const KMCameraNode &camera, const QPointF &position) const;

    std::vector<std::unique_ptr<Part>> m_parts;
    kvm::Vector3 m_position;
    kvm::Quaternion m_axes;
    int m_mode;
    int m_hot = 0;
    bool m_isVisible = false;
    bool m_isZReversed;
};
