#include "shell/KMTranslators.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QLocale>

void KMTranslators::install(const QLocale &locale, const QString &directory)
{
    const QString folder = directory + QStringLiteral("/translations");
    const bool isTranslated = m_own.load(QStringLiteral("kelmo_") + locale.name(), folder);
    if (isTranslated)
        QCoreApplication::installTranslator(&m_own);

    // Qt knows many languages that the program doesn't; English menus with buttons in one of those help nobody.
    const QString qtFile = QStringLiteral("qtbase_") + locale.name();
    const QString qtFolder = QLibraryInfo::location(QLibraryInfo::TranslationsPath);
    if (m_qt.load(qtFile, folder) || (isTranslated && m_qt.load(qtFile, qtFolder)))
        QCoreApplication::installTranslator(&m_qt);
}
