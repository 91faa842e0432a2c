#pragma once

#include "shell/attributes/KMNodePage.h"
#include "shell/widgets/KMShownAngles.h"

#include <functional>

class KMBone;
struct BoneLimit;

/// A bone: its rest pose, how it is shown, how it may move, the angular limits in degrees, and its tags. Switches,
/// choices and limits go to all bones of the rig that are selected with it, each field by itself.
class KMBonePage : public KMNodePage
{
    Q_OBJECT
public:
    explicit KMBonePage(KMBone *bone);

private:
    void addRest();
    void addSwitches();
    void addLimits();
    void addAngle(const QString &label, const QString &key, float BoneLimit::*angle, int field);
    void addTags();
    void showLock(int first, int last);
    bool isLocked() const;            ///< the bone or its rig is
    QList<KMBone *> affected() const; ///< the bone, and those that are selected with it and aren't locked
    void edit(const std::function<void(KMBone *)> &push);
    void editLimits(const BoneLimit &limits, int fields);

    KMBone *m_bone;
    KMShownAngles m_angles;
};
