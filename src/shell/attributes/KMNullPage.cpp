#include "shell/attributes/KMNullPage.h"

#include "shell/widgets/KMTransformFields.h"

#include <QFormLayout>

KMNullPage::KMNullPage(KMNullNode *node)
    : KMNodePage(node)
    , m_null(node)
    , m_fields(new KMTransformFields)
{
    form()->addRow(m_fields);
    connect(m_fields, &KMTransformFields::edited, this, [this](KMTransformEdit::Part part, int axis, double number) {
        m_fields->editNode(part, axis, number, reach());
    });
}

void KMNullPage::refresh()
{
    KMNodePage::refresh();
    m_fields->showNode(m_null);
}
