#pragma once

#include <QVector>
#include <QWidget>

class KMPlayback;
class KMTimeLine;
class QLabel;
class QSpinBox;

/// The current frame as a number and on a line of time, with the buttons that move it.
class KMTransport : public QWidget
{
    Q_OBJECT
public:
    explicit KMTransport(KMPlayback *playback, QWidget *parent = nullptr);

    void refresh(); ///< the history moved or another document came: there may be other keys

protected:
    void showEvent(QShowEvent *event) override;

private:
    void onCurrentFrameChanged(int frame);
    void showFrame(int frame);
    void showKeys();

    KMPlayback *m_playback; // not owned
    QSpinBox *m_frame;
    KMTimeLine *m_line;
    QLabel *m_last;
    QVector<quint64> m_shownKeys; // the motions whose keys the line shows, and the bones that were selected
    int m_furthest = 0;           // frame that was asked for in this document
};
