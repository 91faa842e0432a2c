#pragma once

#include "math/Vector3.h"

#include <QVector>

#include <functional>

class KMMeshNode;
class KMTagNormal;

/// The normal tag of a modifier's result, which counts while the input has one that does. It carries the creases and
/// the overridden normals of the input to the elements that came of it.
class KMResultNormals
{
    Q_DISABLE_COPY(KMResultNormals)
public:
    using VertexMap = std::function<int(int)>; ///< from a vertex of the input to one of the result, or -1

    explicit KMResultNormals(KMMeshNode &result);

    bool begin(const KMMeshNode &input); ///< forgets all. Whether the input has something to carry over
    void carry(const KMMeshNode &input, const VertexMap &vertices, const QVector<int> &faceMap);
    /// To faces that were turned around, mirrored across a plane with this normal.
    void carryMirrored(const KMMeshNode &input, const VertexMap &vertices, const QVector<int> &faceMap,
                       const kvm::Vector3 &plane);

    /// For a copy of a result that becomes a mesh of its own, with a frame: its overrides, and the normals that the
    /// result was given, count from that frame. A tag that says nothing goes.
    static void settle(const KMMeshNode &result, KMMeshNode &copy);

private:
    void carryCreases(const KMTagNormal &from, const VertexMap &vertices);

    KMMeshNode &m_result;
    KMTagNormal *m_tag; // owned by the result
};
