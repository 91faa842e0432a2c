#include "shell/KMSpeech.h"

#ifdef KELMO_TEXT_TO_SPEECH
#include <QTextToSpeech>
#endif

KMSpeech::KMSpeech(QObject *parent)
    : QObject(parent)
{
}

void KMSpeech::say(const QString &text)
{
#ifdef KELMO_TEXT_TO_SPEECH
    if (!m_voice)
        m_voice = new QTextToSpeech(this);
    m_voice->say(text);
#else
    Q_UNUSED(text)
    Q_UNUSED(m_voice)
#endif
}
