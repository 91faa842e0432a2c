#pragma once

#include "tools/KMToolUniv.h"

/// Moves, scales and turns whole nodes with the handle. A click on a mesh selects its node.
class KMToolSRT : public KMToolUniv
{
    Q_OBJECT
public:
    explicit KMToolSRT(QWidget *parent = nullptr);

protected:
    bool clickElement(const KMPickRequest &hit, Qt::KeyboardModifiers modifiers) override;
    bool clickBone(const KMBonePicker::Hit &hit, Qt::KeyboardModifiers modifiers) override;
    void clickNothing() override;
    bool hasMarquee() const override { return false; }
    KMPickRequest requestFor(float margin) const override;
    bool pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request) const override;
};
