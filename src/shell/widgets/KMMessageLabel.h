#pragma once

#include <QLabel>

class QTimer;

/// A line of the status bar. What doesn't fit is cut with an ellipsis and stands in full in the tool tip.
class KMMessageLabel : public QLabel
{
    Q_OBJECT
public:
    /// How a message looks. Levels that are not named here look like information.
    enum Level { Information = 0, Warning = 1, Error = 2, Hint = 3, Command = 4 };

    explicit KMMessageLabel(QWidget *parent = nullptr);

    void showMessage(const QString &text, int level = Information);
    QString message() const { return m_message; }
    int level() const { return m_level; }

    void setLifetime(int milliseconds); ///< a message goes after that time; 0, as at first, keeps it
    QSize minimumSizeHint() const override;
    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QColor ink() const;

    QString m_message;
    int m_level = Information;
    QTimer *m_timer;
};
