#pragma once

#include <QVector>

class KMBone;
class KMBoneContainer;
class KMMeshNode;
class KMTagBoneWeight;
class KMWeightRecords;
class PmxOutput;
struct KMSdefVertex;
struct PmxVertex;

/// Place of a bone in the file, which has the bones of one rig. -1 for null, a deleted bone and one of another rig.
int pmxBoneIndex(const KMBone *bone, const KMBoneContainer &root);

/// Writes the weights of vertices. It is quick where vertices of one mesh follow one another.
class PmxSkin
{
public:
    PmxSkin(PmxOutput &out, const KMBoneContainer &root, int boneWidth)
        : m_out(out)
        , m_root(root)
        , m_boneWidth(boneWidth)
    {
    }

    void write(const PmxVertex &vertex);

private:
    void enter(const KMMeshNode *mesh);
    void writeBone(int bone);
    void writeSpherical(const KMSdefVertex &record);
    void writeLinear(const int *bones, const float *weights, int count);

    PmxOutput &m_out;
    const KMBoneContainer &m_root;
    int m_boneWidth;
    const KMMeshNode *m_mesh = nullptr;
    const KMWeightRecords *m_records = nullptr; // null for a mesh without weights
    QVector<int> m_bones;                       // from the numbers of its tag to those of the file
};
