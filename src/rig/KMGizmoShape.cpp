#include "rig/KMGizmoShape.h"

#include "mesh/KMMeshNode.h"

#include <array>
#include <cmath>
#include <utility>

namespace KMGizmoShape {

namespace {

constexpr int ringPoints = 24;
constexpr double pi = 3.14159265358979323846;

/// The points of a ring of radius 1, from its first axis on.
const std::array<std::pair<float, float>, ringPoints> &turns()
{
    static const auto points = [] {
        std::array<std::pair<float, float>, ringPoints> made;
        for (int i = 0; i < ringPoints; ++i) {
            const double angle = 2.0 * pi * i / ringPoints;
            made[size_t(i)] = {float(std::cos(angle)), float(std::sin(angle))};
        }
        return made;
    }();
    return points;
}

/// An arc about the origin in the plane of two axes, from the first one on.
void addArc(Wire &wire, const kvm::Vector3 &first, const kvm::Vector3 &second, const kvm::Vector3 &centre, int steps)
{
    const int start = wire.points.size();
    const bool isClosed = steps == ringPoints;
    for (int i = 0; i < steps + (isClosed ? 0 : 1); ++i) {
        const auto &turn = turns()[size_t(i)];
        wire.points << centre + first * turn.first + second * turn.second;
    }
    for (int i = 0; i < steps; ++i)
        wire.lines.append({start + i, isClosed && i == steps - 1 ? start : start + i + 1});
}

void addLine(Wire &wire, const kvm::Vector3 &from, const kvm::Vector3 &to)
{
    wire.lines.append({wire.points.size(), wire.points.size() + 1});
    wire.points << from << to;
}

} // namespace

Wire sphere(float diameter)
{
    const float radius = diameter / 2.0f;
    const kvm::Vector3 x{radius, 0.0f, 0.0f};
    const kvm::Vector3 y{0.0f, radius, 0.0f};
    const kvm::Vector3 z{0.0f, 0.0f, radius};
    Wire wire;
    addArc(wire, x, y, {}, ringPoints);
    addArc(wire, y, z, {}, ringPoints);
    addArc(wire, z, x, {}, ringPoints);
    return wire;
}

Wire box(const kvm::Vector3 &size)
{
    Wire wire;
    for (int corner = 0; corner < 8; ++corner) {
        wire.points << kvm::Vector3(corner & 1 ? size.x : -size.x, corner & 2 ? size.y : -size.y,
                                    corner & 4 ? size.z : -size.z)
                           / 2.0f;
        for (const int axis : {1, 2, 4}) {
            if (!(corner & axis))
                wire.lines.append({corner, corner | axis});
        }
    }
    return wire;
}

Wire capsule(float diameter, float straight)
{
    const float radius = diameter / 2.0f;
    const kvm::Vector3 x{radius, 0.0f, 0.0f};
    const kvm::Vector3 y{0.0f, radius, 0.0f};
    const kvm::Vector3 z{0.0f, 0.0f, radius};
    Wire wire;
    for (const float side : {1.0f, -1.0f}) {
        const kvm::Vector3 centre{0.0f, 0.0f, side * straight / 2.0f};
        addArc(wire, x, y, centre, ringPoints);
        addArc(wire, x, z * side, centre, ringPoints / 2);
        addArc(wire, y, z * side, centre, ringPoints / 2);
    }
    for (const kvm::Vector3 &rim : {x, y, -x, -y})
        addLine(wire, rim + kvm::Vector3(0.0f, 0.0f, straight / 2.0f), rim - kvm::Vector3(0.0f, 0.0f, straight / 2.0f));
    return wire;
}

Wire axesCube(float size)
{
    Wire wire = box({size, size, size});
    addLine(wire, {}, {2.0f * size, 0.0f, 0.0f});
    addLine(wire, {}, {0.0f, 2.0f * size, 0.0f});
    addLine(wire, {}, {0.0f, 0.0f, 2.0f * size});
    return wire;
}

void show(KMMeshNode &mesh, const Wire &wire, const kvm::Matrix4 &place)
{
    if (mesh.vertexCount() == wire.points.size() && mesh.faceCount() == wire.lines.size()) {
        for (int i = 0; i < wire.points.size(); ++i)
            mesh.setPosition(i, place * wire.points[i]);
        mesh.markMoved();
        return;
    }
    mesh.clearGeometry();
    for (const kvm::Vector3 &point : wire.points)
        mesh.addVertexRaw(place * point);
    for (const QPair<int, int> &line : wire.lines) {
        const int corners[] = {line.first, line.second};
        mesh.addFaceRaw(2, corners);
    }
    mesh.markDirty(KMMeshDirty::All);
}

} // namespace KMGizmoShape
