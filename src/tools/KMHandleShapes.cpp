#include "tools/KMHandleShapes.h"

#include <QMap>
#include <QtMath>

#include <cmath>

using kvm::Vector3;
using Face = QVector<int>;

namespace {

constexpr float centreRadius = 5.0f;
constexpr float axisUnit = 25.0f; // the axes are three of these long
constexpr float axisLength = 3.0f * axisUnit;
constexpr int coneSides = 10;
constexpr float coneRadius = 5.0f;
constexpr float coneLength = 18.0f;
constexpr float boxPlace = 32.0f;
constexpr float boxHalf = 4.0f;
constexpr float gripDistance = 80.0f;
constexpr float gripRadius = 4.5f;
constexpr float ringRadius = 105.0f;
constexpr int ringSides = 32;

/// Shapes are convex: a face whose normal points to the middle is turned around.
void turnOutward(KMHandleShape &shape, const Vector3 &middle)
{
    for (Face &face : shape.faces) {
        const Vector3 &a = shape.points.at(face.at(0));
        const Vector3 &b = shape.points.at(face.at(1));
        const Vector3 &c = shape.points.at(face.at(2));
        if (dot(cross(b - c, a - b), (a + b + c) / 3.0f - middle) < 0.0f)
            std::swap(face[1], face[2]);
    }
}

Vector3 onCircle(int i, int sides, float radius)
{
    const double angle = 2.0 * M_PI * i / sides;
    return Vector3(float(std::cos(angle)), float(std::sin(angle)), 0.0f) * radius;
}

KMHandleShape icosahedron()
{
    const float g = (1.0f + std::sqrt(5.0f)) / 2.0f;
    KMHandleShape shape;
    for (const float one : {-1.0f, 1.0f}) {
        for (const float golden : {-g, g}) {
            shape.points.append(Vector3(0, one, golden));
            shape.points.append(Vector3(one, golden, 0));
            shape.points.append(Vector3(golden, 0, one));
        }
    }
    const auto areNeighbours = [&shape](int a, int b) {
        return (shape.points.at(a) - shape.points.at(b)).lengthSquared() < 4.1f; // edges are 2 long
    };
    for (int a = 0; a < 12; ++a) {
        for (int b = a + 1; b < 12; ++b) {
            for (int c = b + 1; c < 12; ++c) {
                if (areNeighbours(a, b) && areNeighbours(b, c) && areNeighbours(a, c))
                    shape.faces.append({a, b, c});
            }
        }
    }
    return shape;
}

/// Four triangles for each one.
KMHandleShape divided(const KMHandleShape &coarse)
{
    KMHandleShape fine;
    fine.points = coarse.points;
    QMap<QPair<int, int>, int> middles;
    const auto middle = [&](int a, int b) {
        int &index = middles[{qMin(a, b), qMax(a, b)}]; // 0 is a corner, and so none
        if (index == 0) {
            index = fine.points.size();
            fine.points.append((coarse.points.at(a) + coarse.points.at(b)) * 0.5f);
        }
        return index;
    };
    for (const Face &face : coarse.faces) {
        const int ab = middle(face[0], face[1]);
        const int bc = middle(face[1], face[2]);
        const int ca = middle(face[2], face[0]);
        fine.faces.append({{face[0], ab, ca}, {face[1], bc, ab}, {face[2], ca, bc}, {ab, bc, ca}});
    }
    return fine;
}

} // namespace

KMHandleShape KMHandleShape::turnedTo(int axis) const
{
    KMHandleShape turned = *this;
    for (Vector3 &p : turned.points) {
        for (int i = 0; i < axis; ++i)
            p = {p.z, p.x, p.y};
    }
    return turned;
}

KMHandleShape KMHandleShapes::centre()
{
    KMHandleShape shape;
    for (int axis = 0; axis < 3; ++axis) {
        Vector3 p;
        p[axis] = centreRadius;
        shape.points.append({p, -p});
    }
    for (int x : {0, 1}) {
        for (int y : {2, 3}) {
            for (int z : {4, 5})
                shape.faces.append(Face{x, y, z});
        }
    }
    turnOutward(shape, {});
    return shape;
}

KMHandleShape KMHandleShapes::axes()
{
    return {{{}, {axisLength, 0, 0}, {0, axisLength, 0}, {0, 0, axisLength}}, {{0, 1}, {0, 2}, {0, 3}}};
}

/// Cone and base have rims of their own, so that the edge between them is sharp.
KMHandleShape KMHandleShapes::arrow()
{
    KMHandleShape shape;
    const int tip = 2 * coneSides, middle = tip + 1;
    for (int rim = 0; rim < 2; ++rim) {
        for (int i = 0; i < coneSides; ++i) {
            const Vector3 p = onCircle(i, coneSides, coneRadius);
            shape.points.append(Vector3(axisLength, p.x, p.y));
        }
    }
    shape.points.append({Vector3(axisLength + coneLength, 0, 0), Vector3(axisLength, 0, 0)});
    for (int i = 0; i < coneSides; ++i) {
        const int next = (i + 1) % coneSides;
        shape.faces.append({Face{tip, i, next}, Face{middle, coneSides + i, coneSides + next}});
    }
    turnOutward(shape, {axisLength + 0.25f * coneLength, 0, 0});
    return shape;
}

KMHandleShape KMHandleShapes::box()
{
    KMHandleShape shape;
    const Vector3 middle(boxPlace, 0, 0);
    for (int i = 0; i < 8; ++i) {
        const Vector3 corner(i & 1 ? 1.0f : -1.0f, i & 2 ? 1.0f : -1.0f, i & 4 ? 1.0f : -1.0f);
        shape.points.append(middle + corner * boxHalf);
    }
    for (int axis = 0; axis < 3; ++axis) {
        const int one = 1 << (axis + 1) % 3, other = 1 << (axis + 2) % 3;
        for (const int side : {0, 1 << axis})
            shape.faces.append(
                {Face{side, side | one, side | one | other}, Face{side, side | one | other, side | other}});
    }
    turnOutward(shape, middle);
    return shape;
}

KMHandleShape KMHandleShapes::grip()
{
    KMHandleShape shape = divided(icosahedron());
    const float each = gripDistance / std::sqrt(2.0f);
    const Vector3 middle(0, each, each);
    for (Vector3 &p : shape.points)
        p = middle + p.normalized() * gripRadius;
    turnOutward(shape, middle);
    return shape;
}

KMHandleShape KMHandleShapes::ring()
{
    KMHandleShape shape;
    for (int i = 0; i < ringSides; ++i) {
        shape.points.append(onCircle(i, ringSides, ringRadius));
        shape.faces.append({i, (i + 1) % ringSides});
    }
    return shape;
}
