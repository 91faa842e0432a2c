#pragma once

#include "math/Vector3.h"

#include <QVector>

/// The parts of the transform handle as points and faces, in its own units about its middle. Faces turn outward.
struct KMHandleShape
{
    QVector<kvm::Vector3> points;
    QVector<QVector<int>> faces; ///< lines have two corners

    KMHandleShape turnedTo(int axis) const; ///< from the x axis to another one; 0 to 2
};

namespace KMHandleShapes {

KMHandleShape centre(); ///< an octahedron
KMHandleShape axes();   ///< three lines
KMHandleShape arrow();  ///< a cone at the end of the x axis
KMHandleShape box();    ///< a cube on the x axis
KMHandleShape grip();   ///< a ball between the other two axes, for turns about the x axis
KMHandleShape ring();   ///< a circle in the plane of x and y, to be turned to the viewer

} // namespace KMHandleShapes
