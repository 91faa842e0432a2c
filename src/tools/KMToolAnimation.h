#pragma once

#include "tools/KMToolUniv.h"

/// Poses bones and writes keys. A click picks a bone, the handle stands at its head; a drag at the bone itself moves it
/// where it may move, else it turns it about the direction of view.
class KMToolAnimation : public KMToolUniv
{
    Q_OBJECT
public:
    explicit KMToolAnimation(QWidget *parent = nullptr);

    void updateCentre() override;

protected:
    bool clickBone(const KMBonePicker::Hit &hit, Qt::KeyboardModifiers modifiers) override;
    bool hasMarquee() const override { return false; }
    bool isSymmetric() const override { return false; }
    bool pickAny(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request,
                 KMBonePicker::Hit &bone) const override;
    bool followsPose() const override { return true; }
    int dragCode(const KMBonePicker::Hit &hit) const override;
    QString statusText(const KMHandleDrag &drag, const KMDragTransform &transform) const override;
};
