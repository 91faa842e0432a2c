#include "shell/attributes/KMPbrShaderPage.h"

#include "core/KMPbrShaderNode.h"

#include <QFormLayout>
#include <QLabel>

KMPbrShaderPage::KMPbrShaderPage(KMPbrShaderNode *shader)
    : KMNodePage(shader)
{
    auto *note = new QLabel(tr("The views draw faces of this shader black. Models for MMD are made with basic "
                               "shaders."));
    note->setWordWrap(true);
    form()->addRow(note);
}
