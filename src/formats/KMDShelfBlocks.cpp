#include "formats/KMDShelfBlocks.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMPbrShaderNode.h"
#include "core/KMProject.h"
#include "core/KMTexturePath.h"
#include "formats/KMDContents.h"
#include "formats/KMDNodeBodies.h"

#include <QCoreApplication>

#include <algorithm>

namespace {

constexpr int leastBytes = 16; // type, id and an empty name
constexpr int leastShininess = 1;
constexpr int mostShininess = 1000;

struct Texts
{
    Q_DECLARE_TR_FUNCTIONS(KMDShelfBlocks)
};

/// Page and visible tiles of the panel. No panel keeps a choice of tiles, so all are visible.
template <class T>
void writeTiles(KMDOutput &out, const KMNodeListView<T> &nodes)
{
    out.writeI32(0);
    out.writeI32(nodes.size());
    for (const T *node : nodes)
        out.writeId(node);
}

void skipTiles(KMDStream &in)
{
    constexpr int idBytes = 8;
    if (!in.since(1.4f))
        return;
    in.readI32();
    in.skip(qint64(in.readCount(idBytes)) * idBytes);
}

void writeTextureBody(KMDOutput &out, KMTextureNode *texture, const QString &folder)
{
    switch (texture->type()) {
    case KMNodeType::FileTexture:
        out.writeString(KMTexturePath::written(nodeAs<KMFileTextureNode>(texture)->path(), folder));
        out.writeReserved();
        break;
    case KMNodeType::EmbeddedTexture:
        out.writeReserved();
        out.writeI32(0);
        out.writeImage(nodeAs<KMEmbeddedTextureNode>(texture)->encodedImage());
        break;
    default:
        break; // the program computes the others anew
    }
}

void readEmbeddedBody(KMDStream &in, KMDTextureRecord &record)
{
    bool isSound = true;
    if (in.since(4.2f))
        KMDNodeBodies::skipReserved(in);
    // Before 4.2 the 0 may be missing: then the picture's own mark comes next.
    if (in.since(4.2f) || !in.isPictureNext())
        in.readI32();
    record.png = in.readImage(&isSound);
    if (!isSound)
        in.warn(Texts::tr("The picture of the texture %1 is damaged").arg(record.name));
}

KMDTextureRecord readTexture(KMDStream &in)
{
    KMDTextureRecord record;
    record.type = in.readI32();
    record.id = in.readU64();
    record.name = in.readString();
    if (record.type == KMNodeType::FileTexture) {
        record.path = in.readString();
        if (in.since(4.2f))
            KMDNodeBodies::skipReserved(in);
    } else if (record.type == KMNodeType::EmbeddedTexture) {
        readEmbeddedBody(in, record);
    } else if (record.type != KMNodeType::ProcTexture) {
        in.warn(Texts::tr("The texture %1 is of an unknown kind and was left out").arg(record.name));
    }
    return record;
}

void writeShaderBody(KMDOutput &out, const KMBasicShader &values)
{
    out.stream() << values.diffuse << values.specular << values.ambient << values.emissive;
    out.writeI32(values.shininess);
    for (const int texture : values.textures)
        out.writeI32(texture);
    out.stream() << values.outlineColor;
    out.writeBool(values.outlineEnabled);
    out.writeF32(values.outlineSize);
    out.writeBool(values.doubleSided);
    out.writeI32(values.multiMode);
    out.writeI32(values.shaderType);
    out.writeI32(0);
}

KMBasicShader readShaderBody(KMDStream &in)
{
    KMBasicShader values;
    for (QColor *color : {&values.diffuse, &values.specular, &values.ambient, &values.emissive})
        *color = in.readColor();
    values.shininess = qBound(leastShininess, in.readI32(), mostShininess);
    for (int &texture : values.textures)
        texture = in.readI32();
    values.outlineColor = in.readColor();
    values.outlineEnabled = in.readBool();
    values.outlineSize = in.readF32(values.outlineSize);
    values.doubleSided = in.readBool();
    values.multiMode = in.readI32();
    values.shaderType = in.readI32();
    in.readI32();
    return values;
}

KMDShaderRecord readShader(KMDStream &in)
{
    KMDShaderRecord record;
    const int type = in.readI32();
    record.id = in.readU64();
    const QString name = in.readString();
    if (type == KMNodeType::PbrShader) {
        record.node = std::make_unique<KMPbrShaderNode>();
    } else {
        auto basic = std::make_unique<KMBasicShaderNode>();
        if (type == KMNodeType::BasicShader)
            basic->setValues(readShaderBody(in));
        else // faces count the materials before theirs, so it keeps its place
            in.warn(Texts::tr("The shader %1 is of an unknown kind and became a basic one").arg(name));
        record.node = std::move(basic);
    }
    record.node->setName(name);
    return record;
}

} // namespace

void KMDShelfBlocks::writeTextures(KMDOutput &out, const QString &folder)
{
    const KMNodeListView<KMTextureNode> textures = gProject->textures();
    out.writeI32(textures.size());
    for (KMTextureNode *texture : textures) {
        out.writeI32(texture->type());
        out.writeId(texture);
        out.writeString(texture->name());
        writeTextureBody(out, texture, folder);
    }
    writeTiles(out, textures);
}

void KMDShelfBlocks::readTextures(KMDStream &in, KMDContents &contents)
{
    in.enterSection(Texts::tr("textures"));
    const int count = in.readCount(leastBytes);
    for (int i = 0; i < count && in.ok(); ++i) {
        in.enterElement(i, count);
        contents.textures.push_back(readTexture(in));
    }
    skipTiles(in);
}

void KMDShelfBlocks::writeShaders(KMDOutput &out)
{
    const KMNodeListView<KMShaderNode> shaders = gProject->shaders();
    out.writeI32(shaders.size());
    for (KMShaderNode *shader : shaders) {
        out.writeI32(shader->type());
        out.writeId(shader);
        out.writeString(shader->name());
        if (shader->type() == KMNodeType::BasicShader)
            writeShaderBody(out, nodeAs<KMBasicShaderNode>(shader)->values());
    }
    writeTiles(out, shaders);
}

void KMDShelfBlocks::readShaders(KMDStream &in, KMDContents &contents)
{
    in.enterSection(Texts::tr("shaders"));
    const int count = in.readCount(leastBytes);
    for (int i = 0; i < count && in.ok(); ++i) {
        in.enterElement(i, count);
        contents.shaders.push_back(readShader(in));
    }
    skipTiles(in);
}
