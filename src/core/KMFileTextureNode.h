#pragma once

#include "core/KMTextureNode.h"

/// A texture that lies in a file of its own.
class KMFileTextureNode : public KMTextureNode
{
    Q_OBJECT
public:
    explicit KMFileTextureNode(const QString &path = {});

    /// The place of the file. In a document that lies nowhere yet a relative path stays one, and no file is known.
    QString path() const { return m_path; }
    QString filePath() const; ///< absolute; empty as long as no file is known
    /// Another path forgets the pixels; they are read when next asked for. A relative one is meant from the folder of
    /// the document.
    void setPath(const QString &path);
    void settle() { setPath(m_path); } ///< the document has another folder: a path that is still relative gets a place

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
