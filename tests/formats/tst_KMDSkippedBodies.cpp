#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "formats/KMDReader.h"
#include "support/DocumentText.h"
#include "support/KmdBytes.h"
#include "support/KmdEveryKind.h"
#include "support/TestRegistry.h"

#include <QRegularExpression>
#include <QTest>

#include <memory>

/// Kinds of nodes and tags that the program doesn't have are left out, and nothing else with them.
class tst_KMDSkippedBodies : public QObject
{
    Q_OBJECT
private slots:
    void init() { m_session = std::make_unique<KMHeadlessSession>(); }
    void cleanup() { m_session.reset(); }
    void theRestStays_data();
    void theRestStays();
    void cutShort();

private:
    std::unique_ptr<KMHeadlessSession> m_session;
};

namespace {

QByteArray fileOfEveryKind(double version)
{
    KmdBytes file(version);
    file.hasMesh = true;
    addEveryKind(file);
    return file.bytes();
}

} // namespace

void tst_KMDSkippedBodies::theRestStays_data()
{
    QTest::addColumn<double>("version");
    for (const double version : {1.0, 1.1, 1.6, 1.9, 2.0, 2.1, 2.2, 2.3, 2.4, 2.6, 2.8, 3.9, 4.0, 4.4})
        QTest::newRow(qPrintable(QString::number(version))) << version;
}

void tst_KMDSkippedBodies::theRestStays()
{
    QFETCH(double, version);
    const QRegularExpression numbers(QStringLiteral("(node|current) [0-9]+"));
    KmdBytes plain(version);
    plain.hasMesh = true;
    QVERIFY(KMDReader().readBytes(plain.bytes()));
    const QStringList expected = documentText().replaceInStrings(numbers, {});
    gSolution->newDocument();

    KMDReader reader;
    QVERIFY2(reader.readBytes(fileOfEveryKind(version)), qPrintable(reader.error()));
    const KMContainerNode *behind = KMTreeWidget::nodeOf(KMTreeWidget::flatten(gProject->tree()).at(4));
    QCOMPARE(behind->name(), QStringLiteral("behind"));
    QCOMPARE(static_cast<const KMValueNodeContainer *>(behind)->value()->toInt(), 4711);
    QCOMPARE(KMTreeWidget::parentNodeOf(behind)->name(), QStringLiteral("group"));
    QCOMPARE(documentFault(), QString());

    const int kinds = everyKindNodes();
    QVERIFY2(reader.warnings().filter(QStringLiteral("left out")).size() >= kinds,
             qPrintable(reader.warnings().join('\n')));
    QCOMPARE(reader.warnings().filter(QStringLiteral("The tag")).isEmpty(), version < 1.6);

    const QRegularExpression others(QStringLiteral("^((?!behind).)*$"));
    QCOMPARE(documentText().filter(others).replaceInStrings(numbers, {}), expected);
}

void tst_KMDSkippedBodies::cutShort()
{
    const QByteArray whole = fileOfEveryKind(4.4);
    for (int length = 0; length < whole.size(); length += 5) {
        KMDReader reader;
        QVERIFY2(!reader.readBytes(whole.left(length)), qPrintable(QString::number(length)));
        QVERIFY(isEmptyUntitledDocument());
    }
}

KM_TEST(tst_KMDSkippedBodies);

#include "tst_KMDSkippedBodies.moc"
