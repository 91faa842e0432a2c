#include "shell/attributes/KMModifierPage.h"

#include "mesh/KMMeshNode.h"
#include "modifiers/KMModifierNode.h"

#include <QLabel>

KMModifierPage::KMModifierPage(KMModifierNode *modifier, const QString &title, const QString &meshRow)
    : KMNullPage(modifier)
{
    addHeading(title);
    auto *root = new QLabel;
    root->setToolTip(tr("The mesh above it in the tree, as long as the modifier is switched on"));
    addRow(tr("Root Mesh"), root, meshRow);
    onRefresh([root, modifier] {
        const KMMeshNode *source = modifier->source();
        root->setText(source ? source->name() : tr("None"));
    });
}
