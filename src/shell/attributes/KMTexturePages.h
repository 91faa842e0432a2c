#pragma once

#include "shell/attributes/KMNodePage.h"

class KMEmbeddedTextureNode;
class KMFileTextureNode;
class KMTextureNode;
class QLabel;
class QPushButton;

/// A texture: its name and its picture with the size.
class KMTexturePage : public KMNodePage
{
    Q_OBJECT
public:
    explicit KMTexturePage(KMTextureNode *texture);

    void refresh() override;

protected:
    QString askImageFile(const QString &start); ///< empty when cancelled

private:
    KMTextureNode *m_texture;
    QLabel *m_picture;
    QLabel *m_size;
};

/// A texture of a file, with the choice of the file.
class KMFileTexturePage : public KMTexturePage
{
    Q_OBJECT
public:
    explicit KMFileTexturePage(KMFileTextureNode *texture);

    void refresh() override;

private:
    void setPath(const QString &path);

    KMFileTextureNode *m_texture;
    KMTextField *m_path;
};

/// A texture in the document; its picture can be replaced from a file or written to one.
class KMEmbeddedTexturePage : public KMTexturePage
{
    Q_OBJECT
public:
    explicit KMEmbeddedTexturePage(KMEmbeddedTextureNode *texture);

    void refresh() override;

private:
    void replace();
    void exportImage();

    KMEmbeddedTextureNode *m_texture;
    QPushButton *m_export;
};
