#pragma once

#include <QPointer>
#include <QWidget>

class QIcon;
class QListWidget;

/// A list that folds out over the left edge of a widget and dims the rest of it. A click on an entry, or Enter, chooses
/// it and folds the list in again; a click beside it, or Escape, only folds it in.
class KMDrawer : public QWidget
{
    Q_OBJECT
public:
    explicit KMDrawer(QWidget *over); ///< a child of the window of that widget

    void addEntry(const QIcon &icon, const QString &label);
    bool isOpen() const { return m_open; }
    void open();
    void close();

signals:
    void chosen(int entry); ///< in the order of adding

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void place();
    void slide(int from, int to);
    void choose();

    QWidget *m_over;
    QListWidget *m_list;
    QPointer<QWidget> m_focusBefore;
    bool m_open = false;
};
