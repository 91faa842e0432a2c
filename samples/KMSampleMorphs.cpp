#include "KMSampleMorphs.h"

#include "KMSampleHead.h"
#include "rig/KMMorph.h"

#include <QMap>

#include <algorithm>

namespace {

using Moves = QMap<int, kvm::Vector3>;
enum Side { Left = 1, Right = 2, Both = 3 };

/// The line on which the lids meet: a parabola in the front view.
struct LidLine
{
    float middle; ///< its height below the middle of the eye
    float bend;   ///< above 0: the ends are higher

    float at(float x) const
    {
        const float dx = std::clamp(x, 2.0f, 7.3f) - 4.5f;
        return middle + bend * dx * dx;
    }
};

constexpr LidLine shut{170.85f, 0.13f};
constexpr LidLine laughing{172.9f, -0.17f};

/// How a vowel or a smile draws the lips: the middle of both, and the corner.
struct MouthRow
{
    const char *name;
    float upper, lower;
    float cornerX, cornerY;
    float forwards;
    float chin;
};

constexpr MouthRow mouthRows[] = {
    {"あ", 0.35f, -1.75f, 0.0f, -0.55f, 0.0f, -0.55f}, {"い", 0.12f, -0.55f, 0.6f, 0.05f, 0.0f, -0.1f},
    {"う", 0.25f, -0.4f, -0.8f, -0.05f, 0.45f, -0.1f}, {"え", 0.25f, -0.95f, 0.3f, -0.15f, 0.0f, -0.3f},
    {"お", 0.4f, -1.25f, -0.6f, -0.3f, 0.3f, -0.4f},   {"にこり", -0.12f, -0.2f, 0.55f, 0.5f, 0.0f, 0.0f},
};

struct BrowRow
{
    const char *name;
    float inner, outer; ///< how far the ends rise
};

constexpr BrowRow browRows[] = {{"上", 0.9f, 0.8f}, {"怒り", -0.95f, 0.35f}, {"困る", 0.75f, -0.55f}};

class Maker
{
public:
    Maker(const KMSampleMesh &mesh, const KMSampleHead &head)
        : m_mesh(mesh)
        , m_head(head)
    {
    }

    Moves lids(const LidLine &line) const;
    Moves mouth(const MouthRow &row) const;
    Moves brow(const BrowRow &row) const;
    KMSampleMorphs::Morph morph(const char *name, int panel, const Moves &moves, int sides = Both) const;

private:
    /// To another place of the front view, and along with the surface of the face.
    kvm::Vector3 along(int vertex, float dx, float dy, float outwards = 0.0f) const
    {
        const kvm::Vector3 &p = m_mesh.position(vertex);
        const float depth = KMSampleHead::onFace(p.x + dx, p.y + dy).z - KMSampleHead::onFace(p.x, p.y).z;
        return {dx, dy, depth - outwards};
    }

