#pragma once

#include "math/Vector4.h"

#include <QtGlobal>

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

/// Colours that a tool gives to the vertices of a mesh, in place of those by flags. It is asked in each frame.
class KMVertexColors
{
public:
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
};
