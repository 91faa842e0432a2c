#include "core/KMWidgetPrompt.h"
#include "support/TestRegistry.h"

#include <QApplication>
#include <QLabel>
#include <QPlainTextEdit>
#include <QScreen>
#include <QTest>
#include <QTimer>

/// Boxes as a user sees them.
class tst_KMWidgetPrompt : public QObject
{
    Q_OBJECT
private slots:
    void texts_data();
    void texts();
};

void tst_KMWidgetPrompt::texts_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("scrolls");
    const QString line = QStringLiteral("Don't use this model for anything but dancing.\n");
    QTest::newRow("one line") << line.trimmed() << false;
    QTest::newRow("markup is text") << QStringLiteral("<b>one</b>\ntwo") << false;
    QTest::newRow("many lines") << line.repeated(200) << true;
    QTest::newRow("one long line") << line.trimmed().repeated(200) << true;
    const QString wide = QString(125, QChar(0x3042)); // few characters, which take much room
    QTest::newRow("Japanese line") << wide << false;
    QTest::newRow("Japanese paragraphs") << (wide + QLatin1Char('\n')).repeated(15) << true;
    QTest::newRow("one endless word") << QString(1900, QLatin1Char('x')) << true;
    QTest::newRow("a word wider than the screen") << QString(300, QLatin1Char('x')) << true;
}

/// Whatever a file's maker wrote can be read to its end, as it was written, and the button is within reach.
void tst_KMWidgetPrompt::texts()
{
    QFETCH(QString, text);
    QFETCH(bool, scrolls);
    QString shown;
    QString described;
    bool isPage = false;
    bool isPlain = false;
    QSize size;
    QTimer::singleShot(0, [&] {
        auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
        if (!box)
            return;
        size = box->frameGeometry().size();
        described = box->text() + box->accessibleDescription();
        const auto *information = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_informativelabel"));
        isPlain = information && information->textFormat() == Qt::PlainText;
        if (const auto *page = box->findChild<QPlainTextEdit *>()) {
            isPage = page->isVisible() && page->isReadOnly() && page->height() > 100;
            shown = page->toPlainText();
        } else {
            const auto *label = box->findChild<QLabel *>(QStringLiteral("qt_msgbox_label"));
            shown = label->textFormat() == Qt::PlainText ? label->text() : QString();
        }
        box->button(QMessageBox::Ok)->click();
    });
    KMMessage message;
    message.title = QStringLiteral("Model");
    message.text = text;
    message.informativeText = QStringLiteral("/tmp/<b>folder");
    QCOMPARE(KMWidgetPrompt().message(message), QMessageBox::Ok);
    QCOMPARE(shown, text);
    QCOMPARE(described, text);
    QCOMPARE(isPage, scrolls);
    QVERIFY(isPlain);
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    QVERIFY(size.width() <= screen.width() && size.height() <= screen.height());
}

KM_TEST(tst_KMWidgetPrompt);
#include "tst_KMWidgetPrompt.moc"
