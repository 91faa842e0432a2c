#include "formats/KMDReader.h"

#include "core/KMInputFile.h"
#include "core/KMProject.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "core/KMTexturePath.h"
#include "core/KMTreeWidget.h"
#include "formats/KMDContents.h"
#include "formats/KMDNodeBodies.h"
#include "formats/KMDSceneBuilder.h"
#include "formats/KMDShelfBlocks.h"
#include "formats/KMDSkippedBodies.h"
#include "formats/KMDViewBlocks.h"

#include <QDebug>
#include <QFile>

namespace {

/// What the file of an older version doesn't hold stays as it is in the session.
void startFromSession(KMDContents &contents)
{
    contents.fogDistance = gSolution->fogDistance();
    contents.viewFlags = gSolution->viewFlags();
    contents.nodeFilterOn = gSolution->isNodeFilterOn();
    contents.displayMask = gSolution->displayMask();
}

/// The record to which a child of this one can belong, no deeper than the limit.
int parentWithinLimit(const KMDContents &contents, int parent)
{
    while (parent >= 0 && contents.nodes[size_t(parent)].depth >= KMTreeWidget::MaxDepth)
        parent = contents.nodes[size_t(parent)].parent;
    return parent;
}

} // namespace

bool KMDReader::read(const QString &path)
{
    QFile file(path);
    if (!open(file))
        return false;
    KMDStream in(&file);
    return readStream(in, KMTexturePath::folderOf(path));
}

bool KMDReader::open(QFile &file)
{
    m_error = KMInputFile::open(file, QIODevice::ReadOnly | QIODevice::Unbuffered);
    if (m_error.isEmpty())
        return true;
    qDebug("file open error.");
    return false;
}

bool KMDReader::readBytes(const QByteArray &bytes)
{
    KMDStream in(bytes);
    return readStream(in, KMTexturePath::openFolder());
}

bool KMDReader::readStream(KMDStream &in, const QString &folder)
{
    KMDContents contents;
    startFromSession(contents);
    const bool whole = parse(in, contents);
    m_warnings = in.warnings();
    if (!whole)
        return false;
    for (KMDTextureRecord &texture : contents.textures)
        texture.path = KMTexturePath::place(texture.path, folder);
    KMDSceneBuilder(contents, m_options).build();
    return true;
}

bool KMDReader::parse(KMDStream &in, KMDContents &contents)
{
    if (!readHeader(in)) {
        m_error = tr("This is not a model file: %1").arg(in.error());
        return false;
    }
    readProject(in, contents);
    KMDViewBlocks::readSwitches(in, contents);
    readReservedTexts(in);
    KMDViewBlocks::readCameras(in, contents);
    KMDViewBlocks::readViews(in, contents);
    if (in.since(1.1f)) {
        KMDShelfBlocks::readTextures(in, contents);
        KMDShelfBlocks::readShaders(in, contents);
    }
    readNodes(in, contents);
    KMDDisplayBlock::read(in, contents);
    if (in.since(2.7f))
        in.readI32();
    readCurrent(in, contents);
    skipSchematic(in);
    if (!in.ok())
        m_error = m_isForRelease1 ? in.error() : tr("The file is damaged: %1").arg(in.error());
    else if (!m_options.viewParts && !(contents.cameras.isEmpty() && contents.views.isEmpty()))
        qDebug() << "cameras and views of the file were left out:" << contents.cameras.size() << contents.views.size();
    return in.ok();
}

bool KMDReader::readHeader(KMDStream &in)
{
    in.enterSection(tr("header"));
    in.readString(); // files of any first text have always been read
    const float version = float(in.readF64());
    if (in.ok() && !(version >= KMD::OldestVersion && version <= KMD::Version))
        in.fail(tr("The version %1 is none that this program knows").arg(double(version)));
    in.setVersion(version);
    return in.ok();
}

void KMDReader::readProject(KMDStream &in, KMDContents &contents)
{
    in.enterSection(tr("project"));
    contents.name = in.readString();
    contents.information = in.readString();
    m_thumbnail = in.readImage();
    contents.background = in.readColor();
    contents.lightAngles = in.readVector3();
    if (in.since(2.3f)) {
        for (QString &text : contents.textInfo)
            text = in.readString();
    }
}

