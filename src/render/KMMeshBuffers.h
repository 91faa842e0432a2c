#pragma once

#include "math/Vector4.h"

#include <QVector>

#include <optional>
#include <utility>

class KMMeshNode;
struct KMEdge;

/// What the buffers of one kind of element have in common: they are filled when they are first drawn, and afterwards
/// only what became stale is written again.
class KMMeshBuffers
{
public:
    enum Part : quint32 {
        Positions = 1,  ///< of vertices, with normals and texture coordinates
        Colors = 2,     ///< of flags: selected, under the cursor
        Visibility = 4, ///< which elements are drawn
        Contents = Positions | Colors | Visibility,
        Everything = 0xff ///< other elements than before: the buffers are made anew
    };

    void markStale(quint32 parts) { m_stale |= parts; }
    quint32 stale() const { return m_stale; }

protected:
    ~KMMeshBuffers() = default;

    bool needsBuild() const { return (m_stale & ~quint32(Contents)) != 0; }
    void noteRefusal() { m_isRefused = true; } ///< the driver gave no memory for what had to be written
    /// At the end of an update: nothing is stale any more, unless memory was refused. Then the next frame tries again.
    void finishUpdate()
    {
        if (!std::exchange(m_isRefused, false))
            m_stale = 0;
    }

private:
    quint32 m_stale = Everything;
    bool m_isRefused = false;
};

/// Colours that a tool gives to the vertices of a mesh, in place of those by flags.
class KMVertexColors
{
public:
    static constexpr qint64 Unknown = -1;

    virtual ~KMVertexColors() = default;
    virtual kvm::Vector4 vertexColor(const KMMeshNode &mesh, int vertex) const = 0;
    /// Of a vertex that is drawn as a point, which has another one by its flags.
    virtual kvm::Vector4 pointColor(const KMMeshNode &mesh, int vertex, const kvm::Vector4 &byFlags) const
    {
        Q_UNUSED(byFlags)
        return vertexColor(mesh, vertex);
    }
    /// Of a whole edge, likewise; nothing where it runs from the colour of one of its vertices to that of the other.
    virtual std::optional<kvm::Vector4> edgeColor(const KMMeshNode &, const KMEdge &,
                                                  const kvm::Vector4 & /*byFlags*/) const
    {
        return {};
    }
    /// Another number says that colours of the mesh are others. With Unknown all are asked for in each frame.
    virtual qint64 revision(const KMMeshNode &) const { return Unknown; }
    /// Appends the vertices with other colours since a revision; false when any may have others.
    virtual bool changedSince(const KMMeshNode &, qint64, QVector<int> &) const { return false; }
};

/// What a class of buffers has to write of the colours that a tool gives.
class KMVertexColorFollower
{
public:
    enum class Change { None, Some, All };
    /// Some: those of the vertices that are appended. Afterwards they count as followed.
    Change follow(const KMMeshNode &mesh, const KMVertexColors *colors, QVector<int> &vertices)
    {
        const qint64 revision = colors ? colors->revision(mesh) : KMVertexColors::Unknown;
        const qint64 former = std::exchange(m_revision, revision);
        if (!colors || (revision == former && revision != KMVertexColors::Unknown))
            return Change::None;
        const bool canFollow = revision != KMVertexColors::Unknown && former != KMVertexColors::Unknown;
        return canFollow && colors->changedSince(mesh, former, vertices) ? Change::Some : Change::All;
    }

private:
    qint64 m_revision = KMVertexColors::Unknown;
};
