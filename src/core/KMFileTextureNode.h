#pragma once

#include "core/KMTextureNode.h"

/// A texture that lies in a file of its own.
class KMFileTextureNode : public KMTextureNode
{
    Q_OBJECT
public:
    explicit KMFileTextureNode(const QString &path = {});

    QString path() const { return m_path; } ///< as the file or the user gave it
    /// Where the file lies: a relative path is meant from the folder of the document, if there is such a file.
    QString filePath() const;
    void setPath(const QString &path); ///< forgets the pixels; they are read when next asked for

    /// Reads the file when it wasn't yet. Another program may be writing it just now, so a failed read is
    /// tried again up to ten times, 10 ms apart; after that the log says "texture load [NG]" and the path.
    QImage image() const override;
    void reload(); ///< reads the file again; what was there before stays when that fails

    KMContainerNode *clone() const override;

private:
    bool load() const;

    QString m_path;
    mutable QImage m_image;
    mutable bool m_tried = false;
};
