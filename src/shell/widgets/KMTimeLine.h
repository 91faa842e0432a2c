#pragma once

#include <QSlider>
#include <QVector>

/// A slider of frames that marks those with keys. A press anywhere goes there at once.
class KMTimeLine : public QSlider
{
    Q_OBJECT
public:
    explicit KMTimeLine(QWidget *parent = nullptr);

    /// In ascending order: of all bones, and of those that are selected.
    void setKeys(const QVector<int> &frames, const QVector<int> &selected);
    int xOf(int frame) const; ///< the middle of the handle there

protected:
    void paintEvent(QPaintEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    int handleWidth() const;
    void goTo(const QMouseEvent *event);
    void paintKeys(QPainter &painter, const QVector<int> &frames, const QColor &color) const;

    QVector<int> m_keys;
    QVector<int> m_selectedKeys;
};
