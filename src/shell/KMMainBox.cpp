#include "shell/KMMainBox.h"

#include "core/KMDpi.h"
#include "render/KMCameraSet.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "shell/views/KMStacked.h"
#include "shell/views/KMViewBar.h"
#include "shell/views/QuadSplitter.h"

#include <QVBoxLayout>

namespace {

constexpr int smallest = 200;
constexpr int viewWithToolIcons = 1;

} // namespace

/// The order in which the views are made is that of their numbers.
KMMainBox::KMMainBox(QWidget *parent)
    : QWidget(parent)
    , m_views(new KMOpenGLContainer(this))
    , m_bar(new KMViewBar(m_views))
    , m_stack(new KMStacked)
{
    setObjectName(QStringLiteral("KMMainBox"));
    setMinimumSize(dpiScaled(smallest), dpiScaled(smallest));
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_bar);
    layout->addWidget(m_stack, 1);

    m_stack->addWidget(createView(m_stack));
    m_dual = new DualSplitter;
    m_dual->addWidget(createView(m_dual));
    m_dual->addWidget(createView(m_dual));
    m_stack->addWidget(m_dual);
    m_quad = new QuadSplitter;
    for (const int row : {0, 0, 1, 1})
        m_quad->row(row)->addWidget(createView(m_quad->row(row)));
    m_stack->addWidget(m_quad);
    m_views->setStack(m_stack);
    m_views->activate(m_views->leadOf(KMOpenGLContainer::Single));
}

KMMainBox::~KMMainBox()
{
    closeViews();
}

QWidget *KMMainBox::createView(QWidget *parent)
{
    const int number = m_views->count();
    KMOpenGLWidget *view = m_views->createWidget(parent, number == viewWithToolIcons);
    view->setCamera(KMCameraSet::camera(KMCameraSet::cameraOfView(number)));
    return view;
}

/// The views tell the container that they go, so they go while it is there.
void KMMainBox::closeViews()
{
    delete m_stack;
    m_stack = nullptr;
}

int KMMainBox::viewMode() const
{
    return m_views->layout();
}

void KMMainBox::setViewMode(int mode)
{
    if (!m_stack || mode < 0 || mode >= m_stack->count())
        return;
    m_views->repaint(0);
    m_stack->setCurrentIndex(mode);
    KMOpenGLWidget *lead = m_views->leadOf(mode);
    m_views->activate(lead);
    lead->setFocus();
    emit viewModeChanged(mode);
}

double KMMainBox::dualX() const
{
    return m_dual->share();
}

double KMMainBox::quadX() const
{
    return m_quad->shareX();
}

double KMMainBox::quadY() const
{
    return m_quad->share();
}

void KMMainBox::setDividers(double dualX, double quadX, double quadY)
{
    m_dual->setShare(dualX);
    m_quad->setShareX(quadX);
    m_quad->setShare(quadY);
}
