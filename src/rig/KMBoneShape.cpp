#include "rig/KMBoneShape.h"

#include "mesh/KMMeshNode.h"

namespace KMBoneShape {

namespace {

using Vertices = QVector<kvm::Vector3>;

struct Corners
{
    int count;
    int indices[3];
};

constexpr float ringRadius = 7.0f;
constexpr float crossRadius = 10.5f;

constexpr Corners bodyFaces[] = {{3, {4, 0, 2}}, {3, {2, 0, 3}}, {3, {3, 0, 4}}, {3, {2, 1, 4}},
                                 {3, {3, 1, 2}}, {3, {4, 1, 3}}, {3, {2, 5, 0}}, {3, {2, 0, 5}}};
constexpr Corners axisLine[] = {{2, {0, 1}}};
constexpr Corners ringLines[] = {{2, {0, 1}}, {2, {0, 5}}, {2, {1, 2}}, {2, {2, 3}}, {2, {3, 4}}, {2, {4, 5}}};
constexpr Corners crossLines[] = {{2, {0, 2}}, {2, {1, 3}}};

template <size_t Count>
void build(KMMeshNode &mesh, const Vertices &vertices, const Corners (&faces)[Count], float size = 1.0f)
{
    mesh.clearGeometry();
    for (const kvm::Vector3 &vertex : vertices)
        mesh.addVertexRaw(vertex * size);
    for (const Corners &corners : faces) {
        const int f = mesh.addFaceRaw(corners.count, corners.indices);
        mesh.setFaceShader(f, ShaderIndex);
    }
    mesh.markDirty(KMMeshDirty::All);
}

} // namespace

const Vertices &bodyVertices(int viewType)
{
    static const Vertices solid = {{0.0f, 0.0f, 0.0f},           {0.0f, 0.0f, -100.0f},       {0.0f, 10.0283f, -10.0f},
                                   {-8.6891f, -5.0217f, -10.0f}, {8.6891f, -5.0217f, -10.0f}, {0.0f, 15.0f, -10.0f}};
    static const Vertices line = solid.mid(0, 2);
    static const Vertices point = {solid[0], solid[0]};
    return viewType == Point ? point : viewType == Line ? line : solid;
}

void buildBody(KMMeshNode &mesh, int viewType)
{
    if (viewType == Polygon)
        build(mesh, bodyVertices(viewType), bodyFaces);
    else
        build(mesh, bodyVertices(viewType), axisLine);
}

void buildRing(KMMeshNode &mesh)
{
    static const Vertices points = {{-1.0f, 0.0f, 0.0f}, {-0.5f, -0.866f, 0.0f}, {0.5f, -0.866f, 0.0f},
                                    {1.0f, 0.0f, 0.0f},  {0.5f, 0.866f, 0.0f},   {-0.5f, 0.866f, 0.0f}};
    build(mesh, points, ringLines, ringRadius);
}

void buildCross(KMMeshNode &mesh)
{
    static const Vertices points = {{0.0f, -1.0f, 0.0f}, {1.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}, {-1.0f, 0.0f, 0.0f}};
    build(mesh, points, crossLines, crossRadius);
}

} // namespace KMBoneShape
