#include "render/KMCameraSet.h"

#include "core/KMCommand.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "render/KMCameraNode.h"

#include <QDebug>

namespace {

// By layout: the single view, the two of the dual layout, the four of the quad layout.
constexpr std::array<int, KMCameraSet::ViewCount> viewCameras = {
    KMCameraNode::Perspective, KMCameraNode::UV,    KMCameraNode::Perspective, KMCameraNode::Top,
    KMCameraNode::Perspective, KMCameraNode::Front, KMCameraNode::Right};

} // namespace

KMCameraSet::KMCameraSet(KMNativeFormat *format, QObject *parent)
    : QObject(parent)
    , m_format(format)
{
    for (const int kind : KMCameraNode::kinds) {
        auto *camera = new KMCameraNode(kind);
        gProject->addCamera(camera);
        connect(camera, &KMCameraNode::messageChanged, this, [](const QString &text) {
            if (gSolution)
                gSolution->showMessage(text, KMCommand::MessageLevel);
        });
    }
    reset();
    connect(gSolution, &KMSolution::documentReset, this, &KMCameraSet::reset);
    m_format->setViewParts(this);
}

KMCameraSet::~KMCameraSet()
{
    m_format->setViewParts(nullptr);
}

KMCameraNode *KMCameraSet::camera(int kind)
{
    return gProject ? nodeAs<KMCameraNode>(gProject->cameraById(kind)) : nullptr;
}

int KMCameraSet::cameraOfView(int viewIndex)
{
    return uint(viewIndex) < viewCameras.size() ? viewCameras.at(size_t(viewIndex)) : 0;
}

void KMCameraSet::reset()
{
    for (KMCameraNode *camera : gProject->cameras())
        camera->reset();
    m_views.clear();
    for (const int kind : viewCameras) {
        KMDViewSettings view;
        view.camera = kind;
        m_views << view;
    }
}

QVector<KMDCamera> KMCameraSet::cameras() const
{
    QVector<KMDCamera> stored;
    for (const KMCameraNode *camera : gProject->cameras())
        stored << camera->stored();
    return stored;
}

void KMCameraSet::takeCamera(const KMDCamera &stored)
{
    if (KMCameraNode *node = camera(stored.kind))
        node->restore(stored);
    else
        qDebug() << "a camera of the unknown kind" << stored.kind << "was left out";
}

/// Which camera a view looks through follows from its layout; the rest is kept for the next save.
void KMCameraSet::takeViewSettings(const QVector<KMDViewSettings> &settings)
{
    for (int i = 0; i < qMin(settings.size(), m_views.size()); ++i) {
        const int camera = m_views.at(i).camera;
        m_views[i] = settings.at(i);
        m_views[i].camera = camera;
    }
}
