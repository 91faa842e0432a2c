#pragma once

#include <QWidget>

class QLabel;
class QTimer;

/// A short message on a plate over the lower edge of a widget. It goes by itself, a newer one takes its place, and the
/// mouse reaches what lies below.
class KMSnackbar : public QWidget
{
    Q_OBJECT
public:
    explicit KMSnackbar(QWidget *over); ///< a child of the window of that widget

    void showMessage(const QString &text); ///< an empty text takes the plate away
    QString message() const;

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void place();

    QWidget *m_over;
    QLabel *m_label;
    QTimer *m_timer;
};
