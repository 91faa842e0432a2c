#pragma once

#include "math/Matrix4.h"

#include <QList>

class KMMeshNode;

/// The selected elements of the chosen meshes as one thing with a place and a size, as a panel of numbers shows and
/// edits them. Everything is in world space; the place is the mean of the vertices, where the handle stands as well.
class KMSelectionCoordinates
{
public:
    KMSelectionCoordinates(); ///< reads the selection as it is now

    bool isEmpty() const { return m_count == 0; }
    int vertexCount() const { return m_count; }
    const kvm::Vector3 &centre() const { return m_centre; }
    const kvm::Vector3 &size() const { return m_size; } ///< of the box around it

    // Each is one step of the history; false where nothing would change

    bool setCentre(int axis, float place);
    bool setSize(int axis, float size); ///< by scaling about the centre; not along an axis of no extent
    bool turn(int axis, float degrees); ///< about the centre

private:
    QList<KMMeshNode *> m_meshes; // with something selected
    int m_count = 0;
    kvm::Vector3 m_centre;
    kvm::Vector3 m_size;
};
