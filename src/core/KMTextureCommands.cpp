#include "core/KMTextureCommands.h"

#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMTexturePath.h"

editTextureFilenameCommand::editTextureFilenameCommand(KMFileTextureNode *texture, const QString &path)
    : changeValueCommand(tr("Edit Filename"), texture, texture->path(), KMTexturePath::place(path))
    , m_texture(texture)
{
}

void editTextureFilenameCommand::write(const QString &path)
{
    m_texture->setPath(path);
}

remakeEmbeddedTextureCommand::remakeEmbeddedTextureCommand(KMEmbeddedTextureNode *texture, const QImage &image)
    : changeValueCommand(tr("Edit Group"), texture, texture->image(), image)
    , m_texture(texture)
{
}

void remakeEmbeddedTextureCommand::write(const QImage &image)
{
    m_texture->setImage(image);
}
