#pragma once

#include "shell/KMTransformEdit.h"
#include "shell/docks/KMDockWidget.h"
#include "shell/widgets/KMShownAngles.h"

#include <array>

class KMFieldPanel;
class KMNumberField;
class QGridLayout;
class QLabel;

/// Position, scale and rotation of the current node in numbers. An edit moves the whole object: vertices follow, and
/// so does what lies below the node.
class kmcoodinatewidget : public KMDockWidget
{
    Q_OBJECT
public:
    explicit kmcoodinatewidget(QWidget *parent = nullptr); ///< gSolution stands already

    void commit() override;
    void refresh() override;
    void resetDocument() override;
    void releaseDocument() override;

private:
    void addColumn(QGridLayout *grid, KMTransformEdit::Part part, int column, const QString &title);
    KMNullNode *shownNode() const; ///< null where the current node has no transform
    void setNumber(KMTransformEdit::Part part, int axis, double number);

    bool m_released = false;
    KMNullNode *m_node = nullptr; // whose angles are remembered
    KMShownAngles m_angles;
    KMFieldPanel *m_panel;
    QLabel *m_title;
    std::array<std::array<KMNumberField *, 3>, KMTransformEdit::PartCount> m_fields;
};