void KMDReader::readReservedTexts(KMDStream &in)
{
    constexpr int count = 4;
    const bool writesReserved = double(in.version()) >= 4.4; // compared as doubles ever since it was introduced
    for (int i = 0; writesReserved && i < count; ++i)
        in.readString();
    m_isForRelease1 = in.version() == KMD::CompatibilityVersion && in.isNext(QStringLiteral("null"));
    if (m_isForRelease1)
        in.fail(tr("This file was saved for release 1, which later releases don't read back"));
}

void KMDReader::readNodes(KMDStream &in, KMDContents &contents)
{
    constexpr int headBytes = 28; // type and three ids
    KMDReadContext context(in);
    context.importScale = m_options.importScale;
    context.shaderBase = gProject->shaders().size();
    context.shaderCount = context.shaderBase + int(contents.shaders.size());
    in.enterSection(tr("nodes"));
    const int count = in.readCount(headBytes);
    for (int i = 0; i < count && in.ok(); ++i) {
        in.enterElement(i, count);
        readNode(context, contents);
    }
    for (const auto &bind : context.bindings) {
        if (in.ok())
            bind();
    }
    contents.objects = context.objects;
    if (context.meshNanoseconds > 0)
        qDebug("meshes read in %.1f ms", double(context.meshNanoseconds) / 1e6);
}

void KMDReader::readNode(KMDReadContext &context, KMDContents &contents)
{
    KMDStream &in = context.in;
    KMDNodeRecord record;
    const int type = in.readI32();
    record.id = in.readU64();
    const quint64 row = in.readU64();
    const quint64 parentRow = in.readU64();
    record.expanded = in.since(1.7f) && in.readBool();
    // Parents stand before their children, so a loop can't be told this way.
    if (parentRow != 0 && !context.rows.contains(parentRow))
        in.warn(tr("A node names an unknown parent and was put at the top"));
    const int told = context.rows.value(parentRow, -1);
    record.parent = parentWithinLimit(contents, told);
    if (record.parent != told)
        in.warn(tr("A node lies too deep in the tree and was moved up"));
    record.depth = record.parent < 0 ? 0 : contents.nodes[size_t(record.parent)].depth + 1;

    const KMDNodeBody *body = KMDNodeBodies::find(type);
    if (!body) {
        context.rows.insert(row, record.parent); // what stands below it moves up
        skipNode(context, type);
        return;
    }
    record.node.reset(body->make());
    body->read(context, record.node.get());
    context.objects.insert(record.id, record.node.get());
    context.rows.insert(row, int(contents.nodes.size()));
    contents.nodes.push_back(std::move(record));
}

void KMDReader::skipNode(KMDReadContext &context, int type)
{
    QString name;
    if (KMDSkippedBodies::skipNode(context, type, &name))
        context.in.warn(
            tr("The node %1 was left out: this release has none of its kind, %2").arg(name, nodeTypeName(type)));
    else
        context.in.fail(tr("A node of the unknown type 0x%1").arg(uint(type), 0, 16));
}

void KMDReader::readCurrent(KMDStream &in, KMDContents &contents)
{
    constexpr int idBytes = 8;
    in.enterSection(tr("current nodes"));
    if (in.since(1.1f))
        contents.currentNode = in.readU64();
    if (in.since(1.5f)) {
        contents.currentShader = in.readU64();
        contents.currentTexture = in.readU64();
    }
    if (in.since(2.1f)) {
        contents.currentBone = in.readU64();
        in.skip(idBytes); // its container, which the bone knows
    }
}

void KMDReader::skipSchematic(KMDStream &in)
{
    constexpr int transformNumbers = 9;
    constexpr int rectangleNumbers = 4;
    in.enterSection(tr("schematic"));
    if (in.since(1.2f))
        in.skip(transformNumbers * in.floatBytes());
    if (in.since(1.3f))
        in.skip(2 * rectangleNumbers * in.floatBytes());
    if (in.ok() && in.bytesLeft() > 0)
        in.warn(in.since(1.2f) ? tr("The schematic was left out") : tr("There is something behind the end"));
}
