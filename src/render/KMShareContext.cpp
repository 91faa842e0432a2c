#include "render/KMShareContext.h"

#include "render/KMRenderer.h"

KMShareContext::KMShareContext()
    : m_entered(gRenderer != nullptr)
{
    if (m_entered)
        gRenderer->makeShareCurrent();
}

KMShareContext::~KMShareContext()
{
    if (m_entered)
        gRenderer->doneShareCurrent();
}
