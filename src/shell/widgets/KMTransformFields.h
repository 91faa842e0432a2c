#pragma once

#include "shell/KMTransformEdit.h"
#include "shell/widgets/KMShownAngles.h"

#include <QWidget>

#include <array>

class KMNumberField;
class QGridLayout;
class QLabel;

/// Nine numbers: columns for position, rotation in degrees and scale, rows for X, Y and Z.
class KMTransformFields : public QWidget
{
    Q_OBJECT
public:
    using Part = KMTransformEdit::Part;

    explicit KMTransformFields(QWidget *parent = nullptr);

    void showNode(KMNullNode *node); ///< null leaves the fields empty; those of a locked node take no edit
    void editNode(Part part, int axis, double number, KMTransformEdit::Reach reach); ///< of the node that is shown

    void setTitle(Part part, const QString &title);
    void showNumbers(Part part, const kvm::Vector3 &numbers);
    void leaveEmpty(Part part);
    KMNumberField *field(Part part, int axis) const { return m_fields[part][size_t(axis)]; }

signals:
    void edited(KMTransformEdit::Part part, int axis, double number);

private:
    void addColumn(QGridLayout *grid, Part part);

    KMNullNode *m_node = nullptr; // not owned; whose angles are remembered
    KMShownAngles m_angles;
    std::array<QLabel *, KMTransformEdit::PartCount> m_titles;
    std::array<std::array<KMNumberField *, 3>, KMTransformEdit::PartCount> m_fields;
};
