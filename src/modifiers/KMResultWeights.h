#pragma once

#include <QVector>

class KMCarriedTag;
class KMMeshNode;
class KMSymmetryPlane;

/// The weight tag of a modifier's result. It counts while the input has one that does, and is made when that is first
/// so.
class KMResultWeights
{
    Q_DISABLE_COPY(KMResultWeights)
public:
    explicit KMResultWeights(KMMeshNode &result)
        : m_result(result)
    {
    }

    bool begin(const KMMeshNode &input); ///< forgets all. Whether the input has something to carry over

    // After that; places below 0 are left out

    /// By a table for the vertices of the input, to its entries + offset.
    void carry(const QVector<int> &map, int offset = 0);
    void carryOne(int fromVertex, int vertex);
    void mirrorAcross(const KMSymmetryPlane &plane);
    void carryMirrored(int fromVertex, int vertex); ///< to an image across that plane
    void carryMixed(const int *fromVertices, const float *ratios, int count, int vertex);

    /// Whether images would get something else now than when they were carried. False where nothing is carried.
    bool isMirrorOther(const KMMeshNode &input, const KMSymmetryPlane &plane) const;

private:
    KMMeshNode &m_result;
    KMCarriedTag *m_tag = nullptr; // owned by the result
};
