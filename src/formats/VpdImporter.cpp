#include "formats/VpdImporter.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "formats/KMMotionTarget.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneKeyCommands.h"
#include "rig/UnitRotation.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QTextStream>

#include <algorithm>

namespace {

/// Collects the keys of a file line by line.
class VpdBlocks
{
public:
    explicit VpdBlocks(quint32 frame)
        : m_frame(frame)
    {
    }

    void take(QString line);
    QVector<KMBoneKey> keys; ///< of the blocks that were closed

private:
    void open(const QString &line, int brace);
    void takeNumbers(const QString &line);

    enum class Inside { Nothing, Bone, OtherBlock };
    Inside m_inside = Inside::Nothing;
    quint32 m_frame;
    KMBoneKey m_key;
    int m_lines = 0; // of the block, with numbers
};

void VpdBlocks::take(QString line)
{
    const int comment = line.indexOf(QLatin1String("//"));
    if (comment >= 0)
        line.truncate(comment);
    const int brace = line.indexOf(QLatin1Char('{'));
    if (brace >= 0)
        return open(line, brace);
    const int end = line.indexOf(QLatin1Char('}'));
    if (m_inside == Inside::Bone)
        takeNumbers(end < 0 ? line : line.left(end));
    if (end < 0)
        return;
    if (m_inside == Inside::Bone)
        keys << m_key;
    m_inside = Inside::Nothing;
}

/// Blocks of morphs look like those of bones but for their first word.
void VpdBlocks::open(const QString &line, int brace)
{
    m_inside = line.trimmed().startsWith(QLatin1String("Bone")) ? Inside::Bone : Inside::OtherBlock;
    m_key = {};
    m_key.name = line.mid(brace + 1).trimmed();
    m_key.frameno = m_frame;
    m_lines = 0;
}

/// First the line of the position, then that of the rotation.
void VpdBlocks::takeNumbers(const QString &line)
{
    QString text = line;
    for (const char ignored : {' ', ';', '\t'})
        text.remove(QLatin1Char(ignored));
    if (text.isEmpty())
        return;
    const QStringList parts = text.split(QLatin1Char(','));
    float numbers[4] = {};
    bool isOdd = false;
    for (int i = 0; i < std::min(4, parts.size()); ++i)
        numbers[i] = KMMotionTarget::sound(parts[i].toFloat(), isOdd);
    if (m_lines == 0) {
        for (int axis = 0; axis < 3; ++axis)
            m_key.position[axis] = KMMotionTarget::sound(numbers[axis] * KMMotionTarget::Scale, isOdd);
    } else if (m_lines == 1) {
        m_key.rotation = unitRotation({numbers[3], numbers[0], numbers[1], numbers[2]});
    }
    ++m_lines;
}

QVector<KMBoneKey> readKeys(QIODevice *device, quint32 frame)
{
    QTextStream in(device);
    in.setCodec("Shift-JIS");
    VpdBlocks blocks(frame);
    QString line;
    while (in.readLineInto(&line))
        blocks.take(line);
    return blocks.keys;
}

void logFile(const QString &path)
{
    const QFileInfo info(path);
    qDebug("----------------------------------");
    qDebug("filename:%s", qUtf8Printable(info.fileName()));
    qDebug("filesize:%lldbyte", info.size());
    qDebug("filedate:%s", qUtf8Printable(info.lastModified().toString(QStringLiteral("yyyy/MM/dd hh:mm:ss"))));
}

} // namespace

bool VpdImporter::load(const QString &path)
{
    logFile(path);
    QFile file(path);
    if (!KMMotionTarget::open(file))
        return false;
    KMBoneContainer *rig = KMMotionTarget::rig();
    if (!rig)
        return false;
    QVector<KMBoneKey> keys = readKeys(&file, quint32(std::max(gProject->currentFrame(), 0)));
    qDebug() << "bone key count:" << keys.size();
    const int named = keys.size();
    const QSet<QString> bones = KMMotionTarget::boneNames(*rig);
    keys.erase(
        std::remove_if(keys.begin(), keys.end(), [&bones](const KMBoneKey &key) { return !bones.contains(key.name); }),
        keys.end());
    KMMotionTarget::tellFound(keys.size(), named);
    if (keys.isEmpty())
        return true;

    // Each end of the step poses the bones when all keys stand: on redo that is its last command, on undo its first.
    const KMUndoMacro macro(tr("Import VPD"));
    gSolution->push(new animationFrameMoveCommand(rig, false));
    gSolution->push(new animationBuildBoneCommand(rig));
    for (const KMBoneKey &key : keys)
        gSolution->push(new addBoneKeyCommand(rig, key));
    gSolution->push(new animationBuildBoneCommand(rig));
    gSolution->push(new animationFrameMoveCommand(rig, true));
    return true;
}

KMExchangeFormat vpdFormat()
{
    KMExchangeFormat format;
    format.suffix = QStringLiteral("vpd");
    format.filter = VpdImporter::tr("MMD Pose Data (*.vpd)");
    format.read = [](const QString &path, const KMOptionForm &) { return VpdImporter::load(path); };
    return format;
}
