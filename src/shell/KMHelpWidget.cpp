#include "shell/KMHelpWidget.h"

#include "core/KMDpi.h"
#include "core/KMSettings.h"

#include <QAction>
#include <QLineEdit>
#include <QTextBrowser>
#include <QVBoxLayout>

namespace {

struct MouseRow
{
    const char *gesture;
    const char *meaning;
};

constexpr MouseRow mouseRows[] = {
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Right drag"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Turn the view; with Shift in steps")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Middle drag"), QT_TRANSLATE_NOOP("KMHelpWidget", "Move the view")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Right and left drag"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Zoom; with Shift by the angle of the lens")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Shift and middle drag"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Change the angle of the lens, while the model keeps its size")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Wheel"), QT_TRANSLATE_NOOP("KMHelpWidget", "Zoom")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Drag on an icon in the upper right corner"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Move, zoom or turn the view with one button")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Click on the camera box"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Look from that side, edge or corner")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Drag on the ring of the camera box"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Turn the view")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Middle click on the camera box"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Bring the current node to the middle of the view")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Right click on the buttons for vertices, edges and faces"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Show that kind of elements alone, and all of them at the next click")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Right click on a panel of buttons"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Choose between icons and texts, and what stands on a custom panel")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Drop a file on the window"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Open a model, add a picture as a texture")},
    {QT_TRANSLATE_NOOP("KMHelpWidget", "Drop a shader or a texture on a face"),
     QT_TRANSLATE_NOOP("KMHelpWidget", "Give it to the face")},
};

QString row(const QString &first, const QString &second, const QString &third = {})
{
    return QStringLiteral("<tr><td><b>%1</b></td><td>%2</td><td>%3</td></tr>")
        .arg(first.toHtmlEscaped(), second.toHtmlEscaped(), third.toHtmlEscaped());
}

QString table(const QString &title, const QString &rows)
{
    if (rows.isEmpty())
        return {};
    return QStringLiteral("<h3>%1</h3><table cellpadding=\"3\" width=\"100%\">%2</table>")
        .arg(title.toHtmlEscaped(), rows);
}

bool matches(const QString &filter, const QStringList &texts)
{
    return texts.join(QLatin1Char('\n')).contains(filter, Qt::CaseInsensitive);
}

} // namespace

KMHelpWidget::KMHelpWidget(QWidget *window)
    : QWidget(window, Qt::Tool)
    , m_filter(new QLineEdit)
    , m_page(new QTextBrowser)
{
    setObjectName(QStringLiteral("KMHelpWidget"));
    setWindowTitle(tr("Keys and Mouse"));
    m_filter->setObjectName(QStringLiteral("helpFilter"));
    m_filter->setPlaceholderText(tr("Filter by name or keys"));
    m_filter->setClearButtonEnabled(true);
    m_page->setObjectName(QStringLiteral("helpPage"));
    connect(m_filter, &QLineEdit::textChanged, this, &KMHelpWidget::rebuild);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_filter);
    layout->addWidget(m_page);
    resize(dpiScaled(560), dpiScaled(520));
}

QString KMHelpWidget::plainText() const
{
    return m_page->toPlainText();
}

void KMHelpWidget::showEvent(QShowEvent *event)
{
    rebuild();
    QWidget::showEvent(event);
    m_filter->setFocus();
}

void KMHelpWidget::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::ActivationChange && isActiveWindow() && m_filter->text().isEmpty())
        rebuild(); // the shortcuts may have been edited meanwhile
    QWidget::changeEvent(event);
}

void KMHelpWidget::rebuild()
{
    const QString filter = m_filter->text().trimmed();
    const QString page = mouseTable(filter) + keyTables(filter);
    m_page->setHtml(page.isEmpty() ? QStringLiteral("<p>%1</p>").arg(tr("Nothing of that name.").toHtmlEscaped())
                                   : page);
}

QString KMHelpWidget::mouseTable(const QString &filter) const
{
    QString rows;
    for (const MouseRow &entry : mouseRows) {
        if (matches(filter, {tr(entry.gesture), tr(entry.meaning)}))
            rows += row(tr(entry.gesture), tr(entry.meaning));
    }
    return table(tr("Mouse"), rows);
}

/// Actions without keys come along when they are looked for: they say what a menu's entry does.
QString KMHelpWidget::keyTables(const QString &filter) const
{
    QString page;
    for (const KMActionGroup &group : gSettings->actionGroups()) {
        QString rows;
        for (const QAction *action : group.actions) {
            if (!action || (filter.isEmpty() && action->shortcut().isEmpty()))
                continue;
            const QString keys = action->shortcut().toString(QKeySequence::NativeText);
            const QString text = action->text().remove(QLatin1Char('&'));
            if (matches(filter, {keys, text, action->statusTip()}))
                rows += row(keys, text, action->statusTip());
        }
        page += table(group.title, rows);
    }
    return page;
}
