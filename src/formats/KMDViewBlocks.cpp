#include "formats/KMDViewBlocks.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "formats/KMDContents.h"
#include "formats/KMDViewParts.h"

#include <QCoreApplication>

namespace {

constexpr int unusedSwitches = 4; // of older releases; written as set
constexpr size_t firstOldFlag = 1;
constexpr size_t firstNewFlag = 6;
constexpr size_t firstLateFlag = 10;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDViewBlocks)
};

void writeFlags(KMDOutput &out, const KMSolution::ViewFlags &flags, size_t first, size_t end)
{
    for (size_t i = first; i < end; ++i)
        out.writeBool(flags.at(i));
}

void readFlags(KMDStream &in, KMSolution::ViewFlags &flags, size_t first, size_t end)
{
    for (size_t i = first; i < end; ++i)
        flags.at(i) = in.readBool();
}

void writeCamera(KMDOutput &out, const KMDCamera &camera)
{
    out.writeI32(KMNodeType::Camera);
    out.writeI32(camera.kind);
    out.writeString(camera.name);
    out.writeF32(camera.width);
    out.writeF32(camera.height);
    out.writeBool(camera.ortho);
    out.writeF32(camera.fov);
    out.writeVector3(camera.pan);
    out.writeVector3(camera.pivot);
    out.writeVector3(camera.angles);
    out.writeF32(camera.distance);
    out.writeBool(camera.flipped);
    out.writeVector3(camera.pivotShift);
    out.writeF32(camera.orthoZoom);
    for (const bool option : camera.options)
        out.writeBool(option);
}

KMDCamera readCamera(KMDStream &in)
{
    KMDCamera camera;
    const int type = in.readI32();
    if (type != KMNodeType::Camera)
        in.fail(Texts::tr("A camera of the unknown type %1").arg(type));
    camera.kind = in.readI32();
    camera.name = in.readString();
    camera.width = in.readF32();
    camera.height = in.readF32();
    camera.ortho = in.readBool();
    camera.fov = in.readF32();
    camera.pan = in.readVector3();
    camera.pivot = in.readVector3();
    camera.angles = in.readVector3();
    camera.distance = in.readF32();
    if (in.since(1.1f))
        camera.flipped = in.readBool();
    if (in.since(1.7f))
        camera.pivotShift = in.readVector3();
    if (in.since(1.9f))
        camera.orthoZoom = in.readF32(camera.orthoZoom);
    for (bool &option : camera.options)
        option = in.readBool();
    return camera;
}

} // namespace

void KMDViewBlocks::writeSwitches(KMDOutput &out)
{
    const KMSolution::ViewFlags flags = gSolution->viewFlags();
    out.writeI32(gSolution->fogDistance());
    for (int i = 0; i < unusedSwitches; ++i)
        out.writeBool(true);
    writeFlags(out, flags, firstOldFlag, firstNewFlag);
    writeFlags(out, flags, firstNewFlag, firstLateFlag);
    out.writeBool(flags.front());
    out.writeBool(gSolution->isNodeFilterOn());
    out.writeBool(flags.at(firstLateFlag));
    out.writeBool(false);
    out.writeI32(gSolution->displayMask());
}

void KMDViewBlocks::readSwitches(KMDStream &in, KMDContents &contents)
{
    in.enterSection(Texts::tr("view settings"));
    if (!in.since(1.2f))
        return;
    contents.fogDistance = in.readI32();
    in.skip(unusedSwitches);
    readFlags(in, contents.viewFlags, firstOldFlag, firstNewFlag);
    if (in.since(2.0f)) {
        readFlags(in, contents.viewFlags, firstNewFlag, firstLateFlag);
        contents.viewFlags.front() = in.readBool();
        contents.nodeFilterOn = in.readBool();
        contents.viewFlags.at(firstLateFlag) = in.readBool();
        in.readBool();
    }
    if (in.since(2.8f))
        contents.displayMask = in.readI32();
}

void KMDViewBlocks::writeCameras(KMDOutput &out, const KMDViewParts *parts)
{
    const QVector<KMDCamera> cameras = parts ? parts->cameras() : QVector<KMDCamera>();
    out.writeI32(cameras.size());
    for (const KMDCamera &camera : cameras)
        writeCamera(out, camera);
}

void KMDViewBlocks::readCameras(KMDStream &in, KMDContents &contents)
{
    constexpr int floatsOfEach = 13; // and type, kind, an empty name, six switches
    constexpr int otherBytes = 18;
    in.enterSection(Texts::tr("cameras"));
    const int count = in.readCount(floatsOfEach * in.floatBytes() + otherBytes);
    for (int i = 0; i < count && in.ok(); ++i) {
        in.enterElement(i, count);
        contents.cameras << readCamera(in);
    }
}

void KMDViewBlocks::writeViews(KMDOutput &out, const KMDViewParts *parts)
{
    const QVector<KMDViewSettings> views = parts ? parts->viewSettings() : QVector<KMDViewSettings>();
    out.writeI32(views.size());
    for (const KMDViewSettings &view : views) {
        out.writeI32(view.camera);
        out.writeBool(view.flag);
        out.writeI32(view.mode);
        out.writeF32(view.value);
    }
}

void KMDViewBlocks::readViews(KMDStream &in, KMDContents &contents)
{
    constexpr int otherBytes = 9; // camera, flag and mode
    in.enterSection(Texts::tr("views"));
    if (!in.since(1.1f))
        return;
    const int count = in.readCount(otherBytes + in.floatBytes());
    for (int i = 0; i < count && in.ok(); ++i) {
        in.enterElement(i, count);
        KMDViewSettings view;
        view.camera = in.readI32();
        view.flag = in.readBool();
        view.mode = in.readI32();
        view.value = in.readF32();
        contents.views << view;
    }
}
