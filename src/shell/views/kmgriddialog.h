#pragma once

#include <QDialog>

class KMGridNode;
class QDoubleSpinBox;
class QSpinBox;

/// Asks how many cells a grid has and how large they are.
class kmgriddialog : public QDialog
{
    Q_OBJECT
public:
    explicit kmgriddialog(const KMGridNode &grid, QWidget *parent = nullptr);

    int rows() const;
    float space() const; ///< a whole number; the side of a grid that always fills its square stays as it is

private:
    const KMGridNode &m_grid;
    QSpinBox *m_rows;
    QDoubleSpinBox *m_space;
};
