#include "core/KMSettings.h"
#include "shell/kmpreferenceswidget.h"
#include "support/ScriptedPrompt.h"
#include "support/TestRegistry.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFontComboBox>
#include <QKeySequenceEdit>
#include <QLineEdit>
#include <QPushButton>
#include <QSignalSpy>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <QTreeWidget>

class tst_kmpreferenceswidget : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup();
    void openingAndAcceptingChangesNothing();
    void editsReachTheSettings();
    void cancelForgets();
    void editorShowsAndChangesEveryRow();
    void foreignChangesSurviveAnOpenDialogue();
    void dependentFieldsAreDisabled();
    void backupFolder();
    void colors();
    void colorReset();
    void shortcutReachesTheAction();
    void shortcutIsRefused_data();
    void shortcutIsRefused();
    void clearedShortcutIsFree();
    void deletedActionIsHarmless();
    void autoSaveTimer();
    void dialogueIsForgotten();

private:
    template <class Widget>
    Widget *find(const char *name) const;
    void press(QDialogButtonBox::StandardButton button) const;
    void selectAction(const QString &text) const;
    void typeKeys(const QString &keys) const;
    QStringList snapshot() const;

    std::unique_ptr<QTemporaryDir> m_dir;
    std::unique_ptr<KMSettings> m_settings;
    std::unique_ptr<kmpreferenceswidget> m_dialog;
    std::unique_ptr<QObject> m_actions;
    QAction *m_open = nullptr;
    QAction *m_undo = nullptr;
    std::unique_ptr<ScriptedPrompt> m_prompt;
};

void tst_kmpreferenceswidget::init()
{
    m_dir = std::make_unique<QTemporaryDir>();
    m_settings = std::make_unique<KMSettings>(m_dir->path());
    gSettings = m_settings.get();
    m_settings->load();
    m_actions = std::make_unique<QObject>();
    m_open = new QAction(QStringLiteral("&Open"), m_actions.get());
    m_open->setShortcut(QKeySequence(QStringLiteral("Ctrl+O")));
    m_undo = new QAction(QStringLiteral("Undo"), m_actions.get());
    m_settings->setActionGroup(QStringLiteral("File(&F)"), {m_open});
    m_settings->setActionGroup(QStringLiteral("Edit(&E)"), {m_undo, m_open});
    m_prompt = std::make_unique<ScriptedPrompt>();
    KMPrompt::setCurrent(m_prompt.get());
    m_dialog = std::make_unique<kmpreferenceswidget>();
    m_dialog->show();
}

void tst_kmpreferenceswidget::cleanup()
{
    m_dialog.reset();
    KMPrompt::setCurrent(nullptr);
    gSettings = nullptr;
    m_settings.reset();
}

template <class Widget>
Widget *tst_kmpreferenceswidget::find(const char *name) const
{
    return m_dialog->findChild<Widget *>(QLatin1String(name));
}

void tst_kmpreferenceswidget::press(QDialogButtonBox::StandardButton button) const
{
    find<QDialogButtonBox>("buttons")->button(button)->click();
}

void tst_kmpreferenceswidget::selectAction(const QString &text) const
{
    auto *tree = find<QTreeWidget>("shortcutTree");
    const QList<QTreeWidgetItem *> found = tree->findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
    QVERIFY(!found.isEmpty());
    tree->setCurrentItem(found.first());
}

void tst_kmpreferenceswidget::typeKeys(const QString &keys) const
{
    auto *edit = find<QKeySequenceEdit>("shortcutEdit");
    edit->setKeySequence(QKeySequence(keys));
    emit edit->editingFinished();
}

/// All settings as text, to see whether any has changed.
QStringList tst_kmpreferenceswidget::snapshot() const
{
    QStringList lines;
    for (const KMSettingsRow &row : settingsRows())
        lines << QLatin1String(row.key) + QLatin1Char('=') + row.value(*m_settings).toString();
    for (const QColor &color : m_settings->displayColors)
        lines << color.name(QColor::HexArgb);
    return lines;
}

/// Values that an editor shows rounded, or has no entry for, must come through untouched.
void tst_kmpreferenceswidget::openingAndAcceptingChangesNothing()
{
    m_dialog->hide();
    m_settings->glCore = 2;
    m_settings->glSamples = 6;
    m_settings->startup = 5;
    m_settings->cameraRotateLimit = 8;
    m_settings->smoothTexture = 3;
    m_settings->language = QLocale::German;
    m_settings->zoomRatio = 0.123456f;
    m_settings->fontType = QStringLiteral("No Such Family");
    const QStringList before = snapshot();
    m_dialog->show();
    press(QDialogButtonBox::Ok);
    QCOMPARE(snapshot(), before);
    QVERIFY(!m_dialog->isVisible());
}

