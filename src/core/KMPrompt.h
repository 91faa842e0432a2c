#pragma once

#include <QColor>
#include <QMessageBox>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <QVector>

class QDialog;
class QWidget;

/// What a message box shows and which answers it offers.
struct KMMessage
{
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title;
    QString text;
    QString informativeText = {};
    QString detailedText = {};
    QMessageBox::StandardButtons buttons = QMessageBox::Ok;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
    QWidget *parent = nullptr;
    QSize minimumSize = {}; ///< of the box, window pixels; empty leaves it to the style
};

/// What a file dialogue shows. The filter is in the form of QFileDialog.
struct KMFileRequest
{
    QString title;
    QString directory;
    QString filter = {};
    QWidget *parent = nullptr;
};

/// One row of an option dialogue.
struct KMOption
{
    enum Kind { Bool, Int, Float, Text, Choice };

    QString key; ///< what the batch program's switch is called: "import-scale" for --import-scale
    QString label;
    Kind kind = Bool;
    QVariant value; ///< the default on the way in, the answer on the way out; the index for a choice
    double minimum = -1e9;
    double maximum = 1e9;
    QStringList choices = {};
    double step = 1.0;     ///< of the arrows of a Float
    QString unit = {};     ///< behind the number of a Float
    bool isEnabled = true; ///< false: the row is shown, its value stays
};

/// An option dialogue of a reader, a writer or a command, described so that it needs no window.
struct KMOptionForm
{
    QString title;
    QVector<KMOption> options;
    QWidget *parent = nullptr;

    QVariant value(const QString &key) const; ///< invalid when there is no such row
};

/// The one place through which the program asks its user anything.
/// The window program shows dialogues, tests answer from a script, the batch program answers with
/// defaults or its switches; nothing else calls exec() on a dialogue.
class KMPrompt
{
    Q_DISABLE_COPY(KMPrompt)
public:
    KMPrompt() = default;
    virtual ~KMPrompt() = default;

    static KMPrompt &current(); ///< the dialogues of KMWidgetPrompt until another one is set
    static KMPrompt *
    setCurrent(KMPrompt *prompt); ///< takes no ownership; returns what was set before, null for the default

    /// Shows a message and returns the button that was pressed; a closed box gives the escape button.
    virtual QMessageBox::StandardButton message(const KMMessage &message) = 0;
    virtual QString openFile(const KMFileRequest &request) = 0; ///< an existing file; empty when cancelled
    virtual QString saveFile(const KMFileRequest &request) = 0; ///< empty when cancelled
    virtual QString folder(const KMFileRequest &request) = 0;   ///< empty when cancelled
    virtual QColor color(const QColor &initial, const QString &title, QWidget *parent) = 0; ///< invalid when cancelled
    virtual QString text(const QString &title, const QString &label, const QString &initial, QWidget *parent,
                         bool *accepted) = 0;
    virtual bool options(KMOptionForm &form) = 0; ///< false when cancelled; the values are then as before
    virtual bool dialog(QDialog &dialog) = 0;     ///< runs any other dialogue modally; true when it was accepted

    void warn(const QString &text, QWidget *parent = nullptr); ///< a plain warning with an Ok button
};

/// Sets a prompt for as long as it lives.
class KMPromptScope
{
    Q_DISABLE_COPY(KMPromptScope)
public:
    explicit KMPromptScope(KMPrompt *prompt)
        : m_previous(KMPrompt::setCurrent(prompt))
    {
    }
    ~KMPromptScope() { KMPrompt::setCurrent(m_previous); }

private:
    KMPrompt *m_previous;
};
