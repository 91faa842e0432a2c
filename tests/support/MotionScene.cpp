#include "support/MotionScene.h"

#include "core/KMProject.h"

#include <QFile>

MotionScene::MotionScene(const QString &handName, int frame)
    : arm(addBone(QStringLiteral("右腕"), nullptr, {0, 0, 0}, {0, 10, 0}))
    , hand(addBone(handName, arm, {0, 10, 0}, {0, 20, 0}))
{
    forget();
    gProject->setCurrentFrame(frame);
}

QString MotionScene::write(const QByteArray &bytes) const
{
    QFile file(folder.filePath(QStringLiteral("file")));
    if (!file.open(QIODevice::WriteOnly) || file.write(bytes) != bytes.size())
        qFatal("no place for a file");
    return file.fileName();
}
