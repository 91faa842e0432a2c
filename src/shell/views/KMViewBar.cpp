#include "shell/views/KMViewBar.h"

#include "core/KMIcon.h"
#include "core/KMSolution.h"
#include "render/KMOpenGLContainer.h"
#include "render/KMOpenGLWidget.h"
#include "render/KMViewFilter.h"
#include "shell/views/KMSwitchMenu.h"

#include <QMouseEvent>
#include <QToolButton>

namespace {

struct FlagRow
{
    const char *objectName;
    const char *text;
    const char *icon;
    const char *tip;
};

/// In the order of the camera's flags.
constexpr FlagRow flagRows[] = {
    {"boxVertex", QT_TRANSLATE_NOOP("KMViewBar", "Vertex"), "reason",
     QT_TRANSLATE_NOOP("KMViewBar", "Show vertices; right click: only them, or all kinds again")},
    {"boxEdge", QT_TRANSLATE_NOOP("KMViewBar", "Edge"), "share22",
     QT_TRANSLATE_NOOP("KMViewBar", "Show edges; right click: only them, or all kinds again")},
    {"boxFace", QT_TRANSLATE_NOOP("KMViewBar", "Face"), "four45",
     QT_TRANSLATE_NOOP("KMViewBar", "Show faces; right click: only them, or all kinds again")},
    {"boxFront", QT_TRANSLATE_NOOP("KMViewBar", "Front"), "front",
     QT_TRANSLATE_NOOP("KMViewBar", "Show only what faces the viewer; right click: and no elements")},
};

struct SnapRow
{
    int bit;
    const char *text;
    const char *objectName;
};

constexpr SnapRow snapRows[] = {
    {KMSnapOption::Self, QT_TRANSLATE_NOOP("KMViewBar", "Snap Self"), "boxSnapSelf"},
    {KMSnapOption::All, QT_TRANSLATE_NOOP("KMViewBar", "Snap All"), "boxSnapAll"},
    {KMSnapOption::Modifier, QT_TRANSLATE_NOOP("KMViewBar", "Snap Modifier"), "boxSnapModifier"},
    {KMSnapOption::Vertex, QT_TRANSLATE_NOOP("KMViewBar", "Snap Vertex"), "boxSnapVertex"},
    {KMSnapOption::Edge, QT_TRANSLATE_NOOP("KMViewBar", "Snap Edge"), "boxSnapEdge"},
    {KMSnapOption::Face, QT_TRANSLATE_NOOP("KMViewBar", "Snap Face"), "boxSnapFace"},
    {KMSnapOption::Merge, QT_TRANSLATE_NOOP("KMViewBar", "Snap Merge"), "boxSnapMerge"},
    {KMSnapOption::Stop, QT_TRANSLATE_NOOP("KMViewBar", "Snap Stop"), "boxSnapStop"},
};

void fill(QMenu *menu, const QList<QAction *> &actions)
{
    for (QAction *action : actions) {
        if (action)
            menu->addAction(action);
        else
            menu->addSeparator();
    }
}

} // namespace

KMViewBar::KMViewBar(KMOpenGLContainer *container, QWidget *parent)
    : QToolBar(tr("View Panel"), parent)
    , m_container(container)
    , m_cameraMenu(new QMenu(this))
    , m_viewMenu(new QMenu(this))
{
    setObjectName(QStringLiteral("KMViewBar"));
    setContextMenuPolicy(Qt::PreventContextMenu);
    createFilterMenu();
    createSnapMenu();
    addMenuButton("boxCamera", tr("Camera"), "node-camera", m_cameraMenu);
    addMenuButton("boxView", tr("View"), "layout", m_viewMenu);
    addMenuButton("boxFilter", tr("Filter"), "filter", m_filterMenu);
    addMenuButton("boxSnap", tr("Snap"), "snap", m_snapMenu);
    addSeparator();
    addFlagButtons();
    connect(m_container, &KMOpenGLContainer::currentChanged, this, &KMViewBar::sync);
}

QToolButton *KMViewBar::addMenuButton(const char *objectName, const QString &text, const char *icon, QMenu *menu)
{
    auto *button = new QToolButton;
    button->setObjectName(QLatin1String(objectName));
    button->setText(text);
    button->setToolTip(text);
    button->setStatusTip(tr("Open the menu: %1").arg(text));
    button->setIcon(KMIcon::icon(QLatin1String(icon)));
    button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    button->setPopupMode(QToolButton::InstantPopup);
    button->setMenu(menu);
    addWidget(button);
    return button;
}

