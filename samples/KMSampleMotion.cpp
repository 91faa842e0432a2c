#include "KMSampleMotion.h"

#include "KMSampleMeasures.h"
#include "KMSampleMesh.h"
#include "math/Quaternion.h"

#include <QDataStream>
#include <QSaveFile>
#include <QTextCodec>
#include <QTextStream>

#include <cmath>

namespace {

constexpr float unit = 0.1f; // of a player's lengths, in ours
constexpr int cycle = 36;    // frames of two steps
constexpr int keyDistance = 3;
constexpr float fullTurn = 2.0f * float(M_PI);

kvm::Quaternion turned(float x, float y, float z)
{
    constexpr float degree = float(M_PI) / 180.0f;
    return kvm::Quaternion::fromEuler(x * degree, y * degree, z * degree);
}

/// A turn on the other side of the body.
kvm::Quaternion mirrored(const kvm::Quaternion &q)
{
    return {q.w, q.x, -q.y, -q.z};
}

struct Key
{
    QByteArray bone;
    kvm::Quaternion rotation;
    kvm::Vector3 offset;
};
using Pose = QVector<Key>;

/// A leg that is bent at hip, knee and ankle by these angles. Where it leads the ankle there its target stands, so that
/// solvers come to the same pose.
void addLeg(Pose *pose, const kvm::Vector3 &bends, bool isLeft, float bodyRise)
{
    const kvm::Quaternion leg = turned(bends.x, 0.0f, 0.0f);
    const kvm::Quaternion knee = turned(bends.y, 0.0f, 0.0f);
    const kvm::Quaternion ankle = turned(bends.z, 0.0f, 0.0f);
    using namespace KMSampleMeasures;
    const kvm::Vector3 place = hip + leg.rotate(KMSampleMeasures::knee - hip)
                               + (leg * knee).rotate(KMSampleMeasures::ankle - KMSampleMeasures::knee)
                               + kvm::Vector3(0.0f, bodyRise, 0.0f) - KMSampleMeasures::ankle;
    const QByteArray side = isLeft ? "_L" : "_R";
    pose->append({"leg" + side, leg, {}});
    pose->append({"knee" + side, knee, {}});
    pose->append({"ankle" + side, ankle, {}});
    pose->append({"leg IK" + side, leg * knee * ankle, place});
}

/// A leg at a phase of its step, 0 to 1: forward, down, back, and bent through the air.
void addStep(Pose *pose, float phase, bool isLeft, float bodyRise)
{
    const float swing = std::cos(fullTurn * phase);
    const float lift = std::pow(std::max(0.0f, std::sin(fullTurn * (phase + 0.42f))), 1.5f);
    addLeg(pose, {3.0f + 19.0f * swing + 12.0f * lift, -6.0f - 48.0f * lift, -5.0f - 8.0f * swing + 12.0f * lift},
           isLeft, bodyRise);
}

void addArm(Pose *pose, float swing, bool isLeft)
{
    const kvm::Quaternion elbow = turned(10.0f + 12.0f * std::max(0.0f, swing), -14.0f, 0.0f);
    const QByteArray side = isLeft ? "_L" : "_R";
    // Lowered first, then swung.
    const kvm::Quaternion arm = turned(24.0f * swing, 0.0f, 0.0f) * turned(0.0f, 0.0f, isLeft ? -38.0f : 38.0f);
    pose->append({"arm" + side, arm, {}});
    pose->append({"elbow" + side, isLeft ? elbow : mirrored(elbow), {}});
}

/// For viewers that don't simulate the cloth: the thighs push it.
void addSkirt(Pose *pose, float swing)
{
    const float push = std::fabs(swing);
    pose->append({"skirt front1", turned(7.0f * push, 0.0f, 0.0f), {}});
    pose->append({"skirt back1", turned(-6.0f * push, 0.0f, 0.0f), {}});
    for (const bool isLeft : {true, false}) {
        const float leg = isLeft ? swing : -swing;
        const QByteArray side = isLeft ? "_L" : "_R";
        pose->append({"skirt bow1" + side, turned(14.0f * std::max(0.0f, leg), 0.0f, 0.0f), {}});
        pose->append({"skirt tail1" + side, turned(10.0f * std::min(0.0f, leg), 0.0f, 0.0f), {}});
    }
}

Pose walkAt(int frame)
{
    const float phase = float(frame % cycle) / float(cycle);
    const float swing = std::cos(fullTurn * phase);
    const float rise = -2.8f - 2.4f * std::cos(2.0f * fullTurn * phase);
    Pose pose;
    pose.append({"center", {}, {0.0f, rise, 0.0f}});
    pose.append({"upper body", turned(-2.0f, 5.0f * swing, 0.0f), {}});
    pose.append({"upper body2", turned(-1.0f, 3.0f * swing, 0.0f), {}});
    pose.append({"head", turned(2.0f, -6.0f * swing, 0.0f), {}});
    addSkirt(&pose, swing);
    addStep(&pose, phase, true, rise);
    addStep(&pose, phase + 0.5f, false, rise);
    addArm(&pose, -swing, true);
    addArm(&pose, swing, false);
    return pose;
}

Pose greeting()
{
    Pose pose = {
        {"upper body", turned(-2.0f, -6.0f, -2.0f), {}}, {"upper body2", turned(0.0f, -3.0f, -2.0f), {}},
        {"neck", turned(0.0f, 3.0f, 3.0f), {}},          {"head", turned(3.0f, 5.0f, 6.0f), {}},
        {"shoulder_R", turned(0.0f, 0.0f, -10.0f), {}},  {"arm_R", turned(0.0f, 0.0f, -22.0f), {}},
        {"elbow_R", turned(0.0f, 0.0f, -62.0f), {}},     {"wrist_R", turned(0.0f, 0.0f, 12.0f), {}},
        {"arm_L", turned(6.0f, 0.0f, -36.0f), {}},       {"elbow_L", turned(14.0f, -18.0f, 0.0f), {}},
    };
    addLeg(&pose, {3.0f, -8.0f, 5.0f}, true, 0.0f); // the foot stays level
    return pose;
}

void writeText(QDataStream &out, const QString &text, int length)
{
    QByteArray bytes = QTextCodec::codecForName("Shift-JIS")->fromUnicode(text);
    bytes = bytes.leftJustified(length, '\0', true);
    out.writeRawData(bytes.constData(), length);
}

/// Straight lines from key to key: the four curves in the order in which players expect them, once for each of their
/// four shifts.
void writeCurves(QDataStream &out)
{
    constexpr quint8 near = 20, far = 107;
    QByteArray row;
    for (const quint8 value : {near, near, far, far})
        row.append(4, char(value));
    QByteArray all;
    for (int shift = 0; shift < 4; ++shift)
        all += row.mid(shift) + QByteArray(shift, shift ? '\1' : '\0');
    out.writeRawData(all.constData(), all.size());
}

void writeKey(QDataStream &out, const Key &key, int frame)
{
    writeText(out, QString::fromLatin1(key.bone), 15);
    out << quint32(frame);
    out << key.offset.x * unit << key.offset.y * unit << key.offset.z * unit;
    out << key.rotation.x << key.rotation.y << key.rotation.z << key.rotation.w;
    writeCurves(out);
}

/// A blink in the middle of the walk.
void writeBlink(QDataStream &out)
{
    constexpr QPair<int, float> keys[] = {{0, 0.0f}, {14, 0.0f}, {17, 1.0f}, {20, 0.0f}, {cycle, 0.0f}};
    out << quint32(std::size(keys));
    for (const auto &key : keys) {
        writeText(out, QString::fromUtf8("まばたき"), 15);
        out << quint32(key.first) << key.second;
    }
}

} // namespace

