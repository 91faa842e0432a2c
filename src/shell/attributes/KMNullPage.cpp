#include "shell/attributes/KMNullPage.h"

#include "shell/widgets/KMVectorField.h"

using KMTransformEdit::Part;

KMNullPage::KMNullPage(KMNullNode *node)
    : KMNodePage(node)
    , m_null(node)
{
    struct Row
    {
        QString label;
        const char *objectName;
        double step;
    };
    const Row rows[] = {
        {tr("Position"), "translation", 1.0},
        {tr("Rotation"), "rotation", 1.0},
        {tr("Scale"), "scale", 0.1},
    };
    for (int i = 0; i < KMTransformEdit::PartCount; ++i) {
        auto *field = new KMVectorField;
        field->setSingleStep(rows[i].step);
        addRow(rows[i].label, field, QLatin1String(rows[i].objectName));
        connect(field, &KMVectorField::axisCommitted, this,
                [this, i](int axis, double number) { setNumber(Part(i), axis, number); });
        m_fields[size_t(i)] = field;
    }
    m_fields[KMTransformEdit::Rotation]->setToolTip(tr("Degrees about X first, then Y, then Z"));
}

void KMNullPage::setNumber(Part part, int axis, double number)
{
    if (!KMTransformEdit::set(m_null, part, axis, number, m_angles, reach()))
        KMNullPage::refresh();
}

void KMNullPage::refresh()
{
    KMNodePage::refresh();
    for (int i = 0; i < KMTransformEdit::PartCount; ++i) {
        m_fields[size_t(i)]->showVector(KMTransformEdit::shown(m_null, Part(i), m_angles));
        m_fields[size_t(i)]->setEnabled(!m_null->isLocked());
    }
}
