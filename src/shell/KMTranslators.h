#pragma once

#include <QTranslator>

class QLocale;

/// The translations of the program's own texts and of Qt's. Where there is none for a language, the texts stay English.
/// They go with the object.
class KMTranslators
{
    Q_DISABLE_COPY(KMTranslators)
public:
    KMTranslators() = default;

    /// Takes both from the folder "translations" of a directory. Qt's comes from Qt's own folder where it isn't there
    /// and the program speaks the language itself.
    void install(const QLocale &locale, const QString &directory);

private:
    QTranslator m_own;
    QTranslator m_qt;
};