void tst_kmpreferenceswidget::editsReachTheSettings()
{
    QSignalSpy applied(m_dialog.get(), &kmpreferenceswidget::settingsApplied);
    QSignalSpy zRev(m_settings.get(), &KMSettings::OPHandleZRevCHanged);
    auto *undo = find<QComboBox>("Global/UndoCount");
    undo->setCurrentIndex(undo->findText(QStringLiteral("256")));
    find<QCheckBox>("Operation/HandleZRev")->click();
    QCOMPARE(m_settings->undoCount, 32);

    press(QDialogButtonBox::Apply);
    QVERIFY(m_dialog->isVisible());
    press(QDialogButtonBox::Ok);
    QVERIFY(!m_dialog->isVisible());
    QCOMPARE(m_settings->undoCount, 256);
    QCOMPARE(m_settings->handleZRev, true);
    QCOMPARE(zRev.count(), 1);
    QCOMPARE(applied.count(), 2);
}

void tst_kmpreferenceswidget::cancelForgets()
{
    const QStringList before = snapshot();
    m_prompt->colors = {QColor(1, 2, 3, 4)};
    auto *list = find<QTreeWidget>("colorList");
    list->setCurrentItem(list->topLevelItem(0));
    find<QPushButton>("colorEdit")->click();
    find<QSpinBox>("Global/FontSize")->setValue(20);
    selectAction(QStringLiteral("Undo"));
    typeKeys(QStringLiteral("Ctrl+Z"));
    press(QDialogButtonBox::Cancel);
    QCOMPARE(snapshot(), before);
    QVERIFY(m_undo->shortcut().isEmpty());

    m_dialog->show();
    QCOMPARE(find<QSpinBox>("Global/FontSize")->value(), m_settings->fontSize);
    press(QDialogButtonBox::Ok);
    QCOMPARE(snapshot(), before);
    QVERIFY(m_undo->shortcut().isEmpty());
}

/// Each editor is moved off what it shows; exactly the setting of its key has to follow.
void tst_kmpreferenceswidget::editorShowsAndChangesEveryRow()
{
    for (const KMSettingsRow &row : settingsRows()) {
        const QVariant before = row.value(*m_settings);
        auto *widget = find<QWidget>(row.key);
        if (auto *check = qobject_cast<QCheckBox *>(widget))
            check->toggle();
        else if (auto *spin = qobject_cast<QSpinBox *>(widget))
            spin->setValue(spin->value() + 1);
        else if (auto *number = qobject_cast<QDoubleSpinBox *>(widget))
            number->setValue(number->value() + number->singleStep());
        else if (auto *font = qobject_cast<QFontComboBox *>(widget))
            font->setEditText(QStringLiteral("Other"));
        else if (auto *combo = qobject_cast<QComboBox *>(widget))
            combo->setCurrentIndex((combo->currentIndex() + 1) % combo->count());
        else if (auto *line = qobject_cast<QLineEdit *>(widget))
            line->setText(QStringLiteral("other"));
        const QStringList all = snapshot();
        press(QDialogButtonBox::Apply);
        QVERIFY2(row.value(*m_settings) != before, row.key);
        int changed = 0;
        const QStringList now = snapshot();
        for (int i = 0; i < now.size(); ++i)
            changed += now.at(i) != all.at(i);
        QVERIFY2(changed == 1, row.key);
    }
}

void tst_kmpreferenceswidget::foreignChangesSurviveAnOpenDialogue()
{
    find<QSpinBox>("Global/FontSize")->setValue(11);
    m_settings->gradBG = 0;
    m_settings->setDisplayColor(DP_EDGE, Qt::green);
    press(QDialogButtonBox::Ok);
    QCOMPARE(m_settings->fontSize, 11);
    QCOMPARE(m_settings->gradBG, 0);
    QCOMPARE(m_settings->displayColor(DP_EDGE), QColor(0, 255, 0));
}

