#pragma once

#include "math/Vector4.h"

#include <QtGlobal>

class KMMeshNode;

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
    void setFresh(quint32 parts) { m_stale &= ~parts; }

private:
    quint32 m_stale = Everything;
};

/// Colours that a tool gives to the vertices of a mesh, in place of those by flags. It is asked in each frame.
class KMVertexColors
{
public:
    virtual ~KMVertexColors() = default;
    virtual kvm::Vector4 vertexColor(const KMMeshNode &mesh, int vertex) const = 0;
};
