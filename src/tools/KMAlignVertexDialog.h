#pragma once

#include "math/Vector3.h"

#include <QDialog>

class QCheckBox;
class QDoubleSpinBox;
class QRadioButton;

/// Asks along which axes vertices are to be aligned, at which values, and in which space.
class KMAlignVertexDialog : public QDialog
{
    Q_OBJECT
public:
    explicit KMAlignVertexDialog(QWidget *parent = nullptr);

    bool isWorld() const;
    void setWorld(bool isWorld);
    bool aligns(int axis) const;
    void setAligns(int axis, bool aligns);
    kvm::Vector3 values() const;
    void setValues(const kvm::Vector3 &values);

signals:
    void onSetWorld(KMAlignVertexDialog *dialog, bool isWorld); ///< the user went over to the other space

private:
    QWidget *createSpaces();

    QRadioButton *m_world;
    QRadioButton *m_local;
    QCheckBox *m_aligns[3];
    QDoubleSpinBox *m_values[3];
};
