#include "render/KMCameraBoxShape.h"

#include "math/Quaternion.h"

#include <QtMath>

#include <cmath>

namespace KMCameraBoxShape {

namespace {

using kvm::Vector3;

constexpr float outer = 0.75f;      // from the middle to a face
constexpr float inner = 0.52f;      // to the rim of a face
constexpr float ringInside = 1.25f; // radius
constexpr int bevelStart = 24;      // the same places as those of the faces, in a colour of their own
constexpr int ringStart = 48;
constexpr int ringSegments = 40;

/// One of the eight corners of a cube: a sign for each axis.
struct Corner
{
    int x, y, z;
    int sign(int axis) const { return axis == 0 ? x : axis == 1 ? y : z; }
};

/// Each corner has three vertices, one on each of its faces.
int vertexAt(int axis, const Corner &corner)
{
    return 8 * axis + (corner.x > 0) + 2 * (corner.y > 0) + 4 * (corner.z > 0);
}

Vector3 facePosition(int axis, const Corner &corner)
{
    Vector3 position;
    for (int i = 0; i < 3; ++i)
        position[i] = float(corner.sign(i)) * (i == axis ? outer : inner);
    return position;
}

Vector3 ringPosition(int number)
{
    const double angle = 2.0 * M_PI * (number / 2) / ringSegments;
    const double radius = double(number % 2 ? OuterRadius : ringInside);
    return {float(radius * std::sin(angle)), 0.0f, float(-radius * std::cos(angle))};
}

Points buildPositions()
{
    Points points;
    for (int axis = 0; axis < 3; ++axis) {
        for (int i = 0; i < 8; ++i) {
            const Corner corner{i & 1 ? 1 : -1, i & 2 ? 1 : -1, i & 4 ? 1 : -1};
            const int number = vertexAt(axis, corner);
            points[size_t(number)] = facePosition(axis, corner);
            points[size_t(bevelStart + number)] = facePosition(axis, corner);
        }
    }
    for (int i = 0; i < 2 * ringSegments; ++i)
        points[size_t(ringStart + i)] = ringPosition(i);
    return points;
}

std::array<Vector3, VertexCount> buildColors()
{
    constexpr Vector3 axisColors[] = {{0.86f, 0.42f, 0.40f}, {0.48f, 0.76f, 0.42f}, {0.40f, 0.56f, 0.88f}};
    constexpr Vector3 bevel{0.82f, 0.82f, 0.84f};
    constexpr Vector3 ring{0.70f, 0.72f, 0.76f};
    constexpr int quarter = ringSegments / 4;
    std::array<Vector3, VertexCount> result;
    for (int i = 0; i < bevelStart; ++i) {
        result[size_t(i)] = axisColors[i / 8];
        result[size_t(bevelStart + i)] = bevel;
    }
    for (int i = 0; i < 2 * ringSegments; ++i) {
        const int segment = i / 2;
        const bool isAxis = segment % quarter == 0;
        result[size_t(ringStart + i)] = !isAxis ? ring : axisColors[segment % (2 * quarter) == 0 ? 2 : 0];
    }
    return result;
}

/// Collects triangles and turns each so that it is counter-clockwise from outside. The view is left-handed, so the
/// cross product of such a triangle points into the cube.
class TriangleList
{
public:
    void add(int a, int b, int c)
    {
        const Points &p = positions();
        const Vector3 &pa = p[size_t(a)], &pb = p[size_t(b)], &pc = p[size_t(c)];
        const bool isOutward = dot(cross(pb - pa, pc - pa), pa + pb + pc) < 0.0f;
        m_list[size_t(m_count++)] = isOutward ? Triangle{a, b, c} : Triangle{a, c, b};
    }
    void addQuad(int a, int b, int c, int d)
    {
        add(a, b, c);
        add(a, c, d);
    }
    void addAsIs(int a, int b, int c) { m_list[size_t(m_count++)] = {a, b, c}; }
    const std::array<Triangle, TriangleCount> &list() const { return m_list; }

private:
    std::array<Triangle, TriangleCount> m_list;
    int m_count = 0;
};

void addFace(TriangleList &list, int axis, int sign)
{
    const auto vertex = [&](int u, int v) {
        Corner corner{u, v, v};
        if (axis == 0)
            corner = {sign, u, v};
        else if (axis == 1)
            corner = {u, sign, v};
        else
            corner = {u, v, sign};
        return vertexAt(axis, corner);
    };
    list.addQuad(vertex(-1, -1), vertex(1, -1), vertex(1, 1), vertex(-1, 1));
}

/// Between the faces of two axes; the edge runs along the third, whose sign in the corner is 0.
void addEdge(TriangleList &list, const Corner &between)
{
    const int along = between.x == 0 ? 0 : between.y == 0 ? 1 : 2;
    const int a = (along + 1) % 3, b = (along + 2) % 3;
    const auto end = [&](int sign) {
        return Corner{between.x ? between.x : sign, between.y ? between.y : sign, between.z ? between.z : sign};
    };
    const auto vertex = [&](int axis, int sign) { return bevelStart + vertexAt(axis, end(sign)); };
    list.addQuad(vertex(a, -1), vertex(a, 1), vertex(b, 1), vertex(b, -1));
}

std::array<Triangle, TriangleCount> buildTriangles()
{
    TriangleList list;
    constexpr int faces[][2] = {{2, 1}, {2, -1}, {0, -1}, {0, 1}, {1, -1}, {1, 1}};
    for (const int *face : faces)
        addFace(list, face[0], face[1]);
    constexpr Corner edges[] = {
        {-1, 0, -1}, {1, 0, -1}, {1, 0, 1},  {-1, 0, 1}, // upright
        {0, -1, -1}, {0, 1, -1}, {0, 1, 1},  {0, -1, 1}, // bottom front, top front, top back, bottom back
        {-1, -1, 0}, {-1, 1, 0}, {1, -1, 0}, {1, 1, 0},  // bottom left, top left, bottom right, top right
    };
    for (const Corner &edge : edges)
        addEdge(list, edge);
    for (int i = 0; i < 8; ++i)
        list.add(bevelStart + i, bevelStart + 8 + i, bevelStart + 16 + i);
    for (int i = 0; i < ringSegments; ++i) {
        const int in = ringStart + 2 * i, nextIn = ringStart + 2 * ((i + 1) % ringSegments);
        list.addAsIs(in, in + 1, nextIn + 1);
        list.addAsIs(in, nextIn + 1, nextIn);
    }
    return list.list();
}

/// Twice the area in the window; above zero when it runs counter-clockwise.
float area(const Vector3 &a, const Vector3 &b, const Vector3 &c)
{
    return (b.x - a.x) * (c.y - a.y) - (b.y - a.y) * (c.x - a.x);
}

struct CodeRow
{
    int firstTriangle; // of two
    int code;
};

constexpr CodeRow codeRows[] = {
    {0, Back},        {2, Front},        {4, Left},         {6, Right},     {8, Bottom},
    {10, Top},        {20, BottomFront}, {22, TopFront},    {24, TopBack},  {26, BottomBack},
    {28, BottomLeft}, {30, TopLeft},     {32, BottomRight}, {34, TopRight},
};

struct DirectionRow
{
    int code;
    float pitch, yaw;
};

constexpr DirectionRow directionRows[] = {
    {Front, 0, 0},        {Back, 0, 180},        {Right, 0, 90},        {Left, 0, -90},        {Top, -90, 0},
    {Bottom, 90, 0},      {TopFront, -45, 0},    {TopBack, -45, 180},   {TopRight, -45, 90},   {TopLeft, -45, -90},
    {BottomFront, 45, 0}, {BottomBack, 45, 180}, {BottomRight, 45, 90}, {BottomLeft, 45, -90},
};

Vector3 turnedBy(const kvm::Quaternion &pitch, const kvm::Quaternion &yaw, const Vector3 &v)
{
    return pitch.rotate(yaw.rotate(v));
}

kvm::Quaternion about(const Vector3 &axis, float degrees)
{
    return kvm::Quaternion::fromAxisAngle(axis, qDegreesToRadians(degrees));
}

} // namespace

const Points &positions()
{
    static const Points points = buildPositions();
    return points;
}

const std::array<Vector3, VertexCount> &colors()
{
    static const std::array<Vector3, VertexCount> table = buildColors();
    return table;
}

const std::array<Triangle, TriangleCount> &triangles()
{
    static const std::array<Triangle, TriangleCount> table = buildTriangles();
    return table;
}

int codeOf(int triangle)
{
    if (triangle < 0 || triangle >= TriangleCount)
        return NoHit;
    if (triangle >= FirstRingTriangle)
        return Ring;
    for (const CodeRow &row : codeRows) {
        if (triangle / 2 == row.firstTriangle / 2)
            return row.code;
    }
    return OtherPart;
}

Element elementOf(int triangle)
{
    constexpr int firstCorner = 36;
    if (triangle < 0 || triangle >= TriangleCount)
        return {};
    if (triangle >= FirstRingTriangle)
        return {FirstRingTriangle, TriangleCount - FirstRingTriangle};
    return triangle < firstCorner ? Element{triangle / 2 * 2, 2} : Element{triangle, 1};
}

Points turned(float pitch, float yaw)
{
    constexpr float flat = -90.0f; // the ring as from above
    const kvm::Quaternion turn = about({0, 1, 0}, yaw);
    const kvm::Quaternion tilt = about({1, 0, 0}, pitch);
    const kvm::Quaternion ringTilt = about({1, 0, 0}, flat);
    Points points;
    for (int i = 0; i < VertexCount; ++i)
        points[size_t(i)] = turnedBy(i < ringStart ? tilt : ringTilt, turn, positions()[size_t(i)]);
    return points;
}

bool facesViewer(const Points &points, int triangle)
{
    const Triangle &t = triangles()[size_t(triangle)];
    return area(points[size_t(t[0])], points[size_t(t[1])], points[size_t(t[2])]) > 0.0f;
}

int triangleAt(const Points &points, const kvm::Vector2 &place)
{
    const Vector3 at(place.x, place.y, 0.0f);
    for (int i = 0; i < TriangleCount; ++i) {
        const Triangle &t = triangles()[size_t(i)];
        const Vector3 &a = points[size_t(t[0])], &b = points[size_t(t[1])], &c = points[size_t(t[2])];
        if (facesViewer(points, i) && area(a, b, at) >= 0.0f && area(b, c, at) >= 0.0f && area(c, a, at) >= 0.0f)
            return i;
    }
    return -1;
}

bool direction(int code, float &pitch, float &yaw)
{
    for (const DirectionRow &row : directionRows) {
        if (row.code == code) {
            pitch = row.pitch;
            yaw = row.yaw;
            return true;
        }
    }
    return false;
}

} // namespace KMCameraBoxShape
