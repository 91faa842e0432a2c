#include "render/KMOpenGLContainer.h"

#include "render/KMCameraBox.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMPicker.h"
#include "render/KMViewFilter.h"
#include "render/KMViewTool.h"

#include <QStackedWidget>

namespace {

struct LayoutRow
{
    int first;
    int count;
    int lead;
};

constexpr LayoutRow layouts[KMOpenGLContainer::LayoutCount] = {{0, 1, 0}, {1, 2, 2}, {3, 4, 4}};

constexpr int everything = 31;
constexpr int evenWhileNavigating = -1;

} // namespace

KMOpenGLContainer::KMOpenGLContainer(QObject *parent)
    : QObject(parent)
{
}

KMOpenGLContainer::~KMOpenGLContainer() = default;

KMOpenGLWidget *KMOpenGLContainer::createWidget(QWidget *parent, bool hasToolIcons)
{
    auto *made = new KMOpenGLWidget(this, hasToolIcons, parent);
    const int index = m_widgets.size();
    m_widgets << made;
    connect(made, &KMOpenGLWidget::onActive, this, &KMOpenGLContainer::onActiveChanged);
    connect(made, &KMOpenGLWidget::cameraBoxClicked, this, &KMOpenGLContainer::cameraBoxClicked);
    connect(made, &QObject::destroyed, this, [this, index] { m_widgets[index] = nullptr; });
    return made;
}

KMOpenGLWidget *KMOpenGLContainer::widget(int index) const
{
    return m_widgets.value(index);
}

int KMOpenGLContainer::layout() const
{
    return m_stack ? m_stack->currentIndex() : int(Single);
}

QVector<KMOpenGLWidget *> KMOpenGLContainer::widgetsOf(int layout) const
{
    QVector<KMOpenGLWidget *> widgets;
    if (uint(layout) >= LayoutCount)
        return widgets;
    for (KMOpenGLWidget *widget : m_widgets.mid(layouts[layout].first, layouts[layout].count)) {
        if (widget)
            widgets << widget;
    }
    return widgets;
}

KMOpenGLWidget *KMOpenGLContainer::leadOf(int layout) const
{
    return uint(layout) < LayoutCount ? widget(layouts[layout].lead) : nullptr;
}

KMOpenGLWidget *KMOpenGLContainer::modelViewOfDual() const
{
    return leadOf(Dual);
}

void KMOpenGLContainer::setCurrent(KMOpenGLWidget *widget)
{
    m_current = widget;
    emit currentChanged();
}

/// A drag that turns a view costs the others nothing. The UV view is part of what the UV tool works on, so all follow.
void KMOpenGLContainer::repaint(int mode)
{
    const KMViewTool *tool = KMOpenGLWidget::currentTool();
    const bool uv = tool && tool->toolId() == KMViewTool::UVTool;
    if (!uv && m_navigating && mode > evenWhileNavigating) {
        if (m_hot)
            m_hot->update();
        return;
    }
    const QVector<KMOpenGLWidget *> widgets = widgetsOf(layout());
    for (KMOpenGLWidget *widget : widgets) {
        widget->showTitle();
        if (widget != m_hot)
            widget->update();
    }
    if (widgets.contains(m_hot))
        m_hot->update();
}

void KMOpenGLContainer::endNavigation()
{
    for (KMOpenGLWidget *widget : std::as_const(m_widgets)) {
        if (widget)
            widget->endNavigation();
    }
    m_navigating = false;
}

void KMOpenGLContainer::updateAllNow()
{
    for (KMOpenGLWidget *widget : std::as_const(m_widgets)) {
        if (!widget || !widget->isInitialised())
            continue;
        widget->makeCurrent();
        if (KMCameraBox *box = widget->cameraBox())
            box->invalidate();
        widget->repaint();
        widget->doneCurrent();
    }
}

void KMOpenGLContainer::setViewFlags(const bool flags[4])
{
    KMCameraNode *camera = m_current ? m_current->camera() : nullptr;
    if (!camera)
        return;
    KMCameraNode::ViewFlags all = camera->viewFlags();
    std::copy(flags, flags + KMCameraNode::ShowGrid, all.begin());
    camera->setViewFlags(all);
    repaint(evenWhileNavigating);
}

void KMOpenGLContainer::onActiveChanged(KMOpenGLWidget *widget)
{
    activate(widget);
}

void KMOpenGLContainer::activate(KMOpenGLWidget *widget)
{
    if (!widget || widget == m_current)
        return;
    for (KMOpenGLWidget *other : std::as_const(m_widgets)) {
        if (other && other != widget)
            other->setActive(false);
    }
    widget->setActive(true);
    widget->setFocus();
    widget->showTitle();
    setCurrent(widget);
    repaint(evenWhileNavigating);
}

void KMOpenGLContainer::refreshViews(int mask)
{
    repaint(mask);
    if (mask == everything)
        emit currentChanged();
}

void KMOpenGLContainer::resetCamera()
{
    if (!m_current || !m_current->camera())
        return;
    endNavigation();
    m_current->camera()->reset();
    m_current->camera()->checkViewChanged();
    refreshViews(everything);
}

void KMOpenGLContainer::resetViews()
{
    endNavigation();
    KMPicker::clearHot();
    KMViewFilter::reset();
    emit currentChanged();
}
