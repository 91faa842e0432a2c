#pragma once

#include <vector>

class KMMeshNode;

/// Finds the runs of lines in a mesh.
namespace KMWireTrace {

/// Lines one behind the other.
struct Run
{
    std::vector<int> vertices; ///< each once
    std::vector<int> lines;    ///< the face that has the line from vertex i to the one behind it
    bool isClosed = false;     ///< the last line leads back to the first vertex
};

/// The wire of a mesh: its line polygons, or the sides of all its faces where it has none. A run goes through vertices
/// at which two lines meet and is cut at all others. Runs come in the order of their first lines, and go the way in
/// which most of their lines do. Lines without length in the table of vertices, and repeated ones, don't count.
std::vector<Run> runs(const KMMeshNode &mesh);

} // namespace KMWireTrace
