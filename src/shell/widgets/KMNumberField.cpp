#include "shell/widgets/KMNumberField.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <QTimer>

namespace {

constexpr int StepPause = 350; // milliseconds without a further step

} // namespace

KMNumberField::KMNumberField(Kind kind, QWidget *parent)
    : QDoubleSpinBox(parent)
    , m_stepTimer(new QTimer(this))
{
    constexpr double widest = 1e7; // single precision holds no more whole numbers than that
    setDecimals(kind == Kind::Whole ? 0 : 4);
    setRange(kind == Kind::Whole ? -2147483648.0 : -widest, kind == Kind::Whole ? 2147483647.0 : widest);
    setKeyboardTracking(false);
    setCorrectionMode(QAbstractSpinBox::CorrectToNearestValue);
    m_stepTimer->setSingleShot(true);
    m_stepTimer->setInterval(StepPause);
    connect(m_stepTimer, &QTimer::timeout, this, &KMNumberField::commit);
    connect(this, &QAbstractSpinBox::editingFinished, this, &KMNumberField::commit);
    connect(lineEdit(), &QLineEdit::textEdited, this, &KMNumberField::onEdited);
}

void KMNumberField::showNumber(double number)
{
    if (m_stepTimer->isActive())
        return;
    const QSignalBlocker blocker(this);
    m_isBlank = m_isEmpty = false;
    m_exact = number;
    setValue(number);
    m_rounded = value();
}

/// Steps start from 0.
void KMNumberField::showBlank()
{
    if (m_stepTimer->isActive())
        return;
    showNumber(0.0);
    m_isBlank = m_isEmpty = true;
    const QSignalBlocker blocker(this);
    clear();
}

void KMNumberField::onEdited()
{
    m_isEmpty = m_isBlank && lineEdit()->text().isEmpty();
}

void KMNumberField::commit()
{
    m_stepTimer->stop();
    if (m_isBlank ? m_isEmpty : value() == m_rounded)
        return;
    m_isBlank = false;
    m_exact = m_rounded = value();
    emit committed(m_exact);
}

void KMNumberField::drop()
{
    const QSignalBlocker blocker(this);
    m_stepTimer->stop();
    if (m_isBlank)
        return showBlank();
    setValue(m_exact);
    m_rounded = value();
}

void KMNumberField::stepBy(int steps)
{
    m_isEmpty = false;
    QDoubleSpinBox::stepBy(steps);
    m_stepTimer->start();
}

QString KMNumberField::textFromValue(double value) const
{
    if (m_isEmpty)
        return {};
    QString text = QDoubleSpinBox::textFromValue(value);
    const QString point = locale().decimalPoint();
    if (!text.contains(point))
        return text;
    while (text.endsWith(locale().zeroDigit()))
        text.chop(1);
    if (text.endsWith(point))
        text.chop(point.size());
    return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}

/// A wheel that scrolls the page must not change numbers on its way.
void KMNumberField::wheelEvent(QWheelEvent *event)
{
    if (hasFocus())
        QDoubleSpinBox::wheelEvent(event);
    else
        event->ignore();
}

void KMNumberField::keyPressEvent(QKeyEvent *event)
{
    if (event->key() != Qt::Key_Escape)
        return QDoubleSpinBox::keyPressEvent(event);
    drop();
    clearFocus();
}
