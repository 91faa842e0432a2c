#include "render/KMTextureCache.h"

#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSettings.h"
#include "core/KMSolution.h"
#include "render/KMShareContext.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QImage>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOpenGLTexture>
#include <QSet>

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
    return node->type() == KMNodeType::FileTexture ? static_cast<const KMFileTextureNode *>(node)->filePath()
                                                   : QString();
}

/// The file, or as long as there is no such file the nearest folder above it that there is.
QString watchedPathOf(const KMTextureNode *node)
{
    const QString path = pathOf(node);
    if (path.isEmpty() || QFileInfo(path).isFile())
        return path;
    QString folder = QFileInfo(path).absolutePath();
    while (!QDir(folder).exists() && !QDir(folder).isRoot())
        folder = QFileInfo(folder).absolutePath();
    return folder;
}

} // namespace

KMTextureCache::KMTextureCache(QObject *parent)
    : QObject(parent)
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(pauseMs);
    connect(&m_pause, &QTimer::timeout, this, &KMTextureCache::readChangedFiles);
    m_tidy.setSingleShot(true);
    m_tidy.setInterval(0);
    connect(&m_tidy, &QTimer::timeout, this, &KMTextureCache::unwatchUnused);
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

QOpenGLTexture *KMTextureCache::texture(int index, Wrap wrap)
{
    return gProject ? texture(gProject->textures().value(index), wrap) : nullptr;
}

QOpenGLTexture *KMTextureCache::texture(KMTextureNode *node, Wrap wrap)
{
    if (!node)
        return nullptr;
    Made &made = entryOf(node)[wrap];
    if (made.isStale || made.maxSize != gSettings->maxTextureSize || made.smooth != gSettings->smoothTexture)
        make(*node, wrap, made);
    return made.texture.get();
}

KMTextureCache::Entry &KMTextureCache::entryOf(KMTextureNode *node)
{
    auto entry = m_entries.find(node);
    if (entry == m_entries.end()) {
        entry = m_entries.insert(node, std::make_shared<Entry>());
        connect(node, &QObject::destroyed, this, [this, node] { forget(node); });
        connect(node, &KMTextureNode::imageChanged, this, [this, node] {
            for (Made &made : entryOf(node))
                made.isStale = true;
            watch(node);
            m_tidy.start();
        });
        watch(node);
    }
    return **entry;
}

void KMTextureCache::make(const KMTextureNode &node, Wrap wrap, Made &made)
{
    made.isStale = false;
    made.maxSize = gSettings->maxTextureSize;
    made.smooth = gSettings->smoothTexture;
    const QImage image = node.image();
    if (image.isNull())
        return;
    const KMShareContext context;
    if (!QOpenGLContext::currentContext()) {
        made.isStale = true;
        return;
    }
    auto texture = std::make_unique<QOpenGLTexture>(fitted(image, std::min(made.maxSize, driverLimit())));
    if (!texture->isStorageAllocated()) {
        const QString path = pathOf(&node);
        qDebug() << "texture load [NG]" << (path.isEmpty() ? node.name() : path);
        return;
    }
    texture->setMinMagFilters(made.smooth ? QOpenGLTexture::LinearMipMapLinear : QOpenGLTexture::Nearest,
                              made.smooth ? QOpenGLTexture::Linear : QOpenGLTexture::Nearest);
    texture->setWrapMode(wrap == Clamped ? QOpenGLTexture::ClampToEdge : QOpenGLTexture::Repeat);
    made.texture = std::move(texture);
    QOpenGLContext::currentContext()->functions()->glFlush(); // other contexts draw with it from now on
}

void KMTextureCache::forget(KMTextureNode *node)
{
    const KMShareContext context;
    m_entries.remove(node);
    m_tidy.start();
}

/// A file that isn't there is waited for by way of its folder, and that by way of the one above it.
void KMTextureCache::watch(const KMTextureNode *node)
{
    const QString path = watchedPathOf(node);
    if (!path.isEmpty() && !watchedPaths().contains(path))
        m_watcher.addPath(path);
}

void KMTextureCache::unwatchUnused()
{
    QSet<QString> used;
    for (auto entry = m_entries.cbegin(); entry != m_entries.cend(); ++entry)
        used << watchedPathOf(entry.key());
    for (const QString &path : watchedPaths()) {
        if (!used.contains(path))
            m_watcher.removePath(path);
    }
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
        if (path.isEmpty() || watched.contains(path))
            continue;
        watch(entry.key()); // a folder may have come, with or without the file
        if (QFileInfo(path).isFile())
            onFileChanged(path);
    }
    m_tidy.start();
}

void KMTextureCache::readChangedFiles()
{
    const QStringList paths = std::exchange(m_changed, {});
    const QList<KMTextureNode *> nodes = m_entries.keys();
    bool isUsed = false;
    for (KMTextureNode *node : nodes) {
        if (!paths.contains(pathOf(node)))
            continue;
        isUsed = true;
        if (QFileInfo(pathOf(node)).isFile())
            static_cast<KMFileTextureNode *>(node)->reload();
        watch(node);
    }
    m_tidy.start();
    if (isUsed && gSolution)
        gSolution->refreshViews(31);
}
