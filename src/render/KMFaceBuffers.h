#pragma once

#include "render/KMMeshBuffers.h"
#include "render/KMVertexLayout.h"
#include "render/RenderGroup.h"

#include <QHash>

#include <memory>
#include <vector>

struct KMFace;

/// How marked faces look.
struct KMFaceStyle
{
    kvm::Vector4 selected;
    kvm::Vector4 hot;
    float blend = 0.0f;                     ///< strength of the two, 0 to 1
    const KMVertexColors *colors = nullptr; ///< replaces them; the fourth value is the strength

    bool operator==(const KMFaceStyle &other) const
    {
        return selected == other.selected && hot == other.hot && blend == other.blend && colors == other.colors;
    }
};

/// The triangles and quads of a mesh, a group for each shader. Each face keeps its place in the buffer, so that a
/// move writes over it. The places stand in the faces themselves.
class KMFaceBuffers : public KMMeshBuffers
{
public:
    using Groups = std::vector<std::unique_ptr<RenderGroup>>;

    /// Brings the groups up to date with the mesh, which has been refreshed. A group whose memory can't be reached
    /// keeps what it shows.
    void update(const KMMeshNode &mesh, const KMFaceStyle &style);
    const Groups &groups() const { return m_groups; } ///< in ascending order of the shaders

private:
    struct Mapped;

    void build(const KMMeshNode &mesh);
    int groupOf(int shader);
    void writeElements(const KMMeshNode &mesh, quint32 parts, const KMFaceStyle &style);
    void repaint(const KMMeshNode &mesh, const QVector<int> &vertices, const KMFaceStyle &style);
    KMFaceElement *elementsOf(const Mapped &mapped, const KMFace &face, int group) const;
    void writeIndices(const KMMeshNode &mesh);

    Groups m_groups;
    QHash<int, int> m_shaderToGroup;
    KMFaceStyle m_style;
    KMVertexColorFollower m_colors;
    bool m_allShown = false; // the indices name every element in order
};
