#pragma once

#include "math/Matrix4.h"
#include "math/Vector2.h"

#include <array>

/// The form of the camera box: a cube with cut edges and corners, and a ring about it. Its faces carry the directions
/// of the world; lengths are in units of the box. The cube turns with the camera, the ring lies flat to the viewer and
/// turns with the yaw alone, as a compass does.
namespace KMCameraBoxShape {

constexpr int VertexCount = 128;
constexpr int TriangleCount = 124;
constexpr int FirstRingTriangle = 44;
constexpr float OuterRadius = 1.6f; ///< of the ring

/// What a hit on the box means. The edges of top and bottom stand for the views half way between two faces.
enum Code {
    NoHit = 0,
    Front = 1,
    Back,
    Right,
    Left,
    Top,
    Bottom,
    TopFront,
    TopBack,
    TopRight,
    TopLeft,
    BottomFront,
    BottomBack,
    BottomRight,
    BottomLeft,
    OtherPart = 128, ///< an upright edge or a corner
    Ring = 512,
    Centre = 1024 ///< a middle click anywhere on the box
};

using Triangle = std::array<int, 3>;
using Points = std::array<kvm::Vector3, VertexCount>;

const Points &positions();                              ///< at no rotation; x right, y up, z away from the viewer
const std::array<kvm::Vector3, VertexCount> &colors();  ///< red, green and blue
const std::array<Triangle, TriangleCount> &triangles(); ///< counter-clockwise for who sees their outer side

int codeOf(int triangle); ///< NoHit outside the box
/// The triangles that light up together: the first, and how many.
struct Element
{
    int first = -1;
    int count = 0;

    bool operator==(const Element &other) const { return first == other.first && count == other.count; }
};
Element elementOf(int triangle);

Points turned(float pitch, float yaw); ///< as seen by a camera of these angles, degrees

/// Whether a triangle shows its outer side; one on its edge doesn't.
bool facesViewer(const Points &points, int triangle);
/// The first triangle that faces the viewer and has the place inside; -1 when none has. x right, y up.
int triangleAt(const Points &points, const kvm::Vector2 &place);

/// The angles of the camera, degrees, that a click on a part asks for. False for parts that stand for no direction.
bool direction(int code, float &pitch, float &yaw);

} // namespace KMCameraBoxShape
