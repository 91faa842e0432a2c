#pragma once

#include <QDialog>
#include <QVector>

class KMPreferencesPage;
class QDialogButtonBox;
class QListWidget;
class QStackedWidget;
class QTimer;

/// The preferences: a list of pages over all settings, the display colours and the shortcuts.
/// Ok and Apply take the edited values over into gSettings, Cancel forgets them. The dialogue is made once and shown
/// again; it also owns the timer of the autosave, which has to run whether it is shown or not.
class kmpreferenceswidget : public QDialog
{
    Q_OBJECT
public:
    explicit kmpreferenceswidget(QWidget *parent = nullptr);
    ~kmpreferenceswidget() override; ///< gSettings forgets the dialogue

    void accept() override;

signals:
    void panelNameChanged(const QString &name, int index); ///< of a custom panel, 0 to 3
    void settingsApplied();                                ///< after Ok and Apply
    void autoSaveDue();

protected:
    void showEvent(QShowEvent *event) override;

private:
    void createPages();
    QDialogButtonBox *createButtons();
    void loadPages();
    void applyPages();
    void restartAutoSave();

    QListWidget *m_pageList = nullptr;
    QStackedWidget *m_stack = nullptr;
    QVector<KMPreferencesPage *> m_pages;
    QTimer *m_autoSave = nullptr;
};
