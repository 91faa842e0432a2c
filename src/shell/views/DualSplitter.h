#pragma once

#include <QSplitter>

/// Two views with a divider between them, which keeps its share of the room when the window grows.
class DualSplitter : public QSplitter
{
    Q_OBJECT
public:
    explicit DualSplitter(Qt::Orientation orientation = Qt::Horizontal, QWidget *parent = nullptr);

    double share() const { return m_share; } ///< of the first view, 0 to 1
    void setShare(double share);             ///< brought to 0 to 1

signals:
    void shareChanged(double share); ///< the user has moved the divider

protected:
    void resizeEvent(QResizeEvent *event) override;

private:
    void place();
    int length() const;

    double m_share = 0.5;
};
