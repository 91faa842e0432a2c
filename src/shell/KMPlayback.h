#pragma once

#include <QList>
#include <QObject>

#include <functional>

class QAction;
class QTimer;

/// Plays the motion of all rigs by moving the project's current frame, and has the actions of the transport. A second
/// of the clock on the wall is 30 frames: where drawing is slower, frames are left out.
class KMPlayback : public QObject
{
    Q_OBJECT
public:
    static constexpr int FramesPerSecond = 30;

    using Clock = std::function<qint64()>; ///< milliseconds from anywhere, never backwards

    explicit KMPlayback(QObject *parent = nullptr, const Clock &clock = {}); ///< that of the system without one

    QList<QAction *> actions() const { return m_actions; } ///< in the order of their buttons

    static int lastFrame(); ///< of the keys of all rigs; 0 without keys
    bool isPlaying() const { return m_isPlaying; }
    bool isLooping() const;

    /// From the current frame on, or from the start when that is the last one. Without keys there is nothing to play.
    void play();
    void stop();
    void toggle();
    void tick(); ///< shows the frame that is due; the timer calls it

    void toStart();
    void step(int frames); ///< stops, and moves by so many frames, within the range of frame numbers
    void toEnd();

signals:
    void playingChanged(bool playing);

private:
    void createActions();
    QAction *addAction(const char *objectName, const QString &text, const char *icon, const QString &tip);
    void showState();

    Clock m_clock;
    QTimer *m_timer;
    QList<QAction *> m_actions;
    QAction *m_play = nullptr;
    QAction *m_loop = nullptr;
    bool m_isPlaying = false;
    qint64 m_startTime = 0;
    qint64 m_startFrame = 0; // at the start time; below 0 in later rounds
};
