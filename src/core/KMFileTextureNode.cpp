#include "core/KMFileTextureNode.h"

#include "core/KMNodeType.h"
#include "core/KMTexturePath.h"

#include <QDebug>
#include <QFileInfo>
#include <QThread>

KMFileTextureNode::KMFileTextureNode(const QString &path)
    : m_path(KMTexturePath::place(path))
{
    setType(KMNodeType::FileTexture);
    setName(path.isEmpty() ? tr("Texture") : QFileInfo(path).fileName());
}

void KMFileTextureNode::setPath(const QString &path)
{
    const QString place = KMTexturePath::place(path);
    if (m_path == place)
        return;
    m_path = place;
    m_image = {};
    m_tried = false;
    emit imageChanged();
}

QString KMFileTextureNode::filePath() const
{
    return QFileInfo(m_path).isRelative() ? QString() : m_path;
}

QImage KMFileTextureNode::image() const
{
    if (!m_tried)
        load();
    return m_image;
}

void KMFileTextureNode::reload()
{
    if (load())
        emit imageChanged();
}

KMContainerNode *KMFileTextureNode::clone() const
{
    auto *copy = new KMFileTextureNode(m_path);
    copy->setName(name());
    copy->setEnName(enName());
    cloneTagsTo(copy);
    return copy;
}

bool KMFileTextureNode::load() const
{
    constexpr int tries = 10;
    constexpr unsigned long pauseMs = 10;
    m_tried = true;
    // A missing file won't come while we wait; a half-written one may be whole in a moment.
    const QString file = filePath();
    const bool present = !file.isEmpty() && QFileInfo(file).isFile();
    for (int i = 0; present && i < tries; ++i) {
        if (i > 0)
            QThread::msleep(pauseMs);
        QImage image;
        if (image.load(file)) {
            m_image = image;
            return true;
        }
    }
    qDebug() << "texture load [NG]" << m_path;
    return false;
}