void tst_kmpreferenceswidget::dependentFieldsAreDisabled()
{
    QVERIFY(find<QWidget>("AutoSave/Interval")->isEnabled());
    find<QCheckBox>("AutoSave/EnableAutoSave")->click();
    QVERIFY(!find<QWidget>("AutoSave/Interval")->isEnabled());
    QVERIFY(!find<QWidget>("AutoSave/ShowDialog")->isEnabled());
    QVERIFY(!find<QWidget>("Backup/BackupDir")->isEnabled());
    find<QCheckBox>("Backup/EnableBackup")->click();
    QVERIFY(find<QWidget>("Backup/BackupDir")->isEnabled());
}

void tst_kmpreferenceswidget::backupFolder()
{
    find<QCheckBox>("Backup/EnableBackup")->click();
    auto *pick = find<QToolButton>("Backup/BackupDir/pick");
    pick->click(); // cancelled
    QCOMPARE(find<QLineEdit>("Backup/BackupDir")->text(), QStringLiteral("backup"));
    QCOMPARE(m_prompt->fileRequests.at(0).directory, m_dir->filePath(QStringLiteral("backup")));
    m_prompt->paths = QStringList{QStringLiteral("/some/where")};
    pick->click();
    press(QDialogButtonBox::Ok);
    QCOMPARE(m_settings->backupDir, QStringLiteral("/some/where"));
}

void tst_kmpreferenceswidget::colors()
{
    QSignalSpy spy(m_settings.get(), &KMSettings::DPColorChanged);
    auto *list = find<QTreeWidget>("colorList");
    QVERIFY(!find<QPushButton>("colorEdit")->isEnabled());
    const QList<QTreeWidgetItem *> found = list->findItems(QStringLiteral("Selected FaceLine"), Qt::MatchExactly);
    QCOMPARE(found.size(), 1);
    list->setCurrentItem(found.first());
    m_prompt->colors = {QColor(10, 20, 30, 40), QColor()};
    find<QPushButton>("colorEdit")->click();
    find<QPushButton>("colorEdit")->click(); // cancelled
    QCOMPARE(m_settings->displayColor(DP_SEL_FACE_E), QColor(128, 96, 96));
    press(QDialogButtonBox::Ok);
    QCOMPARE(m_settings->displayColor(DP_SEL_FACE_E), QColor(10, 20, 30, 40));
    QCOMPARE(m_settings->displayColor(DP_ACT_BONE), QColor(0, 255, 178));
    QCOMPARE(spy.count(), 1);
}

void tst_kmpreferenceswidget::colorReset()
{
    m_dialog->hide();
    for (const int index : {int(DP_BG), int(DP_EDGE), int(DP_TOOL_EDGE)})
        m_settings->setDisplayColor(index, Qt::magenta);
    m_dialog->show();
    auto *list = find<QTreeWidget>("colorList");
    list->setCurrentItem(list->topLevelItem(1));
    find<QPushButton>("colorReset")->click();
    press(QDialogButtonBox::Apply);
    QCOMPARE(m_settings->displayColor(DP_BG), QColor(127, 127, 127));
    QCOMPARE(m_settings->displayColor(DP_EDGE), QColor(Qt::magenta));
    find<QPushButton>("colorResetAll")->click();
    press(QDialogButtonBox::Ok);
    QVERIFY(m_settings->displayColors == defaultDisplayColors());
}

void tst_kmpreferenceswidget::shortcutReachesTheAction()
{
    selectAction(QStringLiteral("Undo"));
    typeKeys(QStringLiteral("Ctrl+Shift+U"));
    QVERIFY(m_undo->shortcut().isEmpty());
    press(QDialogButtonBox::Apply);
    QCOMPARE(m_undo->shortcut(), QKeySequence(QStringLiteral("Ctrl+Shift+U")));
    QCOMPARE(m_open->shortcut(), QKeySequence(QStringLiteral("Ctrl+O")));

    // Typed right before Ok, while the editor still waits for another chord.
    selectAction(QStringLiteral("Undo"));
    find<QKeySequenceEdit>("shortcutEdit")->setKeySequence(QKeySequence(Qt::Key_F7));
    press(QDialogButtonBox::Ok);
    QCOMPARE(m_undo->shortcut(), QKeySequence(Qt::Key_F7));
    QVERIFY(m_prompt->messages.isEmpty());
}

