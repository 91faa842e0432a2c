#include "shell/KMTransport.h"

#include "core/KMDpi.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "shell/KMPlayback.h"
#include "shell/widgets/KMTimeLine.h"

#include <QAction>
#include <QHBoxLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QSpinBox>
#include <QToolButton>

#include <algorithm>

namespace {

constexpr int mostFrames = 9999999;
constexpr int shortestLine = 100; // where there are few keys or none

void sortOnce(QVector<int> &frames)
{
    std::sort(frames.begin(), frames.end());
    frames.erase(std::unique(frames.begin(), frames.end()), frames.end());
}

} // namespace

KMTransport::KMTransport(KMPlayback *playback, QWidget *parent)
    : QWidget(parent)
    , m_playback(playback)
    , m_frame(new QSpinBox)
    , m_line(new KMTimeLine)
    , m_last(new QLabel)
{
    auto *row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(dpiScaled(2));
    for (QAction *action : playback->actions()) {
        auto *button = new QToolButton;
        button->setDefaultAction(action);
        button->setAutoRaise(true);
        row->addWidget(button);
    }
    m_frame->setObjectName(QStringLiteral("frame"));
    m_frame->setRange(0, mostFrames);
    m_frame->setKeyboardTracking(false);
    m_frame->setToolTip(tr("Current frame"));
    m_line->setObjectName(QStringLiteral("timeLine"));
    m_line->setToolTip(tr("Frames; the marks are keys, bright ones of selected bones"));
    row->addWidget(m_frame);
    row->addWidget(m_line, 1);
    row->addWidget(m_last);
    connect(m_frame, qOverload<int>(&QSpinBox::valueChanged), this, &KMTransport::onCurrentFrameChanged);
    connect(m_line, &QSlider::valueChanged, this, &KMTransport::onCurrentFrameChanged);
    connect(gProject, &KMProject::frameChanged, this, &KMTransport::showFrame);
}

void KMTransport::onCurrentFrameChanged(int frame)
{
    m_playback->stop();
    if (frame != gProject->currentFrame())
        gProject->setCurrentFrame(frame);
}

void KMTransport::showFrame(int frame)
{
    const QSignalBlocker quietNumber(m_frame);
    const QSignalBlocker quietLine(m_line);
    if (frame > m_line->maximum()) {
        m_furthest = frame;
        m_line->setMaximum(frame);
        m_last->setNum(frame);
    }
    m_frame->setValue(frame);
    m_line->setValue(frame);
}

void KMTransport::refresh()
{
    if (!gProject || gProject->isDestroying() || !isVisible()) // a motion has many keys, and the history moves often
        return;
    if (gProject->currentFrame() == 0)
        m_furthest = 0;
    const QSignalBlocker quiet(m_line);
    const int last = std::max({KMPlayback::lastFrame(), m_furthest, shortestLine});
    m_line->setMaximum(last);
    m_last->setNum(last);
    showKeys();
    showFrame(gProject->currentFrame());
}

/// A motion may have millions of keys, and few steps of the history change one.
void KMTransport::showKeys()
{
    const QList<KMBoneContainer *> rigs = KMBoneContainer::inTree();
    QVector<quint64> shown;
    for (const KMBoneContainer *rig : rigs) {
        shown << rig->animation()->revision();
        for (const BoneTrack *track : rig->animation()->tracks())
            shown << (track->bone && track->bone->selectMask());
    }
    if (shown == m_shownKeys)
        return;
    m_shownKeys = shown;
    QVector<int> all;
    QVector<int> selected;
    for (const KMBoneContainer *rig : rigs) {
        for (const BoneTrack *track : rig->animation()->tracks()) {
            const bool isSelected = track->bone && track->bone->selectMask();
            for (const auto &entry : track->keys) {
                const int frame = int(std::min(entry.first, quint32(mostFrames)));
                all << frame;
                if (isSelected)
                    selected << frame;
            }
        }
    }
    sortOnce(all);
    sortOnce(selected);
    m_line->setKeys(all, selected);
}

void KMTransport::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    refresh();
}
