#include "render/KMTextureCache.h"

#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "render/KMShareContext.h"

#include <QDebug>
#include <QFileInfo>
#include <QImage>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLTexture>

#include <algorithm>
#include <utility>

namespace {

constexpr int pauseMs = 100;

/// A picture with neither side above the limit, and none below 1.
QImage fitted(const QImage &image, int limit)
{
    if (image.width() <= limit && image.height() <= limit)
        return image;
    QSize size = image.size().scaled(limit, limit, Qt::KeepAspectRatio);
    size = size.expandedTo(QSize(1, 1));
    return image.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
}

int driverLimit()
{
    GLint limit = 0;
    QOpenGLContext::currentContext()->functions()->glGetIntegerv(GL_MAX_TEXTURE_SIZE, &limit);
    return std::max(limit, 64);
}

QString pathOf(const KMTextureNode *node)
{
    return node->type() == KMNodeType::FileTexture ? static_cast<const KMFileTextureNode *>(node)->path() : QString();
}

} // namespace

KMTextureCache::KMTextureCache(QObject *parent)
    : QObject(parent)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    connect(&m_pause, &QTimer::timeout, this, &KMTextureCache::readChangedFiles);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, &KMTextureCache::onFileChanged);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, &KMTextureCache::onFolderChanged);
}

KMTextureCache::~KMTextureCache()
{
    clear();
}

void KMTextureCache::clear()
{
    const KMShareContext context;
    m_entries.clear();
}

QOpenGLTexture *KMTextureCache::texture(int index)
{
    return gProject ? texture(gProject->textures().value(index)) : nullptr;
}

QOpenGLTexture *KMTextureCache::texture(KMTextureNode *node)
{
    if (!node)
        return nullptr;
    Entry &entry = entryOf(node);
    if (entry.isStale || entry.maxSize != gSettings->maxTextureSize || entry.smooth != gSettings->smoothTexture)
        make(*node, entry);
    return entry.texture.get();
}

KMTextureCache::Entry &KMTextureCache::entryOf(KMTextureNode *node)
{
    auto entry = m_entries.find(node);
    if (entry == m_entries.end()) {
        entry = m_entries.insert(node, std::make_shared<Entry>());
        connect(node, &QObject::destroyed, this, [this, node] { forget(node); });
        connect(node, &KMTextureNode::imageChanged, this, [this, node] {
            entryOf(node).isStale = true;
            watch(node);
        });
        watch(node);
    }
    return **entry;
}

void KMTextureCache::make(const KMTextureNode &node, Entry &entry)
{
    entry.isStale = false;
    entry.maxSize = gSettings->maxTextureSize;
    entry.smooth = gSettings->smoothTexture;
    const QImage image = node.image();
    if (image.isNull())
        return;
    const KMShareContext context;
    if (!QOpenGLContext::currentContext()) {
        entry.isStale = true;
        return;
    }
    auto texture = std::make_unique<QOpenGLTexture>(fitted(image, std::min(entry.maxSize, driverLimit())));
    if (!texture->isStorageAllocated()) {
        qDebug() << "texture load [NG]" << node.name();
        return;
    }
    texture->setMinMagFilters(entry.smooth ? QOpenGLTexture::LinearMipMapLinear : QOpenGLTexture::Nearest,
                              entry.smooth ? QOpenGLTexture::Linear : QOpenGLTexture::Nearest);
    texture->setWrapMode(QOpenGLTexture::Repeat);
    entry.texture = std::move(texture);
    QOpenGLContext::currentContext()->functions()->glFlush(); // other contexts draw with it from now on
}

void KMTextureCache::forget(KMTextureNode *node)
{
    const KMShareContext context;
    m_entries.remove(node);
}

/// A file that isn't there is waited for by way of its folder.
void KMTextureCache::watch(const KMTextureNode *node)
{
    const QString path = pathOf(node);
    if (path.isEmpty())
        return;
    const QFileInfo file(path);
    if (file.isFile())
        m_watcher.addPath(path);
    else if (file.dir().exists())
        m_watcher.addPath(file.absolutePath());
}

void KMTextureCache::onFileChanged(const QString &path)
{
    if (!m_changed.contains(path))
        m_changed << path;
    m_pause.start();
}

void KMTextureCache::onFolderChanged()
{
    const QStringList watched = m_watcher.files();
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry) {
        const QString path = pathOf(entry.key());
        if (!path.isEmpty() && !watched.contains(path) && QFileInfo(path).isFile())
            onFileChanged(path);
    }
}

void KMTextureCache::readChangedFiles()
{
    const QStringList paths = std::exchange(m_changed, {});
    const QList<KMTextureNode *> nodes = m_entries.keys();
    for (KMTextureNode *node : nodes) {
        if (!paths.contains(pathOf(node)))
            continue;
        if (QFileInfo(pathOf(node)).isFile())
            static_cast<KMFileTextureNode *>(node)->reload();
        watch(node);
    }
    if (gSolution)
        gSolution->refreshViews(31);
}
