#include "shell/KMPlayback.h"

#include "core/KMCommand.h"
#include "core/KMIcon.h"
#include "core/KMProject.h"
#include "core/KMSessionTool.h"
#include "core/KMSolution.h"
#include "rig/KMBoneContainer.h"

#include <QAction>
#include <QElapsedTimer>
#include <QTimer>

#include <algorithm>
#include <limits>
#include <memory>

namespace {

constexpr int tickInterval = 1000 / KMPlayback::FramesPerSecond / 2; // each frame is met, whenever it begins

KMPlayback::Clock systemClock()
{
    auto timer = std::make_shared<QElapsedTimer>();
    timer->start();
    return [timer] { return timer->elapsed(); };
}

} // namespace

KMPlayback::KMPlayback(QObject *parent, const Clock &clock)
    : QObject(parent)
    , m_clock(clock ? clock : systemClock())
    , m_timer(new QTimer(this))
{
    m_timer->setTimerType(Qt::PreciseTimer);
    m_timer->setInterval(tickInterval);
    connect(m_timer, &QTimer::timeout, this, &KMPlayback::tick);
    connect(gProject, &KMProject::frameChanged, gSolution, [] { gSolution->refreshViews(31); });
    connect(gSolution, &KMSolution::documentReset, this, &KMPlayback::stop);
    createActions();
}

QAction *KMPlayback::addAction(const char *objectName, const QString &text, const char *icon, const QString &tip)
{
    auto *action = new QAction(KMIcon::icon(QLatin1String(icon)), text, this);
    action->setObjectName(QLatin1String(objectName));
    action->setStatusTip(tip);
    m_actions << action;
    return action;
}

void KMPlayback::createActions()
{
    connect(addAction("animBackward", tr("Backward"), "anim_backward", tr("Go to the first frame")),
            &QAction::triggered, this, &KMPlayback::toStart);
    connect(addAction("animPrev", tr("Prev"), "anim_prev", tr("Go one frame back")), &QAction::triggered, this,
            [this] { step(-1); });
    m_play = addAction("animPlay", tr("Play"), "anim_play", tr("Play the motion, or stop it"));
    connect(m_play, &QAction::triggered, this, &KMPlayback::toggle);
    connect(addAction("animNext", tr("Next"), "anim_next", tr("Go to the next frame")), &QAction::triggered, this,
            [this] { step(1); });
    connect(addAction("animForward", tr("Forward"), "anim_forward", tr("Go to the frame of the last key")),
            &QAction::triggered, this, &KMPlayback::toEnd);
    m_loop = addAction("animLoop", tr("Loop"), "anim_loop", tr("Begin again at the end of the motion"));
    m_loop->setCheckable(true);
}

int KMPlayback::lastFrame()
{
    quint32 last = 0;
    const QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    for (const KMBoneContainer *rig : rigs)
        last = std::max(last, rig->animation()->lastFrame());
    return int(std::min(last, quint32(std::numeric_limits<int>::max())));
}

bool KMPlayback::isLooping() const
{
    return m_loop->isChecked();
}

void KMPlayback::showState()
{
    m_play->setIcon(KMIcon::icon(m_isPlaying ? QStringLiteral("anim_pause") : QStringLiteral("anim_play")));
    m_play->setText(m_isPlaying ? tr("Pause") : tr("Play"));
    emit playingChanged(m_isPlaying);
}

void KMPlayback::play()
{
    const int last = lastFrame();
    if (m_isPlaying)
        return;
    if (last == 0)
        return gSolution->showMessage(tr("There are no keys to play"), KMCommand::MessageLevel);
    m_startFrame = gProject->currentFrame() < last ? gProject->currentFrame() : 0;
    m_startTime = m_clock();
    m_isPlaying = true;
    m_timer->start();
    showState();
    tick();
}

void KMPlayback::stop()
{
    if (!m_isPlaying)
        return;
    m_isPlaying = false;
    m_timer->stop();
    showState();
}

void KMPlayback::toggle()
{
    if (m_isPlaying)
        stop();
    else
        play();
}

void KMPlayback::tick()
{
    if (!m_isPlaying)
        return;
    if (gSolution->tool() && gSolution->tool()->isEditing())
        return stop(); // the pose that is being dragged must not run away
    const qint64 played = (m_clock() - m_startTime) * FramesPerSecond / 1000;
    const qint64 last = lastFrame(); // keys may have gone
    qint64 frame = m_startFrame + played;
    const bool isOver = last == 0 || (frame >= last && !isLooping());
    if (isLooping()) {
        frame %= last + 1;
        m_startFrame = frame - played; // of this round, which is played to its end when looping is switched off
    }
    frame = std::min(frame, last);
    if (frame != gProject->currentFrame())
        gProject->setCurrentFrame(int(frame));
    if (isOver)
        stop();
}

void KMPlayback::toStart()
{
    stop();
    gProject->setCurrentFrame(0);
}

void KMPlayback::step(int frames)
{
    stop();
    constexpr qint64 farthest = std::numeric_limits<int>::max(); // where a motion from elsewhere may have its last key
    gProject->setCurrentFrame(int(qBound(qint64(0), qint64(gProject->currentFrame()) + frames, farthest)));
}

void KMPlayback::toEnd()
{
    stop();
    gProject->setCurrentFrame(lastFrame());
}
