#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QTimer>

#include <array>
#include <memory>

class KMFileTextureNode;
class KMTextureNode;
class QImage;
class QOpenGLTexture;

/// The textures of the document on the graphics card. One is made when it is first drawn, in the shared context, and
/// again when its node says that the pixels are others or the settings ask for another size or filter. A picture that
/// can't be read leaves what was there.
///
/// How a texture goes on beyond its edges belongs to the texture itself on the card: a picture that is used both ways
/// stands there twice.
///
/// Files are watched: one that another program writes is read again and the views are repainted.
class KMTextureCache : public QObject
{
    Q_OBJECT
public:
    enum Wrap { Repeated, Clamped, WrapCount }; ///< beyond the edges: the picture again, or its outermost pixels

    explicit KMTextureCache(QObject *parent = nullptr);
    ~KMTextureCache() override;

    /// Null for a null node and for one without pixels.
    QOpenGLTexture *texture(KMTextureNode *node, Wrap wrap = Repeated);
    QOpenGLTexture *texture(int index, Wrap wrap = Repeated); ///< by its place in KMProject::textures()
    QStringList watchedPaths() const { return m_watcher.files() + m_watcher.directories(); }
    int size() const { return int(m_entries.size()); }
    void clear();

private:
    struct Made
    {
        std::unique_ptr<QOpenGLTexture> texture;
        bool isStale = true;
        int maxSize = 0; ///< the settings that it was made by
        int smooth = 0;
    };
    using Entry = std::array<Made, WrapCount>;
    using Entries = QHash<KMTextureNode *, std::shared_ptr<Entry>>;

    Entry &entryOf(KMTextureNode *node);
    void make(const KMTextureNode &node, Wrap wrap, Made &made);
    void forget(KMTextureNode *node);
    void watch(const KMTextureNode *node);
    void unwatchUnused();
    void onFileChanged(const QString &path);
    void onFolderChanged();
    void readChangedFiles();

    Entries m_entries;
    QFileSystemWatcher m_watcher;
    QTimer m_pause; // after a change: who writes a file does so in several steps
    QTimer m_tidy;  // nodes come and go in crowds
    QStringList m_changed;
};
