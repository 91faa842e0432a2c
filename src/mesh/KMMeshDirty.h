#pragma once

#include <QtGlobal>

/// What the next refresh of a mesh has to compute, and which buffers the renderer has to write.
namespace KMMeshDirty {

enum Mask : quint32 {
    Positions = 0x1,     ///< normals
    Edges = 0x2,         ///< edges from the faces
    Buffers = 0x8,       ///< all of the renderer's buffers
    Topology = 0x10,     ///< the modifier chain from the start
    Weights = 0x20,      ///< crease weights
    Shaders = 0x40,      ///< shader indices, for the chain
    FaceFlags = 0x80,    ///< selection or hidden flag of a face
    Colors = 0x100,      ///< a flag changed that the view shows by a colour
    ResultMoved = 0x200, ///< the result of a modifier was moved by hand
    VertexFlags = 0x400,
    SourceMoved = 0x800,             ///< positions of a chain's source, same topology
    Moved = Positions | SourceMoved, ///< what a move of vertices raises
    All = 0x7fff,
    /// What leaves the lists of live records and used shaders as they are.
    KeepRecords = Moved | Weights | FaceFlags | Colors | ResultMoved | VertexFlags
};

enum RenderMask : quint32 {
    RenderVertices = 1,
    RenderIndices = 2,
    RenderEdges = 4,
    RenderColors = 8,
    RenderAll = RenderVertices | RenderIndices | RenderEdges
};

constexpr quint32 ModifierBuilt = 0x8000; ///< of the notification flags: the chain was linked anew

} // namespace KMMeshDirty
