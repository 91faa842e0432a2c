#include "shell/attributes/KMValuePage.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMValueCommands.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "shell/widgets/KMNumberField.h"

#include <QCheckBox>

#include <limits>

KMValuePage::KMValuePage(KMValueNodeContainer *container)
    : KMNodePage(container)
    , m_container(container)
{
    createEditor();
}

void KMValuePage::createEditor()
{
    const QString label = tr("Value");
    const QString key = QStringLiteral("value");
    KMVariantNode *value = m_container->value();
    switch (m_container->type()) {
    case KMNodeType::BoolContainer:
        m_switch = addCheck(label, key);
        connect(m_switch, &QCheckBox::clicked, this,
                [value](bool on) { gSolution->push(new setBoolBoolCommand(value, value->toBool(), on)); });
        return;
    case KMNodeType::IntContainer:
        m_number = addWhole(label, key, std::numeric_limits<int>::min(), std::numeric_limits<int>::max());
        connect(m_number, &KMNumberField::committed, this,
                [value](double number) { gSolution->push(new setIntIntCommand(value, value->toInt(), int(number))); });
        return;
    case KMNodeType::FloatContainer:
        m_number = addNumber(label, key);
        m_number->setSingleStep(0.1);
        connect(m_number, &KMNumberField::committed, this, [value](double number) {
            gSolution->push(new setFloatFloatCommand(value, value->toFloat(), float(number)));
        });
        return;
    }
}

void KMValuePage::refresh()
{
    KMNodePage::refresh();
    if (m_switch)
        m_switch->setChecked(m_container->value()->toBool());
    if (m_number)
        m_number->showNumber(m_container->value()->value().toDouble());
}
