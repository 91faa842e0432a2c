#include "shell/KMSelfTest.h"

#include "core/KMOutput.h"
#include "core/KMSolution.h"
#include "shell/KMTestFault.h"

#include <QApplication>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QMainWindow>
#include <QMenuBar>
#include <QMessageBox>
#include <QMetaEnum>
#include <QOpenGLContext>
#include <QPushButton>
#include <QSurfaceFormat>
#include <QTextEdit>
#include <QTimer>

#include <cstdio>

namespace {

void print(const QJsonObject &object)
{
    std::puts(QJsonDocument(object).toJson(QJsonDocument::Compact).constData());
    std::fflush(stdout);
}

QMetaEnum buttonNames()
{
    const QMetaObject &boxes = QMessageBox::staticMetaObject;
    return boxes.enumerator(boxes.indexOfEnumerator("StandardButtons"));
}

QString nameOf(QMessageBox::StandardButton button)
{
    return QString::fromLatin1(buttonNames().valueToKey(button));
}

QJsonArray buttonsOf(const QMessageBox &box)
{
    QJsonArray names;
    const QList<QAbstractButton *> buttons = box.buttons();
    for (QAbstractButton *button : buttons) {
        if (box.standardButton(button) != QMessageBox::NoButton)
            names << nameOf(box.standardButton(button));
    }
    return names;
}

QJsonArray menuTitles(const QWidget *window)
{
    QJsonArray titles;
    const auto *mainWindow = qobject_cast<const QMainWindow *>(window);
    const QMenuBar *bar = mainWindow ? mainWindow->findChild<QMenuBar *>() : nullptr;
    const QList<QAction *> actions = bar ? bar->actions() : QList<QAction *>();
    for (const QAction *action : actions)
        titles << action->text();
    return titles;
}

} // namespace

KMSelfTest::KMSelfTest(QObject *parent)
    : QObject(parent)
{
}

KMOperatingSystem KMSelfTest::operatingSystem()
{
    const QString refused = qEnvironmentVariable("KELMO_TEST_SYSTEM");
    return refused.isEmpty() ? ::operatingSystem() : KMOperatingSystem{refused, false};
}

unsigned KMSelfTest::watchdogSeconds()
{
    return unsigned(qMax(0, qEnvironmentVariableIntValue("KELMO_TEST_WATCHDOG")));
}

void KMSelfTest::answerBoxes()
{
    if (!qEnvironmentVariableIsSet("KELMO_TEST_ANSWERS"))
        return;
    m_answers = qEnvironmentVariable("KELMO_TEST_ANSWERS").split(QLatin1Char(','), Qt::SkipEmptyParts);
    auto *timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &KMSelfTest::answerBox);
    timer->start(20);
}

void KMSelfTest::answerBox()
{
    const auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    auto *standard = qobject_cast<QPushButton *>(box->defaultButton());
    print({{"box", box->text().isEmpty() ? box->accessibleDescription() : box->text()},
           {"detail", box->detailedText()},
           {"information", box->informativeText()},
           {"buttons", buttonsOf(*box)},
           {"default", standard ? nameOf(box->standardButton(standard)) : QString()},
           {"icon", int(box->icon())}});

    const QByteArray wanted = m_answers.isEmpty() ? QByteArray() : m_answers.takeFirst().toLatin1();
    const int value = buttonNames().keyToValue(wanted.constData());
    QAbstractButton *button = value >= 0 ? box->button(QMessageBox::StandardButton(value)) : standard;
    if (!button)
        button = box->buttons().value(0);
    if (button)
        button->click();
}

void KMSelfTest::prepare()
{
    KMTestFault::prepare(qEnvironmentVariable("KELMO_TEST_FAULT"));
}

void KMSelfTest::begin(QWidget *window)
{
    if (qEnvironmentVariableIsSet("KELMO_TEST_REPORT"))
        QTimer::singleShot(0, window, [this, window] { report(window); });
    const QString fault = qEnvironmentVariable("KELMO_TEST_FAULT");
    if (!fault.isEmpty())
        QTimer::singleShot(50, qApp, [fault] { KMTestFault::raise(fault); });
    if (qEnvironmentVariableIsSet("KELMO_TEST_CLOSE"))
        QTimer::singleShot(50, window, &QWidget::close);
}

void KMSelfTest::report(const QWidget *window) const
{
    const QSurfaceFormat format = QSurfaceFormat::defaultFormat();
    print({{"title", window->windowTitle()},
           {"file", gSolution->fileName()},
           {"modified", gSolution->isModified()},
           {"font", QApplication::font().family()},
           {"gl", QStringLiteral("%1.%2").arg(format.majorVersion()).arg(format.minorVersion())},
           {"profile", int(format.profile())},
           {"samples", format.samples()},
           {"sharing", QOpenGLContext::globalShareContext() && QOpenGLContext::globalShareContext()->isValid()},
           {"cancel", QCoreApplication::translate("QPlatformTheme", "Cancel")},
           {"menus", menuTitles(window)},
           {"log", gOutputEdit ? gOutputEdit->toPlainText() : gMessageBuffer}});
}
