#pragma once

#include "math/Vector3.h"

#include <QWidget>

#include <array>

class KMNumberField;

/// Three numbers in a row. An edit of one leaves the other two exactly as they
/// were given.
class KMVectorField : public QWidget
{
    Q_OBJECT
public:
    explicit KMVectorField(QWidget *parent = nullptr);

    void showVector(const kvm::Vector3 &vector);
    KMNumberField *field(int axis) const { return m_fields[size_t(axis)]; }
    void setSingleStep(double step);

signals:
    void committed(const kvm::Vector3 &vector);

private:
    std::array<KMNumberField *, 3> m_fields;
};
