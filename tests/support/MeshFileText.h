#pragma once

#include <QString>

class KMMeshNode;

/// What a native file keeps of a mesh, as text bit for bit: gaps are closed as the file closes them, by a count of
/// its own. Selection, hidden elements and normals are not part of it.
QString meshFileText(const KMMeshNode &mesh);
