#pragma once

#include "shell/KMTransformEdit.h"
#include "shell/docks/KMDockWidget.h"

class KMFieldPanel;
class KMTransformFields;
class QLabel;

/// Position, rotation and scale of the current node in numbers. An edit moves the whole object: vertices follow, and
/// so does what lies below the node.
class kmcoodinatewidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmcoodinatewidget(QWidget *parent = nullptr); ///< gSolution stands already

    void commit() override;
    void refresh() override;
    void resetDocument() override { refresh(); }
    void releaseDocument() override;

private:
    KMNullNode *shownNode() const; ///< null where the current node has no transform
    void setNumber(KMTransformEdit::Part part, int axis, double number);

    bool m_released = false;
    KMFieldPanel *m_panel;
    QLabel *m_title;
    KMTransformFields *m_fields;
};
