#include "shell/kmpreferenceswidget.h"

#include "core/KMDpi.h"
#include "core/KMSettings.h"
#include "shell/KMStyle.h"
#include "shell/preferences/KMFormPage.h"
#include "shell/preferences/KMSettingField.h"
#include "shell/preferences/KMShortcutPage.h"
#include "shell/preferences/KMViewColorPage.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QListWidget>
#include <QPushButton>
#include <QShowEvent>
#include <QStackedWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <utility>

namespace {

constexpr int MillisecondsPerMinute = 60000;

struct PageRow
{
    const char *title;
    KMPreferencesPage *(*make)();
};

template <QVector<KMSettingField> (*Fields)()>
KMPreferencesPage *form()
{
    return new KMFormPage(Fields());
}

template <class Page>
KMPreferencesPage *page()
{
    return new Page;
}

constexpr PageRow pageRows[] = {
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "Global"), &form<globalFields>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "AutoSave"), &form<autoSaveFields>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "Backup"), &form<backupFields>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "Operation"), &form<operationFields>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "Navigation"), &form<navigationFields>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "Pen & Touch"), &form<penFields>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "OpenGL"), &form<openGLFields>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "View Color"), &page<KMViewColorPage>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "Shortcuts"), &page<KMShortcutPage>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "UV Operation"), &form<uvFields>},
    {QT_TRANSLATE_NOOP("kmpreferenceswidget", "Custom Panel"), &form<customPanelFields>},
};

QStringList panelNames(const KMSettingsValues &values)
{
    return {values.customPanel1Name, values.customPanel2Name, values.customPanel3Name, values.customPanel4Name};
}

} // namespace

kmpreferenceswidget::kmpreferenceswidget(QWidget *parent)
    : QDialog(parent)
{
    setObjectName(QStringLiteral("kmpreferenceswidget"));
    setWindowTitle(tr("Preferences"));
    createPages();

    auto *body = new QHBoxLayout;
    body->addWidget(m_pageList);
    body->addWidget(m_stack, 1);
    auto *layout = new QVBoxLayout(this);
    layout->addLayout(body, 1);
    layout->addWidget(createButtons());
    resize(dpiScaled(720), dpiScaled(560));

    m_autoSave = new QTimer(this);
    m_autoSave->setObjectName(QStringLiteral("autoSaveTimer"));
    connect(m_autoSave, &QTimer::timeout, this, &kmpreferenceswidget::autoSaveDue);
    restartAutoSave();
}

kmpreferenceswidget::~kmpreferenceswidget()
{
    if (gSettings && gSettings->preferences == this)
        gSettings->preferences = nullptr;
}

void kmpreferenceswidget::createPages()
{
    m_pageList = new QListWidget(this);
    m_pageList->setObjectName(QStringLiteral("pageList"));
    m_pageList->setFixedWidth(dpiScaled(140));
    m_pageList->setSpacing(dpiScaled(3));
    m_stack = new QStackedWidget(this);
    m_stack->setObjectName(QStringLiteral("pages"));
    for (const PageRow &row : pageRows) {
        KMPreferencesPage *made = row.make();
        made->setObjectName(QLatin1String(row.title));
        m_pages.append(made);
        m_stack->addWidget(made);
        m_pageList->addItem(tr(row.title));
    }
    connect(m_pageList, &QListWidget::currentRowChanged, m_stack, &QStackedWidget::setCurrentIndex);
    m_pageList->setCurrentRow(0);
}

QDialogButtonBox *kmpreferenceswidget::createButtons()
{
    auto *buttons =
        new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel | QDialogButtonBox::Apply, this);
    buttons->setObjectName(QStringLiteral("buttons"));
    connect(buttons, &QDialogButtonBox::accepted, this, &kmpreferenceswidget::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &kmpreferenceswidget::reject);
    connect(buttons->button(QDialogButtonBox::Apply), &QPushButton::clicked, this, &kmpreferenceswidget::applyPages);
    return buttons;
}

void kmpreferenceswidget::showEvent(QShowEvent *event)
{
    if (!event->spontaneous())
        loadPages();
    QDialog::showEvent(event);
}

void kmpreferenceswidget::accept()
{
    applyPages();
    QDialog::accept();
}

void kmpreferenceswidget::loadPages()
{
    if (!gSettings)
        return;
    for (KMPreferencesPage *shown : std::as_const(m_pages))
        shown->load(gSettings->values());
}

void kmpreferenceswidget::applyPages()
{
    if (!gSettings)
        return;
    const QStringList oldNames = panelNames(gSettings->values());
    KMSettingsValues edited = gSettings->values();
    for (KMPreferencesPage *shown : std::as_const(m_pages))
        shown->store(edited);
    gSettings->apply(edited);

    if (auto *style = qobject_cast<KMStyle *>(QApplication::style()))
        style->applyTheme(gSettings->theme);
    restartAutoSave();
    const QStringList names = panelNames(gSettings->values());
    for (int i = 0; i < names.size(); ++i) {
        if (names.at(i) != oldNames.at(i))
            emit panelNameChanged(names.at(i), i);
    }
    loadPages();
    emit settingsApplied();
}

void kmpreferenceswidget::restartAutoSave()
{
    m_autoSave->stop();
    if (gSettings && gSettings->enableAutoSave)
        m_autoSave->start(gSettings->autoSaveInterval * MillisecondsPerMinute);
}
