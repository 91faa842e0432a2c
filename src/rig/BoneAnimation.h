#pragma once

#include "rig/BoneTrack.h"

#include <QHash>
#include <QList>
#include <QPair>
#include <QVector>

#include <memory>
#include <vector>

class KMBoneContainer;

/// The motion of the bones of a container, in one track for each bone, and the computation of their pose.
///
/// An evaluation overwrites the local poses with those of the world. It is started by applyFrame(), by reevaluate(), or
/// by who has written the local poses of all bones himself.
class BoneAnimation
{
    Q_DISABLE_COPY(BoneAnimation)
public:
    /// What a relink changed. Who keeps it can take it back; else the lost tracks go with it.
    struct Relinked
    {
        struct Lost
        {
            int place; // among the tracks
            std::unique_ptr<BoneTrack> track;
        };
        std::vector<Lost> lost;                        ///< tracks without a bone of their name, by place
        QVector<QPair<QString, KMBone *>> formerBones; ///< of tracks that got another bone

        bool isEmpty() const { return lost.empty() && formerBones.isEmpty(); }
    };

    explicit BoneAnimation(KMBoneContainer *container);
    ~BoneAnimation();

    QString name() const { return m_name; }
    void setName(const QString &name) { m_name = name; }
    QList<KMBoneKey> &selected()
    {
        return m_selected;
    } ///< for panels that let keys be chosen; the line of time doesn't

    // Tracks

    const QList<BoneTrack *> &tracks() const { return m_tracks; }
    BoneTrack *track(const QString &name) const { return m_byName.value(name); } ///< null when there is none
    bool hasKey(const QString &name, quint32 frame) const { return key(name, frame); }
    const KMBoneKey *key(const QString &name, quint32 frame) const; ///< exactly at the frame, else null
    /// Stores a key in the track of its name, in place of one at the same frame. A new track is linked to the first
    /// live bone of the name, if there is one.
    void setKey(const KMBoneKey &key);
    void takeKey(const QString &name, quint32 frame); ///< the track stays, even without keys
    void removeKey(const QString &name);              ///< the track of the name with all its keys
    void clear();                                     ///< all tracks
    quint64 revision() const { return m_revision; }   ///< another one with each change of tracks or keys, in any rig
    quint32 lastFrame() const;                        ///< of any key; 0 without keys
    void copyTo(BoneAnimation &destination) const;    ///< in place of its tracks
    void swapTracks(BoneAnimation &other);            ///< of the same container

    Relinked relinkTracks(); ///< finds the bones by name again; tracks that have none go
    void takeBack(Relinked &&relinked);
    void dropUnlinked(); ///< deletes the tracks without a bone

    // Pose

    void applyFrame(quint32 frame); ///< poses all bones by their keys
    void evaluateAll();
    void evaluateSubtree(KMBone *bone); ///< the bone and all below it; their local poses must have been written
    void reevaluate();                  ///< all bones again from the poses that keys or a tool gave them
    void resetAll();                    ///< back to rest

private:
    void prepareConstraints();
    void markWeightedMeshes();
    void noteChange();

    KMBoneContainer *m_container;
    QString m_name;
    QList<BoneTrack *> m_tracks; // owned
    QList<KMBoneKey> m_selected;
    QHash<QString, BoneTrack *> m_byName;
    quint64 m_revision = 0;
};
