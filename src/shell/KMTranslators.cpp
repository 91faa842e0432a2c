#include "shell/KMTranslators.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

void KMTranslators::install(const QLocale &locale, const QString &directory)
{
    const QString folder = directory + QStringLiteral("/translations");
    if (m_own.load(QStringLiteral("kelmo_") + locale.name(), folder))
        QCoreApplication::installTranslator(&m_own);

    const QString qtFile = QStringLiteral("qtbase_") + locale.name();
    if (m_qt.load(qtFile, folder) || m_qt.load(qtFile, QLibraryInfo::location(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(&m_qt);
}
