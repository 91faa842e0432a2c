#include "formats/KMDKeptViews.h"

void KMDKeptViews::takeCamera(const KMDCamera &camera)
{
    const auto known = m_places.constFind(camera.kind);
    if (known != m_places.constEnd()) {
        m_cameras[*known] = camera;
        return;
    }
    m_places.insert(camera.kind, m_cameras.size());
    m_cameras << camera;
}
