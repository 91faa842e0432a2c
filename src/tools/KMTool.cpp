#include "tools/KMTool.h"

#include "core/KMIcon.h"
#include "core/KMSettings.h"
#include "render/KMCameraNode.h"
#include "render/KMOpenGLWidget.h"
#include "tools/KMElementClick.h"
#include "tools/KMToolKind.h"
#include "tools/KMToolSymmetryGrid.h"

#include <QAction>
#include <QButtonGroup>
#include <QKeyEvent>
#include <QPropertyAnimation>

namespace {

constexpr int fadeTime = 500; // ms
constexpr int headerIconSize = 24;

QColor mixed(const QColor &a, const QColor &b)
{
    return QColor((a.red() + b.red()) / 2, (a.green() + b.green()) / 2, (a.blue() + b.blue()) / 2);
}

} // namespace

KMTool::KMTool(int id, QWidget *parent)
    : QToolButton(parent)
    , m_id(id)
    , m_action(new QAction(this))
    , m_fade(new QPropertyAnimation(this, "BackgroundColor", this))
{
    m_fade->setDuration(fadeTime);
    m_fade->setEasingCurve(QEasingCurve::OutQuad);
    setCheckable(true);
    setFocusPolicy(Qt::ClickFocus);
    connect(this, &QAbstractButton::clicked, this, &KMTool::requestActivation); // by the keyboard
    connect(m_action, &QAction::triggered, this, &KMTool::requestActivation);
    connect(m_action, &QAction::changed, this, &KMTool::showKeys);
}

KMTool::~KMTool() = default;

void KMTool::setup()
{
    const KMToolKind &kind = KMToolKind::of(m_id);
    const QIcon drawing = KMIcon::icon(QLatin1String(kind.icon));
    setIcon(drawing);
    setText(tr(kind.text));
    setObjectName(QLatin1String(kind.objectName));
    setStatusTip(tr(kind.tip));
    m_mask = kind.mask;
    m_action->setObjectName(objectName());
    m_action->setText(text());
    m_action->setIcon(drawing);
    m_action->setStatusTip(statusTip());
    m_action->setShortcut(QKeySequence(QLatin1String(kind.key)));
    setBackgroundColor(palette().color(QPalette::Window));
}

/// The user may have given it another key.
void KMTool::showKeys()
{
    const QString keys = m_action->shortcut().toString(QKeySequence::NativeText);
    setToolTip(keys.isEmpty() ? text() : tr("%1 (%2)").arg(text(), keys));
}

QImage KMTool::icon() const
{
    return QToolButton::icon().pixmap(headerIconSize, headerIconSize).toImage();
}

void KMTool::initialize()
{
    if (!isSymmetric())
        return;
    m_grid = new KMToolSymmetryGrid;
    addMesh(EdgeMeshes, m_grid);
}

void KMTool::finalize()
{
    m_grid = nullptr;
    for (QList<KMToolMesh *> &group : m_meshes) {
        qDeleteAll(group);
        group.clear();
    }
}

void KMTool::deactivate()
{
    cancel();
}

void KMTool::setEditing(bool editing)
{
    if (editing == m_isEditing)
        return;
    m_isEditing = editing;
    emit enterEditing(editing);
}

void KMTool::setMode(int mode)
{
    m_mode = mode;
    emit modeChanged(mode);
}

void KMTool::reset()
{
    cancel();
    refresh();
}

void KMTool::historyChanged(int)
{
    refresh();
}

void KMTool::keyPress(QKeyEvent *event, KMOpenGLWidget *)
{
    if (event->key() != Qt::Key_Escape || !m_isEditing)
        return;
    cancel();
    event->accept();
}

void KMTool::draw(KMOpenGLWidget *widget)
{
    if (!m_grid)
        return;
    const std::optional<kvm::Matrix4> frame = KMElementClick::symmetryFrame();
    m_grid->setVisible(frame && widget && widget->camera() && !widget->camera()->isUV());
    if (m_grid->isVisible())
        m_grid->place(*frame);
}

QVector<KMToolOverlay> KMTool::overlays(OverlayGroup group) const
{
    QVector<KMToolOverlay> all;
    for (const KMToolMesh *mesh : m_meshes[group])
        all << mesh->overlays();
    return all;
}

void KMTool::addMesh(OverlayGroup group, KMToolMesh *mesh)
{
    mesh->setParent(this);
    m_meshes[group] << mesh;
}

void KMTool::setBackgroundColor(const QColor &color)
{
    m_background = color;
    applyStyle();
}

void KMTool::applyStyle()
{
    const int margin = qRound(4 * gSettings->dpiScale);
    m_isStyling = true;
    setStyleSheet(QStringLiteral("KMTool { padding: %1px; border-style: solid; border-width: 0px; border-radius: %1px;"
                                 " background-color: %2; }"
                                 "KMTool:checked:!hover { background-color: %3; }"
                                 "KMTool:checked:hover { border-width: 1px; border-color: %3; }")
                      .arg(margin)
                      .arg(m_background.name(), palette().color(QPalette::Highlight).name()));
    m_isStyling = false;
}

void KMTool::fadeTo(const QColor &from, const QColor &to)
{
    m_fade->stop();
    m_fade->setStartValue(from);
    m_fade->setEndValue(to);
    m_fade->start();
}

void KMTool::enterEvent(QEvent *event)
{
    const QColor button = palette().color(QPalette::Button);
    fadeTo(mixed(button, palette().color(QPalette::Highlight)), button.lighter(120));
    QToolButton::enterEvent(event);
}

void KMTool::leaveEvent(QEvent *event)
{
    fadeTo(m_background, palette().color(QPalette::Window));
    QToolButton::leaveEvent(event);
}

/// Acts at the press, as the mouse is on its way to a view.
void KMTool::mousePressEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return QToolButton::mousePressEvent(event);
    setChecked(true);
    emit toolClicked(this);
}

void KMTool::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        QToolButton::mouseReleaseEvent(event);
}

/// The bar checks the tool that is in the hand, a key doesn't; and this is how the group lets go of the former one.
void KMTool::nextCheckState()
{
    if (group() && group()->checkedButton() != this)
        setChecked(false);
}

void KMTool::changeEvent(QEvent *event)
{
    QToolButton::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || m_isStyling || objectName().isEmpty())
        return;
    setIcon(KMIcon::icon(QLatin1String(KMToolKind::of(m_id).icon)));
    setBackgroundColor(palette().color(QPalette::Window));
}