    const KMSampleMesh &m_mesh;
    const KMSampleHead &m_head;
};

/// Both lids come to the line; lashes and the skin around go along.
Moves Maker::lids(const LidLine &line) const
{
    constexpr float overlap = 0.07f;
    constexpr float lidThickness = 0.2f;
    Moves moves;
    const auto close = [&](const KMSampleRing &lid, const KMSampleRing &inner, float side) {
        for (int i = 0; i < lid.size(); ++i) {
            const kvm::Vector3 &p = m_mesh.position(lid.at(i));
            const bool isCorner = i == 0 || i == lid.size() - 1;
            const kvm::Vector3 move = along(lid.at(i), 0.0f, line.at(p.x) + (isCorner ? 0.0f : side * overlap) - p.y,
                                            isCorner ? 0.0f : lidThickness);
            moves.insert(lid.at(i), move);
            moves.insert(inner.at(i), move);
        }
    };
    close(m_head.lids.upper, m_head.innerLids.upper, 1.0f);
    close(m_head.lids.lower, m_head.innerLids.lower, -1.0f);
    for (int i = 0; i < m_head.lidSkin.size(); ++i)
        moves.insert(m_head.lidSkin.at(i),
                     along(m_head.lidSkin.at(i), 0.0f, 0.12f * moves.value(m_head.lids.upper.at(i + 1)).y));
    for (int i = 0; i < m_head.lash.rings.size(); ++i) {
        const int lid = m_head.lids.upper.at(std::min(i, m_head.lids.upper.size() - 1));
        for (const int vertex : m_head.lash.rings.at(i))
            moves.insert(vertex,
                         along(vertex, 0.0f, moves.value(lid).y - (i > 0 && i < 6 ? 0.3f : 0.0f), lidThickness));
    }
    const int lowerCount = m_head.lowerLash.rings.size();
    for (int i = 0; i < lowerCount; ++i) {
        const int lid = m_head.lids.lower.at(m_head.lids.lower.size() - lowerCount + i);
        for (const int vertex : m_head.lowerLash.rings.at(i))
            moves.insert(vertex, along(vertex, 0.0f, moves.value(lid).y));
    }
    return moves;
}

Moves Maker::mouth(const MouthRow &row) const
{
    Moves moves;
    const auto draw = [&](const KMSampleRing &lip, const KMSampleRing &inner, float middle) {
        for (int i = 0; i < lip.size(); ++i) {
            const float share = float(i) / float(lip.size() - 1);
            const float corner = share * share * share;
            const kvm::Vector3 move =
                along(lip.at(i), row.cornerX * share, middle + (row.cornerY - middle) * corner, row.forwards);
            moves.insert(lip.at(i), move);
            moves.insert(inner.at(i), move);
        }
    };
    draw(m_head.lips.upper, m_head.innerLips.upper, row.upper);
    draw(m_head.lips.lower, m_head.innerLips.lower, row.lower);
    for (const int vertex : m_head.mouthFloor)
        moves.insert(vertex, {0.0f, row.chin + 0.4f * row.lower, 0.0f});
    for (const int vertex : m_head.underLip)
        moves.insert(vertex, {0.0f, row.chin, 0.0f});
    return moves;
}

Moves Maker::brow(const BrowRow &row) const
{
    Moves moves;
    const int last = m_head.brow.rings.size() - 1;
    for (int i = 0; i <= last; ++i) {
        const float rise = row.inner + (row.outer - row.inner) * float(i) / float(last);
        for (const int vertex : m_head.brow.rings.at(i))
            moves.insert(vertex, along(vertex, 0.0f, rise));
    }
    return moves;
}

KMSampleMorphs::Morph Maker::morph(const char *name, int panel, const Moves &moves, int sides) const
{
    KMSampleMorphs::Morph morph{QString::fromUtf8(name), panel, {}};
    for (auto it = moves.begin(); it != moves.end(); ++it) {
        const int image = m_mesh.vertices().at(it.key()).mirrored;
        if (image == it.key())
            morph.moves.append({it.key(), {0.0f, it.value().y, it.value().z}});
        else if (sides & Left)
            morph.moves.append({it.key(), it.value()});
        if (image != it.key() && sides & Right)
            morph.moves.append({image, {-it.value().x, it.value().y, it.value().z}});
    }
    std::sort(morph.moves.begin(), morph.moves.end(), [](const auto &a, const auto &b) { return a.first < b.first; });
    return morph;
}

} // namespace

QVector<KMSampleMorphs::Morph> KMSampleMorphs::morphs(const KMSampleMesh &mesh, const KMSampleHead &head)
{
    const Maker maker(mesh, head);
    QVector<Morph> morphs;
    for (const BrowRow &row : browRows)
        morphs << maker.morph(row.name, KMMorph::LeftBottom, maker.brow(row));
    morphs << maker.morph("まばたき", KMMorph::LeftTop, maker.lids(shut));
    morphs << maker.morph("笑い", KMMorph::LeftTop, maker.lids(laughing));
    morphs << maker.morph("ウィンク", KMMorph::LeftTop, maker.lids(shut), Left);
    morphs << maker.morph("ウィンク右", KMMorph::LeftTop, maker.lids(shut), Right);
    for (const MouthRow &row : mouthRows)
        morphs << maker.morph(row.name, KMMorph::RightTop, maker.mouth(row));
    return morphs;
}
