#include "core/KMShelfCommands.h"

#include "core/KMSolution.h"

shelfCommand::shelfCommand(const QString &text, KMProject::Shelf shelf, Step step, KMContainerNode *node)
    : KMUndoCommand(text, node)
    , m_shelf(shelf)
    , m_step(step)
    , m_target(node)
    , m_attached(step == Step::Delete)
{
}

shelfCommand::~shelfCommand()
{
    if (!m_attached)
        KMProject::destroyNodes({m_target});
}

void shelfCommand::apply(Direction direction)
{
    if ((direction == Direction::Redo) == (m_step == Step::Add))
        attach();
    else
        detach();
}

void shelfCommand::attach()
{
    m_attached = true;
    m_target->setDeleted(false);
    gProject->attachToShelf(m_shelf, m_index, m_target);
}

void shelfCommand::detach()
{
    m_attached = false;
    m_target->setDeleted(true);
    m_index = gProject->detachFromShelf(m_shelf, m_target);
    gSolution->forgetNode(m_target);
}

addShaderNodeCommand::addShaderNodeCommand(KMContainerNode *shader)
    : shelfCommand(tr("Add ShaderNode"), KMProject::Shelf::Shaders, Step::Add, shader)
{
}

deleteShaderNodeCommand::deleteShaderNodeCommand(KMContainerNode *shader)
    : shelfCommand(tr("Delete ShaderNode"), KMProject::Shelf::Shaders, Step::Delete, shader)
{
}

addTextureNodeCommand::addTextureNodeCommand(KMContainerNode *texture)
    : shelfCommand(tr("Add TextureNode"), KMProject::Shelf::Textures, Step::Add, texture)
{
}

deleteTextureNodeCommand::deleteTextureNodeCommand(KMContainerNode *texture)
    : shelfCommand(tr("Delete TextureNode"), KMProject::Shelf::Textures, Step::Delete, texture)
{
}
