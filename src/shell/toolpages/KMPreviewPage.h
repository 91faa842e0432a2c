#pragma once

#include "shell/widgets/KMFieldPanel.h"

class KMNumberField;
class QFormLayout;
class QPushButton;
class QSlider;

/// Base of the pages of tools with a preview: a value by slider and number, in step with each other and with the drag
/// in the view, and the button that applies it.
class KMPreviewPage : public KMFieldPanel
{
    Q_OBJECT
public:
    /// Widgets are named with the prefix. The slider has so many steps to a world unit.
    KMPreviewPage(const QString &prefix, int sliderSteps, QWidget *parent = nullptr);

public slots:
    void showValue(float value); ///< world units; hands nothing back to the tool

protected:
    QFormLayout *form() const { return m_form; }
    QString nameOf(const char *part) const { return m_prefix + QLatin1String(part); }
    void addValue(const QString &label, double least,
                  double most); ///< the slider's range; the number has its lower end
    void addApply(const QString &tip);

    QSlider *slider() const { return m_slider; }
    KMNumberField *spin() const { return m_spin; }
    QPushButton *applyButton() const { return m_apply; }

private:
    QString m_prefix;
    int m_sliderSteps;
    QFormLayout *m_form;
    QSlider *m_slider;
    KMNumberField *m_spin;
    QPushButton *m_apply;
};
