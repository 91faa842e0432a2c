#include "core/KMResources.h"
#include "support/TestRegistry.h"

#include <QFile>
#include <QTest>

class tst_KMResources : public QObject
{
    Q_OBJECT
private slots:
    void foldersAreReachable();
};

void tst_KMResources::foldersAreReachable()
{
    initKelmoResources();
    QVERIFY(QFile::exists(QStringLiteral(":/svg/Resources")));
}

KM_TEST(tst_KMResources);

#include "tst_KMResources.moc"
