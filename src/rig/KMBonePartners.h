#pragma once

#include "math/Vector3.h"

#include <QVector>

class KMBone;
class KMSymmetryPlane;

/// Which bones stand for which on the other side of a plane. What they stand for in their rigs is left alone.
class KMBonePartners
{
public:
    /// Finds the partners anew if the plane, the reach of the settings or a bone of the rigs stands elsewhere, or bones
    /// came or went. Answers whether one of the list has another than before. Allocates only where something moved.
    bool follow(const QVector<KMBone *> &bones, const KMSymmetryPlane &plane);

    /// Of a bone by its place in the list: the one whose ends lie nearest to the images of its own, itself on the
    /// plane. Null for one without a partner, and for one that is deleted or gone. Bones that lie in one place have one
    /// each, where there are as many.
    KMBone *of(int i) const { return m_partners.at(i); }

    static KMBone *partnerOf(KMBone *bone, const KMSymmetryPlane &plane); ///< the same for a single bone

private:
    struct Place
    {
        KMBone *bone;
        kvm::Vector3 head, tail;

        bool operator==(const Place &other) const;
    };
    struct Cause
    {
        kvm::Vector3 origin, normal; // of the plane
        float reach = -1.0f;

        bool operator==(const Cause &other) const;
    };

    bool readPlaces(const QVector<KMBone *> &bones);
    KMBone *nearest(const KMBone &bone, const KMSymmetryPlane &plane) const;
    KMBone *sameAmong(const KMBone &image, const KMBone &bone) const;

    Cause m_cause;
    QVector<KMBone *> m_bones; // as given
    QVector<Place> m_places;   // of the live bones of their rigs
    QVector<KMBone *> m_partners;
};