bool KMSampleMotion::writeWalk(const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QDataStream out(&file);
    out.setByteOrder(QDataStream::LittleEndian);
    out.setFloatingPointPrecision(QDataStream::SinglePrecision);
    writeText(out, QStringLiteral("Vocaloid Motion Data 0002"), 30);
    writeText(out, QStringLiteral("Kelmo"), 20);
    const int frames = cycle / keyDistance + 1;
    out << quint32(frames * walkAt(0).size());
    for (int frame = 0; frame < frames; ++frame) {
        for (const Key &key : walkAt(frame * keyDistance))
            writeKey(out, key, frame * keyDistance);
    }
    writeBlink(out);
    for (int section = 0; section < 3; ++section) // camera, light, shadow
        out << quint32(0);
    return out.status() == QDataStream::Ok && file.commit();
}

bool KMSampleMotion::writeGreeting(const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return false;
    QTextStream out(&file);
    out.setCodec("Shift-JIS");
    out.setRealNumberNotation(QTextStream::FixedNotation);
    out.setRealNumberPrecision(6);
    const Pose pose = greeting();
    out << "Vocaloid Pose Data file\r\n\r\nKelmo.osm;\r\n" << pose.size() << ";\r\n\r\n";
    for (int i = 0; i < pose.size(); ++i) {
        const Key &key = pose.at(i);
        out << "Bone" << i << '{' << key.bone << "\r\n  " << key.offset.x * unit << ',' << key.offset.y * unit << ','
            << key.offset.z * unit << ";\t\t\t\t// trans x,y,z\r\n  " << key.rotation.x << ',' << key.rotation.y << ','
            << key.rotation.z << ',' << key.rotation.w << ";\t\t// Quaternion x,y,z,w\r\n}\r\n\r\n";
    }
    out.flush();
    return out.status() == QTextStream::Ok && file.commit();
}
