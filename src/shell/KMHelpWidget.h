#pragma once

#include <QWidget>

class QLineEdit;
class QTextBrowser;

/// The floating page that says what the keys and the mouse do. The keys are those that the actions of the menus have at
/// the moment when the page is shown.
class KMHelpWidget : public QWidget
{
    Q_OBJECT
public:
    explicit KMHelpWidget(QWidget *window);

    QString plainText() const;

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void rebuild();
    QString mouseTable(const QString &filter) const;
    QString keyTables(const QString &filter) const;

    QLineEdit *m_filter;
    QTextBrowser *m_page;
};
