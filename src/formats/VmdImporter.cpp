#include "formats/VmdImporter.h"

#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMMotionTarget.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneKeyCommands.h"
#include "rig/UnitRotation.h"

#include <QDataStream>
#include <QDebug>
#include <QFile>
#include <QTextCodec>

#include <algorithm>
#include <cmath>

namespace {

constexpr int signatureBytes = 30;
constexpr int modelNameBytes = 20;
constexpr int boneNameBytes = 15;
constexpr int curveBytes = 64; // of which the first 16 say all
constexpr int keyBytes = boneNameBytes + 4 + 7 * 4 + curveBytes;

/// Sections of the file, for those who look for a fault in it.
class VmdReader
{
    Q_DECLARE_TR_FUNCTIONS(VmdImporter)
public:
    VmdReader(QIODevice *device, const KMBoneContainer *rig, BoneAnimation *motion)
        : m_device(device)
        , m_in(device)
        , m_codec(QTextCodec::codecForName("Shift-JIS"))
        , m_motion(motion)
        , m_bones(KMMotionTarget::boneNames(*rig))
    {
        m_in.setVersion(QDataStream::Qt_5_4); // format version 16
        m_in.setByteOrder(QDataStream::LittleEndian);
        m_in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    }

    bool readHeader();
    bool readKeys();
    QString fault() const { return m_fault; } ///< a sentence on what is wrong and where
    int oddKeys() const { return m_oddKeys; } ///< with numbers that are none
    int nameCount() const { return m_names.size(); }

private:
    QByteArray raw(int bytes);
    KMBoneKey readKey();

    QIODevice *m_device;
    QDataStream m_in;
    QTextCodec *m_codec;
    BoneAnimation *m_motion;
    QSet<QString> m_bones;              // that there are: keys of others would be dropped in the end
    QHash<QByteArray, QString> m_names; // the same few in key after key
    QString m_fault;
    int m_oddKeys = 0;
};

/// Shorter where the file ends.
QByteArray VmdReader::raw(int bytes)
{
    QByteArray field(bytes, '\0');
    field.truncate(std::max(m_in.readRawData(field.data(), bytes), 0));
    return field;
}

/// A name that fills its field has no terminator; behind one there may be anything.
QByteArray nameIn(const QByteArray &field)
{
    return field.left(int(qstrnlen(field.constData(), uint(field.size()))));
}

bool VmdReader::readHeader()
{
    const QByteArray signature = raw(signatureBytes); // many writers, many signatures
    const QByteArray model = raw(modelNameBytes);
    if (model.size() < modelNameBytes) {
        m_fault = tr("The file ends inside of its header, which takes %1 bytes (byte %2).")
                      .arg(signatureBytes + modelNameBytes)
                      .arg(m_device->pos());
        return false;
    }
    qDebug().noquote() << "model name:" << m_codec->toUnicode(nameIn(model));
    return true;
}

bool VmdReader::readKeys()
{
    quint32 count = 0;
    m_in >> count;
    if (m_in.status() != QDataStream::Ok) {
        m_fault = tr("The file ends before the count of its bone keys (byte %1).").arg(m_device->pos());
        return false;
    }
    qDebug() << "bone key count:" << count;
    const qint64 there = m_device->bytesAvailable() / keyBytes;
    if (qint64(count) > there) {
        m_fault = tr("The file says that it has %1 bone keys, but it ends in number %2 (byte %3).")
                      .arg(count)
                      .arg(there + 1)
                      .arg(m_device->pos() + there * keyBytes);
        return false;
    }
    for (quint32 i = 0; i < count; ++i) {
        const qint64 start = m_device->pos();
        const KMBoneKey key = readKey();
        if (m_in.status() != QDataStream::Ok) {
            m_fault = tr("Bone key %1 of %2 can't be read (byte %3).").arg(i + 1).arg(count).arg(start);
            return false;
        }
        if (m_bones.contains(key.name))
            m_motion->setKey(key);
    }
    return true;
}

KMBoneKey VmdReader::readKey()
{
    const QByteArray field = nameIn(raw(boneNameBytes));
    auto name = m_names.find(field);
    if (name == m_names.end())
        name = m_names.insert(field, m_codec->toUnicode(field));

    KMBoneKey key;
    key.name = *name;
    kvm::Quaternion &q = key.rotation;
    m_in >> key.frameno >> key.position.x >> key.position.y >> key.position.z >> q.x >> q.y >> q.z >> q.w;
    const float length = q.length();
    bool isOdd = !(length > 0.0f && std::isfinite(length));
    for (int axis = 0; axis < 3; ++axis)
        key.position[axis] = KMMotionTarget::sound(key.position[axis] * KMMotionTarget::Scale, isOdd);
    q = unitRotation(q);
    m_oddKeys += isOdd;

    quint8 bytes[curveBytes] = {};
    m_in.readRawData(reinterpret_cast<char *>(bytes), curveBytes);
    const auto at = [&bytes](int i) { return std::clamp(float(bytes[i]) * 0.007874016f, 0.0f, 1.0f); };
    for (int c = 0; c < KMBoneKey::CurveCount; ++c)
        key.setCurve(KMBoneKey::Curve(c), {at(c), at(4 + c), at(8 + c), at(12 + c)});
    return key;
}

} // namespace

bool VmdImporter::load(const QString &path)
{
    KMBoneContainer *rig = KMMotionTarget::rig();
    if (!rig)
        return false;
    QFile file(path);
    if (!KMMotionTarget::open(file))
        return false;

    // In a store of its own, so that a damaged file costs no key.
    auto motion = std::make_unique<BoneAnimation>(rig);
    VmdReader reader(&file, rig, motion.get());
    if (!reader.readHeader())
        return KMMotionTarget::fail(tr("filed load header."), path, reader.fault());
    if (!reader.readKeys())
        return KMMotionTarget::fail(tr("filed load bone keys."), path, reader.fault());
    qDebug("end");
    motion->relinkTracks();
    gProject->setCurrentFrame(0); // before the panels hear of the keys
    const int found = motion->tracks().size();
    gSolution->push(new replaceMotionCommand(tr("Import VMD"), rig, std::move(motion)));
    KMMotionTarget::tellFound(found, reader.nameCount());
    if (reader.oddKeys() > 0)
        KMPrompt::current().warn(
            tr("Keys with values that can't be used: %1. The bones stay at rest there.").arg(reader.oddKeys()));
    return true;
}

KMExchangeFormat vmdFormat()
{
    KMExchangeFormat format;
    format.suffix = QStringLiteral("vmd");
    format.filter = VmdImporter::tr("MMD Motion Data (*.vmd)");
    format.read = [](const QString &path, const KMOptionForm &) { return VmdImporter::load(path); };
    return format;
}
