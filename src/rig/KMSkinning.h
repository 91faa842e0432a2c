#pragma once

#include "math/Matrix4.h"
#include "math/Quaternion.h"
#include "math/Vector3.h"

#include <QVector>

class KMTagBoneWeight;
class KMWeightRecords;
struct KMSdefVertex;

/// Where bones take the vertices of a mesh: linear blends of their skin matrices, and spherical ones where the weight
/// tag has them. A bone that is gone leaves its share of a linear blend at rest.
class KMSkinning
{
public:
    /// Reads the records of a tag, which are valid until it is edited, and the pose. Allocates only when the tag has
    /// more bones than before.
    void prepare(const KMTagBoneWeight &tag, const KMWeightRecords &records);

    kvm::Vector3 operator()(int vertex, const kvm::Vector3 &rest) const; ///< of a vertex of the tag's mesh

private:
    struct Pose
    {
        kvm::Quaternion solved; ///< of the world
        kvm::Quaternion key;    ///< local
    };

    kvm::Vector3 linear(int vertex, const kvm::Vector3 &rest) const;
    kvm::Vector3 spherical(const KMSdefVertex &record, const kvm::Vector3 &rest) const;

    const KMWeightRecords *m_records = nullptr; // of the tag
    QVector<kvm::Matrix4> m_matrices;           // by the number of the bone
    QVector<Pose> m_poses;
    const kvm::Matrix4 *m_matrixData = nullptr;
};
