#include "modifiers/KMPrimitiveBuilder.h"

#include "mesh/KMMeshNode.h"

namespace {

bool mirrors(const kvm::Vector3 &scale)
{
    return ((scale.x < 0.0f) != (scale.y < 0.0f)) != (scale.z < 0.0f);
}

} // namespace

KMPrimitiveBuilder::KMPrimitiveBuilder(KMMeshNode &mesh, const KMTransform &transform, int shader)
    : m_mesh(mesh)
    , m_transform(transform)
    , m_shader(shader)
    , m_transformMirrors(mirrors(transform.scale))
    , m_reversed(m_transformMirrors)
{
    m_mesh.clearGeometry();
}

KMPrimitiveBuilder::~KMPrimitiveBuilder()
{
    m_mesh.markDirty(KMMeshDirty::All);
}

void KMPrimitiveBuilder::setMirrored(bool mirrored)
{
    m_reversed = m_transformMirrors != mirrored;
}

void KMPrimitiveBuilder::reserve(int vertices, int faces)
{
    m_mesh.reserve(vertices, faces);
}

int KMPrimitiveBuilder::addVertex(const kvm::Vector3 &local)
{
    const kvm::Vector3 &scale = m_transform.scale;
    const kvm::Vector3 scaled(local.x * scale.x, local.y * scale.y, local.z * scale.z);
    return m_mesh.addVertexRaw(m_transform.rotation.rotate(scaled) + m_transform.translation);
}

void KMPrimitiveBuilder::addFace(int count, const int *corners, const kvm::Vector2 *uvs)
{
    int ordered[KMFace::MaxCorners] = {};
    kvm::Vector2 orderedUVs[KMFace::MaxCorners];
    for (int c = 0; c < count; ++c) {
        // The first corner stays, and with it the diagonal of a quad.
        const int from = m_reversed && c > 0 ? count - c : c;
        ordered[c] = corners[from];
        orderedUVs[c] = uvs[from];
    }
    const int face = m_mesh.addFaceRaw(count, ordered);
    m_mesh.setFaceUVs(face, orderedUVs);
    m_mesh.setFaceShader(face, m_shader);
}
