#pragma once

#include <QAbstractButton>
#include <QColor>

/// A swatch that opens the colour question when it is clicked. Its right half shows the colour with its alpha, on a
/// checker.
class KMColorField : public QAbstractButton
{
    Q_OBJECT
public:
    explicit KMColorField(const QString &title, QWidget *parent = nullptr); ///< the title of the question

    void showColor(const QColor &color);
    QColor color() const { return m_color; }
    QSize sizeHint() const override;

signals:
    void committed(const QColor &color); ///< another one than was shown

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void ask();

    QString m_title;
    QColor m_color;
};
