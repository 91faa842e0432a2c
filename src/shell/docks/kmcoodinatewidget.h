#pragma once

#include "shell/KMTransformEdit.h"
#include "shell/docks/KMDockWidget.h"

class KMFieldPanel;
class KMSelectionCoordinates;
class KMTransformFields;
class QComboBox;
class QLabel;

/// Position, rotation and scale of the current node in numbers. An edit moves the whole object: vertices follow, and
/// so does what lies below the node. Where elements are selected it shows place and size of these instead, unless the
/// user wants the node.
class kmcoodinatewidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmcoodinatewidget(QWidget *parent = nullptr); ///< gSolution stands already

    void commit() override;
    void refresh() override;
    void resetDocument() override { refresh(); }
    void releaseDocument() override;

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    enum Target { Selection, Node };
    bool isForSelection(const KMSelectionCoordinates &selection) const;
    void showSelection(const KMSelectionCoordinates &selection);
    void showNode();
    KMNullNode *shownNode() const; ///< null where the current node has no transform
    void setNumber(KMTransformEdit::Part part, int axis, double number);

    bool m_released = false;
    KMFieldPanel *m_panel;
    QLabel *m_title;
    QComboBox *m_target;
    KMTransformFields *m_fields;
};
