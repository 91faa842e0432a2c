#include "KMSampleFace.h"

#include "KMSampleHead.h"
#include "KMSampleLoft.h"
#include "KMSampleShaders.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr kvm::Vector2 irisCentre{4.4f, 173.2f};
constexpr kvm::Vector2 irisRadius{2.5f, 3.3f};
constexpr float irisDepth = 0.42f; // behind the skin, before the white

/// A place of a strip on the face: the middle of its line in the front view, half its height, half its thickness.
struct StripPoint
{
    float x, y, height, depth;
};

constexpr StripPoint lashPoints[] = {
    {1.75f, 173.0f, 0.12f, 0.1f}, {2.15f, 174.0f, 0.34f, 0.22f}, {3.0f, 175.35f, 0.46f, 0.26f},
    {4.45f, 176.0f, 0.5f, 0.28f}, {5.95f, 175.6f, 0.5f, 0.28f},  {7.1f, 174.45f, 0.46f, 0.26f},
    {7.65f, 173.35f, 0.3f, 0.2f}, {8.1f, 172.6f, 0.06f, 0.06f},
};
constexpr StripPoint lowerLashPoints[] = {
    {4.6f, 170.15f, 0.04f, 0.05f}, {5.4f, 170.2f, 0.09f, 0.08f}, {6.2f, 170.6f, 0.13f, 0.1f},
    {6.85f, 171.3f, 0.12f, 0.1f},  {7.2f, 172.0f, 0.04f, 0.05f},
};
constexpr StripPoint browPoints[] = {
    {2.0f, 178.0f, 0.2f, 0.1f},  {2.7f, 178.5f, 0.36f, 0.16f}, {4.1f, 179.0f, 0.38f, 0.18f},
    {5.7f, 179.0f, 0.3f, 0.16f}, {7.0f, 178.4f, 0.18f, 0.1f},  {7.7f, 177.9f, 0.05f, 0.05f},
};

/// A flat band with a square cross section that follows the face.
template <int Count>
void addStrip(KMSampleMesh &mesh, const StripPoint (&points)[Count], float outwards, int shader,
              KMSampleHead::Strip *strip)
{
    for (int i = 0; i < Count; ++i) {
        const StripPoint &p = points[i];
        const StripPoint &before = points[std::max(0, i - 1)], &after = points[std::min(Count - 1, i + 1)];
        const kvm::Vector3 way = kvm::Vector3(after.x - before.x, after.y - before.y, 0.0f).normalized();
        const kvm::Vector3 up{-way.y, way.x, 0.0f};
        const auto place = [&](float across, float out) {
            return KMSampleHead::onFace(p.x + up.x * across * p.height, p.y + up.y * across * p.height,
                                        outwards + out * p.depth);
        };
        const KMSampleRing ring = mesh.addVertices({place(1, -1), place(1, 1), place(-1, 1), place(-1, -1)});
        for (const int vertex : ring)
            mesh.setShares(vertex, {{"head", 1.0f}});
        if (i > 0)
            KMSampleLoft::connectClosed(mesh, strip->rings.last(), ring, {shader});
        strip->rings << ring;
    }
    KMSampleLoft::cap(mesh, strip->rings.first(), {shader});
    KMSampleLoft::cap(mesh, strip->rings.last(), {shader});
}

/// A lens of two times four quads. Its picture lies over it as it is seen from the front.
void addIris(KMSampleMesh &mesh, KMSampleHead &head)
{
    constexpr int corners = 8;
    const int firstFace = mesh.faces().size();
    head.firstIris = mesh.vertexCount();
    KMSampleRing rim;
    for (int i = 0; i < corners; ++i) {
        const float angle = 2.0f * float(M_PI) * float(i) / float(corners);
        // The places between the axes make up for what smoothing takes off a square.
        const float reach = i % 2 ? 1.07f : 0.93f;
        rim << mesh.addVertex(KMSampleHead::onFace(irisCentre.x + irisRadius.x * reach * std::cos(angle),
                                                   irisCentre.y + irisRadius.y * reach * std::sin(angle), -irisDepth));
    }
    for (const float lift : {0.06f, -0.12f}) {
        const int middle = mesh.addVertex(KMSampleHead::onFace(irisCentre.x, irisCentre.y, lift - irisDepth));
        for (int i = 0; i < corners; i += 2)
            mesh.addFace({middle, rim.at((i + corners - 1) % corners), rim.at(i), rim.at(i + 1)},
                         KMSampleShaders::Iris);
    }
    head.endIris = mesh.vertexCount();
    for (int i = head.firstIris; i < head.endIris; ++i)
        mesh.setShares(i, {{"eye_L", 1.0f}});
    constexpr float shown = 0.88f; // of the lens, after smoothing
    mesh.projectUvs(firstFace, {irisCentre.x - irisRadius.x * shown, irisCentre.y + irisRadius.y * shown},
                    {irisCentre.x + irisRadius.x * shown, irisCentre.y - irisRadius.y * shown});
}

} // namespace

void KMSampleFace::build(KMSampleMesh &mesh, KMSampleHead &head)
{
    addIris(mesh, head);
    addStrip(mesh, lashPoints, 0.12f, KMSampleShaders::Lash, &head.lash);
    addStrip(mesh, lowerLashPoints, 0.06f, KMSampleShaders::Lash, &head.lowerLash);
    addStrip(mesh, browPoints, 0.12f, KMSampleShaders::Brow, &head.brow);
}
