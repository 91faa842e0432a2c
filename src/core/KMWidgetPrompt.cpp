#include "core/KMWidgetPrompt.h"

#include "core/kmfileiodialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QCursor>
#include <QFileDialog>
#include <QInputDialog>
#include <QLabel>
#include <QLayout>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScreen>
#include <QVector>

namespace {

/// The wait cursor of the work that asks stands aside while its question is open.
class UsualCursor
{
    Q_DISABLE_COPY(UsualCursor)
public:
    UsualCursor()
    {
        while (const QCursor *cursor = QApplication::overrideCursor()) {
            m_cursors.prepend(*cursor);
            QApplication::restoreOverrideCursor();
        }
    }
    ~UsualCursor()
    {
        for (const QCursor &cursor : std::as_const(m_cursors))
            QApplication::setOverrideCursor(cursor);
    }

private:
    QVector<QCursor> m_cursors; // the innermost last
};

/// More than a box can show beside its button, or a word that it can't break.
bool isLong(const QMessageBox &box, const QString &text)
{
    constexpr int certainly = 20000; // characters: that many need not be laid out
    constexpr int usualWidth = 440;  // pixels to which a box breaks lines
    if (text.size() > certainly)
        return true;
    const QSize screen = QGuiApplication::primaryScreen()->availableSize();
    const QSize shown =
        box.fontMetrics().boundingRect({0, 0, usualWidth, QWIDGETSIZE_MAX}, Qt::TextWordWrap, text).size();
    return shown.height() > screen.height() / 3 || shown.width() > qMax(usualWidth, screen.width() / 2);
}

/// A long text scrolls, in the place of the box's label, and the box stays within the screen.
void showLong(QMessageBox &box, const QString &text)
{
    constexpr QSize usual(620, 420);
    auto *page = new QPlainTextEdit(text, &box);
    page->setObjectName(QStringLiteral("longText"));
    page->setReadOnly(true);
    page->setTabChangesFocus(true);
    page->setMinimumSize(usual.boundedTo(QGuiApplication::primaryScreen()->availableSize() / 2));
    auto *label = box.findChild<QWidget *>(QStringLiteral("qt_msgbox_label"));
    delete box.layout()->replaceWidget(label, page);
    label->hide();
    box.setAccessibleDescription(text); // which is the label's elsewhere
}

} // namespace

QMessageBox::StandardButton KMWidgetPrompt::message(const KMMessage &message)
{
    if (!qApp)
        return QMessageBox::NoButton;
    const UsualCursor cursor;
    QMessageBox box(message.icon, message.title.isEmpty() ? QApplication::applicationName() : message.title, QString(),
                    message.buttons, message.parent ? message.parent : QApplication::activeWindow());
    const bool scrolls = isLong(box, message.text);
    if (!scrolls)
        box.setText(message.text);
    box.setInformativeText(message.informativeText);
    const QList<QLabel *> labels = box.findChildren<QLabel *>();
    for (QLabel *label : labels)
        label->setTextFormat(Qt::PlainText); // texts and names of files aren't to be taken for markup
    box.setDetailedText(message.detailedText);
    if (message.defaultButton != QMessageBox::NoButton)
        box.setDefaultButton(message.defaultButton);
    if (message.minimumSize.isValid())
        box.setMinimumSize(message.minimumSize);
    if (scrolls)
        showLong(box, message.text); // last: whatever else is set lays the box out anew
    return QMessageBox::StandardButton(box.exec());
}

QString KMWidgetPrompt::openFile(const KMFileRequest &request)
{
    QFileDialog dialog(request.parent, request.title, request.directory, request.filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString KMWidgetPrompt::saveFile(const KMFileRequest &request)
{
    return QFileDialog::getSaveFileName(request.parent, request.title, request.directory, request.filter);
}

QString KMWidgetPrompt::folder(const KMFileRequest &request)
{
    return QFileDialog::getExistingDirectory(request.parent, request.title, request.directory);
}

QColor KMWidgetPrompt::color(const QColor &initial, const QString &title, QWidget *parent)
{
    return QColorDialog::getColor(initial, parent, title, QColorDialog::ShowAlphaChannel);
}

QString KMWidgetPrompt::text(const QString &title, const QString &label, const QString &initial, QWidget *parent,
                             bool *accepted)
{
    return QInputDialog::getText(parent, title, label, QLineEdit::Normal, initial, accepted);
}

bool KMWidgetPrompt::options(KMOptionForm &form)
{
    kmfileiodialog window(form);
    if (!dialog(window))
        return false;
    const QVector<QVariant> answers = window.answers();
    for (int i = 0; i < answers.size(); ++i)
        form.options[i].value = answers.at(i);
    return true;
}

bool KMWidgetPrompt::dialog(QDialog &dialog)
{
    const UsualCursor cursor;
    return dialog.exec() == QDialog::Accepted;
}
