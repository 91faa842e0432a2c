#include "core/KMWidgetPrompt.h"

#include "core/kmfileiodialog.h"

#include <QApplication>
#include <QColorDialog>
#include <QCursor>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
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

} // namespace

QMessageBox::StandardButton KMWidgetPrompt::message(const KMMessage &message)
{
    if (!qApp)
        return QMessageBox::NoButton;
    const UsualCursor cursor;
    QMessageBox box(message.icon, message.title.isEmpty() ? QApplication::applicationName() : message.title,
                    message.text, message.buttons, message.parent ? message.parent : QApplication::activeWindow());
    box.setInformativeText(message.informativeText);
    box.setDetailedText(message.detailedText);
    if (message.defaultButton != QMessageBox::NoButton)
        box.setDefaultButton(message.defaultButton);
    if (message.minimumSize.isValid())
        box.setMinimumSize(message.minimumSize);
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
