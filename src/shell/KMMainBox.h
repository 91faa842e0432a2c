#pragma once

#include <QWidget>

class DualSplitter;
class KMOpenGLContainer;
class KMStacked;
class KMViewBar;
class QuadSplitter;

/// The middle of the window: the seven views in their three layouts, one of which is shown, and the bar above them.
/// The cameras of the project stand already when it is made.
class KMMainBox : public QWidget
{
    Q_OBJECT
public:
    explicit KMMainBox(QWidget *parent = nullptr);
    ~KMMainBox() override;

    KMOpenGLContainer *views() const { return m_views; }
    KMViewBar *bar() const { return m_bar; }
    void closeViews(); ///< the window closes: views go before the document does

    int viewMode() const;       ///< one of KMOpenGLContainer::Layout
    void setViewMode(int mode); ///< the view of the layout that shows the model gets the focus; others are ignored
    double dualX() const;       ///< where the dividers stand: shares of the room, 0 to 1
    double quadX() const;
    double quadY() const;
    void setDividers(double dualX, double quadX, double quadY);

signals:
    void viewModeChanged(int mode);

private:
    QWidget *createView(QWidget *parent);

    KMOpenGLContainer *m_views;
    KMViewBar *m_bar;
    KMStacked *m_stack;
    DualSplitter *m_dual = nullptr;
    QuadSplitter *m_quad = nullptr;
};
