#include "mesh/KMCornerEdit.h"

#include "core/KMSolution.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMNormalCommands.h"
#include "mesh/KMNormalEdit.h"

#include <cmath>

using kvm::Vector3;

namespace {

struct Turn
{
    float angle = 0.0f;             // radians
    Vector3 axis{0.0f, 1.0f, 0.0f}; // of unit length
};

Vector3 acrossTo(const Vector3 &v)
{
    const Vector3 other = std::fabs(v.x) < std::fabs(v.y) ? Vector3(1.0f, 0.0f, 0.0f) : Vector3(0.0f, 1.0f, 0.0f);
    return cross(v, other).normalized();
}

/// The shortest turn that takes one direction to another; none when one of them is zero. By the tangent, which
/// tells small angles better than the cosine does. Opposite directions turn about any axis across them.
Turn turnBetween(const Vector3 &from, const Vector3 &to)
{
    constexpr float epsilon = 1.1920929e-7f;
    const Vector3 axis = cross(from, to);
    const float sine = axis.length();
    const float cosine = dot(from, to);
    if (sine > epsilon)
        return {std::atan2(sine, cosine), axis / sine};
    return cosine < 0.0f ? Turn{float(M_PI), acrossTo(from)} : Turn();
}

} // namespace

KMCornerEdit::KMCornerEdit(KMMeshNode &mesh)
    : m_mesh(mesh)
    , m_tag(KMNormalEdit::tagOf(mesh))
    , m_toMesh(mesh.rotation().normalized().conjugate())
{
    if (mesh.dirtyMask() & KMMeshDirty::Positions)
        mesh.refreshAfterEdit();
}

Vector3 KMCornerEdit::normal(int face, int corner) const
{
    return m_mesh.face(face)->normals[corner];
}

KMNormalFace::Mode KMCornerEdit::mode(int face, int corner) const
{
    return KMNormalFace::Mode(m_tag->faceNormal(face).mode[corner]);
}

KMNormalFace &KMCornerEdit::record(int face)
{
    auto known = m_records.find(face);
    if (known == m_records.end())
        known = m_records.insert(face, m_tag->faceNormal(face));
    return *known;
}

void KMCornerEdit::fix(int face, int corner)
{
    record(face).setFixed(corner, m_toMesh.rotate(normal(face, corner)));
}

void KMCornerEdit::turnTo(int face, int corner, const Vector3 &normal)
{
    KMNormalFace &own = record(face);
    const Turn turn = turnBetween(own.baseNormal[corner], normal);
    own.setRotated(corner, turn.angle, m_toMesh.rotate(turn.axis));
}

int KMCornerEdit::push()
{
    int changed = 0;
    for (const KMNormalFace &own : std::as_const(m_records)) {
        if (own.isSameOverride(m_tag->faceNormal(own.face)))
            continue;
        gSolution->push(new editNormalCommand(m_tag, own));
        ++changed;
    }
    m_records.clear();
    return changed;
}
