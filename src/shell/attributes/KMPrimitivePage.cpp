#include "shell/attributes/KMPrimitivePage.h"

#include "core/KMProject.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "modifiers/KMPrimitiveCommands.h"

#include <QComboBox>

KMPrimitivePage::KMPrimitivePage(KMPrimitiveNode *primitive, const QString &title)
    : KMNullPage(primitive)
    , m_primitive(primitive)
{
    addHeading(title);
}

void KMPrimitivePage::addShader()
{
    m_shader = addChoice(tr("Shader"), QStringLiteral("shader"));
    connect(m_shader, qOverload<int>(&QComboBox::activated), this, [this](int entry) {
        const int shader = m_shader->itemData(entry).toInt();
        if (shader != m_primitive->shader())
            gSolution->push(new primAssignShaderCommand(m_primitive, shader));
    });
}

/// The shaders of the document below the default; a built-in one is listed only where the node has it.
void KMPrimitivePage::fillShaders()
{
    m_shader->clear();
    m_shader->addItem(tr("Default"), -1);
    const int count = gProject->shaders().size();
    for (int i = 0; i < count; ++i)
        m_shader->addItem(gProject->shaders().at(i)->name(), i);
    const int shader = m_primitive->shader();
    if (m_shader->findData(shader) < 0) {
        const KMShaderNode *other = gProject->shader(shader);
        m_shader->addItem(other ? other->name() : tr("None"), shader);
    }
    m_shader->setCurrentIndex(m_shader->findData(shader));
}

void KMPrimitivePage::refresh()
{
    KMNullPage::refresh();
    if (m_shader)
        fillShaders();
}
