#pragma once

#include <QObject>

class QTextToSpeech;

/// Speaks texts with the voice of the system. Where the program was built without speech, or no voice is
/// installed, it stays silent.
class KMSpeech : public QObject
{
    Q_OBJECT
public:
    explicit KMSpeech(QObject *parent = nullptr);

public slots:
    void say(const QString &text);

private:
    QTextToSpeech *m_voice = nullptr; // made at the first text: to load a voice takes a while
};
