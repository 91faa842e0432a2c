#pragma once

#include <QDoubleSpinBox>

class QTimer;

/// A number that is handed over once for each edit: at Enter, when the focus leaves, or shortly after the last of a
/// row of steps by wheel, arrows or keys, so that a held arrow makes one edit and not fifty.
class KMNumberField : public QDoubleSpinBox
{
    Q_OBJECT
public:
    enum class Kind { Float, Whole };

    explicit KMNumberField(Kind kind = Kind::Float, QWidget *parent = nullptr);

    void showNumber(double number); ///< what the model holds; takes no part in a running edit
    void showBlank(); ///< for what holds several: nothing is shown, and any number that is entered is handed over
    double shownNumber() const { return m_exact; } ///< as given to showNumber(), not rounded to the digits shown
    void commit();
    void drop(); ///< what is being edited is not handed over

    QString textFromValue(double value) const override; ///< without zeros at the end
    void stepBy(int steps) override;

signals:
    void committed(double number);

protected:
    void wheelEvent(QWheelEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void onEdited();

    double m_exact = 0.0;
    double m_rounded = 0.0; // m_exact as the field holds it
    bool m_isBlank = false; // what the model holds
    bool m_isEmpty = false; // what is shown, until something is entered
    QTimer *m_stepTimer;
};
