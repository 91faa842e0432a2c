#pragma once

#include <QLabel>
#include <QVariantAnimation>

class QTimer;

/// The name of a view in its corner. A new one stands out for a while and then steps back, so that it can be read but
/// doesn't lie in the way. It lets the mouse through.
class KMFadeOutLabel : public QLabel
{
    Q_OBJECT
public:
    explicit KMFadeOutLabel(QWidget *parent);

    void showText(const QString &text); ///< nothing happens for the text that it has
    void setActive(bool active);        ///< the view is the one that menus and buttons mean

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    void standOut();

    QTimer *m_hold;
    QVariantAnimation m_fade;
    double m_opacity = 1.0;
    bool m_isActive = false;
};