void KMViewBar::addFlagButtons()
{
    for (int flag = 0; flag < ButtonCount; ++flag) {
        const FlagRow &row = flagRows[flag];
        auto *button = new QToolButton;
        button->setObjectName(QLatin1String(row.objectName));
        button->setText(tr(row.text));
        button->setToolTip(tr(row.text));
        button->setStatusTip(tr(row.tip));
        button->setIcon(KMIcon::icon(QLatin1String(row.icon)));
        button->setCheckable(true);
        button->installEventFilter(this);
        connect(button, &QToolButton::clicked, this, &KMViewBar::onViewOptionChanged);
        addWidget(button);
        m_buttons[size_t(flag)] = button;
    }
}

void KMViewBar::setCameraActions(const QList<QAction *> &actions)
{
    fill(m_cameraMenu, actions);
}

void KMViewBar::setViewActions(const QList<QAction *> &actions)
{
    fill(m_viewMenu, actions);
}

void KMViewBar::createFilterMenu()
{
    using namespace KMViewFilter;
    m_filterMenu = new KMSwitchMenu([](int filter) { return isOn(Switch(filter)); },
                                    [](int filter, bool on) {
                                        KMSolution::ViewFlags flags = gSolution->viewFlags();
                                        flags.at(size_t(filter)) = on;
                                        gSolution->setViewFlags(flags);
                                        gSolution->refreshViews(31);
                                    },
                                    this);
    for (const Row &row : rows())
        m_filterMenu->addSwitch(row.filter, QCoreApplication::translate("KMViewFilter", row.text), row.objectName);
    m_filterMenu->addReset(tr("Reset Filter Settings"), "boxFilterReset", [] {
        reset();
        gSolution->refreshViews(31);
    });
}

void KMViewBar::createSnapMenu()
{
    m_snapMenu = new KMSwitchMenu([](int bit) { return gSolution->snapOptions() & bit; },
                                  [](int bit, bool on) {
                                      const int options = gSolution->snapOptions();
                                      gSolution->setSnapOptions(on ? options | bit : options & ~bit);
                                  },
                                  this);
    for (const SnapRow &row : snapRows)
        m_snapMenu->addSwitch(row.bit, tr(row.text), row.objectName);
    m_snapMenu->addReset(tr("Reset Snap Settings"), "boxSnapReset",
                         [] { gSolution->setSnapOptions(KMSnapOption::Default); });
}

/// A right button up on an element button, as a click goes.
bool KMViewBar::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() != QEvent::MouseButtonRelease)
        return QToolBar::eventFilter(watched, event);
    const auto *mouse = static_cast<QMouseEvent *>(event);
    for (int flag = 0; flag < ButtonCount; ++flag) {
        const QToolButton *button = m_buttons[size_t(flag)];
        if (watched != button || mouse->button() != Qt::RightButton || !button->rect().contains(mouse->pos()))
            continue;
        onViewOptionChangedByRightClick(flag);
        return true;
    }
    return QToolBar::eventFilter(watched, event);
}

void KMViewBar::setFlags(const Flags &flags)
{
    m_container->setViewFlags(flags.data());
    sync();
}

void KMViewBar::onViewOptionChanged()
{
    Flags flags;
    for (int flag = 0; flag < ButtonCount; ++flag)
        flags[size_t(flag)] = m_buttons[size_t(flag)]->isChecked();
    setFlags(flags);
}

void KMViewBar::onViewOptionChangedByRightClick(int flag)
{
    if (!m_container->current() || !m_container->current()->camera())
        return;
    const KMCameraNode::ViewFlags &now = m_container->current()->camera()->viewFlags();
    Flags flags{};
    if (flag == KMCameraNode::FrontOnly) {
        flags[KMCameraNode::FrontOnly] = true;
        return setFlags(flags);
    }
    flags[KMCameraNode::FrontOnly] = now[KMCameraNode::FrontOnly];
    bool isAlone = true;
    for (int other = KMCameraNode::ShowVertices; other <= KMCameraNode::ShowFaces; ++other)
        isAlone = isAlone && (other == flag || !now[size_t(other)]);
    for (int element = KMCameraNode::ShowVertices; element <= KMCameraNode::ShowFaces; ++element)
        flags[size_t(element)] = isAlone || element == flag;
    setFlags(flags);
}

/// The buttons and menus show what holds in the current view.
void KMViewBar::sync()
{
    const KMOpenGLWidget *view = m_container->current();
    const KMCameraNode *camera = view ? view->camera() : nullptr;
    for (int flag = 0; flag < ButtonCount; ++flag) {
        m_buttons[size_t(flag)]->setEnabled(camera);
        m_buttons[size_t(flag)]->setChecked(camera && camera->viewFlags()[size_t(flag)]);
    }
    m_filterMenu->sync();
}
