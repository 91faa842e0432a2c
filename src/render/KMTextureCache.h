#pragma once

#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QTimer>

#include <memory>

class KMFileTextureNode;
class KMTextureNode;
class QImage;
class QOpenGLTexture;

/// The textures of the document on the graphics card. One is made when it is first drawn, in the shared context, and
/// again when its node says that the pixels are others or the settings ask for another size or filter. A picture that
/// can't be read leaves what was there.
///
/// Files are watched: one that another program writes is read again and the views are repainted.
class KMTextureCache : public QObject
{
    Q_OBJECT
public:
    explicit KMTextureCache(QObject *parent = nullptr);
    ~KMTextureCache() override;

    QOpenGLTexture *texture(KMTextureNode *node); ///< null for a null node and for one without pixels
    QOpenGLTexture *texture(int index);           ///< by its place in KMProject::textures()
    int size() const { return int(m_entries.size()); }
    void clear();

private:
    struct Entry
    {
        std::unique_ptr<QOpenGLTexture> texture;
        bool isStale = true;
        int maxSize = 0; ///< the settings that it was made by
        int smooth = 0;
    };
    using Entries = QHash<KMTextureNode *, std::shared_ptr<Entry>>;

    Entry &entryOf(KMTextureNode *node);
    void make(const KMTextureNode &node, Entry &entry);
    void forget(KMTextureNode *node);
    void watch(const KMTextureNode *node);
    void onFileChanged(const QString &path);
    void onFolderChanged();
    void readChangedFiles();

    Entries m_entries;
    QFileSystemWatcher m_watcher;
    QTimer m_pause; // after a change: who writes a file does so in several steps
    QStringList m_changed;
};
