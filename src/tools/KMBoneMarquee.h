#pragma once

#include "mesh/KMMeshSelect.h"

#include <QPointF>
#include <QPointer>
#include <QVector>

#include <functional>

class KMBone;
class KMBoneContainer;
class KMCameraNode;

/// Selection of heads and tails of a rig by an area or by a stroke, as one step of the history. What it will
/// select shows at once.
class KMBoneMarquee
{
public:
    void begin(KMMeshSelect::Mode mode); ///< in the current rig, unless it is hidden or locked
    void begin(KMMeshSelect::Mode mode, const KMBoneContainer *rig); ///< null: no bone can be selected
    bool isEmpty() const { return m_bones.isEmpty(); }               ///< no bone can be selected
    /// Adds the ends that lie at such places of the window. What was touched before stays.
    void touch(const KMCameraNode &camera, const std::function<bool(const QPointF &)> &contains);
    bool hasTouched() const;
    void commit(const QString &text); ///< none where a replacement has touched nothing
    void cancel();                    ///< the selection is as it was

private:
    struct Entry
    {
        QPointer<KMBone> bone;
        int before; ///< of KMBone::SelectBit
        int touched;
    };
    int wanted(const Entry &entry) const;
    void show(bool asItWas) const;

    KMMeshSelect::Mode m_mode = KMMeshSelect::Mode::Replace;
    QVector<Entry> m_bones;
};
