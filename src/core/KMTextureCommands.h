#pragma once

#include "core/KMChangeValueCommand.h"

#include <QCoreApplication>
#include <QImage>
#include <QString>

class KMEmbeddedTextureNode;
class KMFileTextureNode;

/// Lets a texture take its pixels from another file.
class editTextureFilenameCommand : public changeValueCommand<QString>
{
    Q_DECLARE_TR_FUNCTIONS(editTextureFilenameCommand)
public:
    editTextureFilenameCommand(KMFileTextureNode *texture, const QString &path);

protected:
    void write(const QString &path) override;

private:
    KMFileTextureNode *m_texture;
};

/// Exchanges the picture of an embedded texture. Its text is the one that edits of tag groups have.
class remakeEmbeddedTextureCommand : public changeValueCommand<QImage>
{
    Q_DECLARE_TR_FUNCTIONS(remakeEmbeddedTextureCommand)
public:
    remakeEmbeddedTextureCommand(KMEmbeddedTextureNode *texture, const QImage &image);

protected:
    void write(const QImage &image) override;

private:
    KMEmbeddedTextureNode *m_texture;
};
