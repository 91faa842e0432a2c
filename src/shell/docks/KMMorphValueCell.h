#pragma once

#include <QPointer>
#include <QWidget>

class KMMorph;
class KMNumberField;
class QSlider;

/// The value of a morph as a number and a slider. A drag of the slider shows the shape as it goes and becomes one step
/// of the history when the mouse lets go; a drag that ends otherwise leaves the value as it was.
class KMMorphValueCell : public QWidget
{
    Q_OBJECT
public:
    explicit KMMorphValueCell(KMMorph *morph, QWidget *parent = nullptr);
    ~KMMorphValueCell() override;

    void refresh(); ///< shows the value of the model; ends a drag
    void commit();  ///< hands over what is being typed

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void onSpinEditingFinished(double value);
    void onSliderMoved(int position);
    void onSliderReleased();
    void cancelDrag();
    void push(float before, float after);
    void showPreview(float value);

    QPointer<KMMorph> m_morph;
    KMNumberField *m_spin;
    QSlider *m_slider;
    bool m_isDragging = false;
    float m_before = 0.0f; // of the drag
    float m_preview = 0.0f;
};