void tst_kmpreferenceswidget::shortcutIsRefused_data()
{
    QTest::addColumn<QString>("taken");
    QTest::addColumn<QKeySequence>("keys");
    QTest::addColumn<QString>("reason");

    QTest::newRow("same keys") << "Ctrl+O" << QKeySequence("Ctrl+O") << "duplicate:Open";
    QTest::newRow("hides a longer one") << "Ctrl+K, Ctrl+O" << QKeySequence("Ctrl+K") << "duplicate:Open";
    QTest::newRow("hidden by a shorter one") << "Ctrl+K" << QKeySequence("Ctrl+K, Ctrl+O") << "duplicate:Open";
    QTest::newRow("only a modifier") << "Ctrl+O" << QKeySequence(Qt::CTRL + Qt::Key_Shift) << QString();
    QTest::newRow("no key") << "Ctrl+O" << QKeySequence(Qt::Key_unknown) << QString();
}

void tst_kmpreferenceswidget::shortcutIsRefused()
{
    QFETCH(QString, taken);
    QFETCH(QKeySequence, keys);
    QFETCH(QString, reason);
    m_dialog->hide();
    m_open->setShortcut(QKeySequence(taken));
    m_undo->setShortcut(QKeySequence(Qt::Key_F2));
    m_dialog->show();
    selectAction(QStringLiteral("Undo"));
    auto *edit = find<QKeySequenceEdit>("shortcutEdit");
    edit->setKeySequence(keys);
    emit edit->editingFinished();
    QCOMPARE(m_prompt->messages.size(), 1);
    QCOMPARE(m_prompt->messages.at(0).text, QStringLiteral("Invalid Keys"));
    QCOMPARE(m_prompt->messages.at(0).informativeText, reason);
    QCOMPARE(edit->keySequence(), QKeySequence(Qt::Key_F2));
    press(QDialogButtonBox::Ok);
    QCOMPARE(m_undo->shortcut(), QKeySequence(Qt::Key_F2));
    QCOMPARE(m_open->shortcut(), QKeySequence(taken));
}

/// The check goes by what the actions are about to have, not by what they have.
void tst_kmpreferenceswidget::clearedShortcutIsFree()
{
    selectAction(QStringLiteral("Open"));
    find<QPushButton>("shortcutClear")->click();
    selectAction(QStringLiteral("Undo"));
    typeKeys(QStringLiteral("Ctrl+O"));
    QVERIFY(m_prompt->messages.isEmpty());
    press(QDialogButtonBox::Ok);
    QVERIFY(m_open->shortcut().isEmpty());
    QCOMPARE(m_undo->shortcut(), QKeySequence(QStringLiteral("Ctrl+O")));
}

void tst_kmpreferenceswidget::deletedActionIsHarmless()
{
    selectAction(QStringLiteral("Open"));
    typeKeys(QStringLiteral("Ctrl+P"));
    delete m_open;
    selectAction(QStringLiteral("Undo"));
    typeKeys(QStringLiteral("Ctrl+P"));
    press(QDialogButtonBox::Ok);
    QCOMPARE(m_undo->shortcut(), QKeySequence(QStringLiteral("Ctrl+P")));
    m_dialog->show();
    QCOMPARE(find<QTreeWidget>("shortcutTree")->findItems(QStringLiteral("Open"), Qt::MatchRecursive).size(), 0);
}

void tst_kmpreferenceswidget::autoSaveTimer()
{
    auto *timer = find<QTimer>("autoSaveTimer");
    QVERIFY(timer->isActive());
    QCOMPARE(timer->interval(), 60 * 60000);
    QSignalSpy due(m_dialog.get(), &kmpreferenceswidget::autoSaveDue);
    timer->start(0);
    QTRY_VERIFY(due.count() > 0);

    find<QSpinBox>("AutoSave/Interval")->setValue(5);
    press(QDialogButtonBox::Cancel);
    QCOMPARE(timer->interval(), 0);
    m_dialog->show();
    find<QSpinBox>("AutoSave/Interval")->setValue(5);
    press(QDialogButtonBox::Ok);
    QCOMPARE(timer->interval(), 5 * 60000);

    m_dialog->show();
    find<QCheckBox>("AutoSave/EnableAutoSave")->click();
    press(QDialogButtonBox::Ok);
    QVERIFY(!timer->isActive());
    QVERIFY(!kmpreferenceswidget().findChild<QTimer *>(QStringLiteral("autoSaveTimer"))->isActive());
}

void tst_kmpreferenceswidget::dialogueIsForgotten()
{
    m_settings->preferences = m_dialog.get();
    kmpreferenceswidget().accept(); // another one leaves the pointer alone
    QCOMPARE(m_settings->preferences, m_dialog.get());
    m_dialog.reset();
    QVERIFY(!m_settings->preferences);
}

KM_TEST(tst_kmpreferenceswidget);

#include "tst_kmpreferenceswidget.moc"
