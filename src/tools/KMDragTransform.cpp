#include "tools/KMDragTransform.h"

bool KMDragTransform::isIdentity() const
{
    switch (kind) {
    case Kind::Move:
        return delta == kvm::Vector3();
    case Kind::Scale:
        return factors == kvm::Vector3(1, 1, 1);
    case Kind::Rotate:
        return angle == 0.0f;
    }
    return true;
}

KMDragMap::KMDragMap(const KMDragTransform &transform)
    : m_isMove(transform.kind == KMDragTransform::Kind::Move)
    , m_delta(transform.delta)
    , m_centre(transform.centre)
{
    if (m_isMove)
        return;
    if (transform.kind == KMDragTransform::Kind::Scale) {
        m_growth = transform.axes.conjugate().toMatrix();
        m_growth *= kvm::Matrix4::fromScale(transform.factors - kvm::Vector3(1, 1, 1));
        m_growth *= transform.axes;
        return;
    }
    m_growth = transform.turn().toMatrix();
    for (const int diagonal : {0, 5, 10})
        m_growth[diagonal] -= 1.0f;
}
