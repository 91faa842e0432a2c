#include "core/KMWidgetPrompt.h"

#include <QApplication>
#include <QCheckBox>
#include <QColorDialog>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QInputDialog>
#include <QLineEdit>
#include <QSpinBox>

#include <limits>

namespace {

QSpinBox *intEditor(const KMOption &option)
{
    auto *box = new QSpinBox;
    box->setRange(int(qMax<double>(option.minimum, std::numeric_limits<int>::min())),
                  int(qMin<double>(option.maximum, std::numeric_limits<int>::max())));
    box->setValue(option.value.toInt());
    return box;
}

QDoubleSpinBox *floatEditor(const KMOption &option)
{
    auto *box = new QDoubleSpinBox;
    box->setDecimals(4);
    box->setRange(option.minimum, option.maximum);
    box->setValue(option.value.toDouble());
    return box;
}

QComboBox *choiceEditor(const KMOption &option)
{
    auto *box = new QComboBox;
    box->addItems(option.choices);
    box->setCurrentIndex(option.value.toInt());
    return box;
}

QWidget *editorOf(const KMOption &option)
{
    switch (option.kind) {
    case KMOption::Bool: {
        auto *box = new QCheckBox(option.label);
        box->setChecked(option.value.toBool());
        return box;
    }
    case KMOption::Int:
        return intEditor(option);
    case KMOption::Float:
        return floatEditor(option);
    case KMOption::Text:
        return new QLineEdit(option.value.toString());
    case KMOption::Choice:
        return choiceEditor(option);
    }
    return nullptr;
}

QVariant answerOf(const KMOption &option, const QWidget *editor)
{
    switch (option.kind) {
    case KMOption::Bool:
        return static_cast<const QCheckBox *>(editor)->isChecked();
    case KMOption::Int:
        return static_cast<const QSpinBox *>(editor)->value();
    case KMOption::Float:
        return static_cast<const QDoubleSpinBox *>(editor)->value();
    case KMOption::Text:
        return static_cast<const QLineEdit *>(editor)->text();
    case KMOption::Choice:
        return static_cast<const QComboBox *>(editor)->currentIndex();
    }
    return {};
}

} // namespace

QMessageBox::StandardButton KMWidgetPrompt::message(const KMMessage &message)
{
    if (!qApp)
        return QMessageBox::NoButton;
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
    QDialog window(form.parent ? form.parent : QApplication::activeWindow());
    window.setWindowTitle(form.title);
    auto *layout = new QFormLayout(&window);
    QVector<QWidget *> editors;
    for (const KMOption &option : std::as_const(form.options)) {
        QWidget *editor = editorOf(option);
        editor->setObjectName(option.key);
        editors << editor;
        if (option.kind == KMOption::Bool)
            layout->addRow(editor);
        else
            layout->addRow(option.label, editor);
    }
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    QObject::connect(buttons, &QDialogButtonBox::accepted, &window, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &window, &QDialog::reject);
    layout->addRow(buttons);
    if (!dialog(window))
        return false;
    for (int i = 0; i < editors.size(); ++i)
        form.options[i].value = answerOf(form.options[i], editors[i]);
    return true;
}

bool KMWidgetPrompt::dialog(QDialog &dialog)
{
    return dialog.exec() == QDialog::Accepted;
}
