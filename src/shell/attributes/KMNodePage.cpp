#include "shell/attributes/KMNodePage.h"

#include "core/KMContainerNode.h"
#include "core/KMNodePropertyCommands.h"
#include "core/KMSolution.h"
#include "shell/widgets/KMTextField.h"

KMNodePage::KMNodePage(KMContainerNode *node)
    : m_node(node)
    , m_name(addText(tr("Name"), QStringLiteral("name")))
{
    connect(m_name, &KMTextField::committed, this, [this](const QString &text) {
        const QString name = text.trimmed();
        if (name.isEmpty() || name == m_node->name())
            KMNodePage::refresh(); // a row without a name could not be found again
        else
            gSolution->push(new renameNodeCommand(m_node, name));
    });
}

void KMNodePage::refresh()
{
    m_name->showText(m_node->name());
}
