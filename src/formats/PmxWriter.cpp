#include "formats/PmxWriter.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "formats/PmxBoneWriter.h"
#include "formats/PmxContents.h"
#include "formats/PmxOutput.h"
#include "formats/PmxPhysicsWriter.h"
#include "formats/PmxSkin.h"
#include "rig/KMBone.h"
#include "rig/KMDisplayCommands.h"
#include "rig/KMDisplayNode.h"

#include <QDebug>

namespace {

constexpr float version = 2.0f;
constexpr int demandedFrames = 2; // "Root" and the one of the face

void writeColor(PmxOutput &out, const QColor &color)
{
    out.writeVector(kvm::Vector3(float(color.redF()), float(color.greenF()), float(color.blueF())));
}

void writeColorAndAlpha(PmxOutput &out, const QColor &color)
{
    writeColor(out, color);
    out.writeF32(float(color.alphaF()));
}

/// What faces without a basic shader look like: as the views draw them.
KMBasicShader blackShader()
{
    KMBasicShader values;
    values.diffuse = values.specular = values.ambient = values.outlineColor = QColor(0, 0, 0);
    values.shininess = 0;
    values.outlineSize = 0.0f;
    return values;
}

int sphereMode(const KMBasicShader &values, int texture)
{
    return texture < 0 ? Pmx::SphereOff : values.sphereAdd ? Pmx::SphereMultiplied : Pmx::SphereAdded;
}

struct FrameItem
{
    int kind;
    int index;

    bool operator==(const FrameItem &other) const { return kind == other.kind && index == other.index; }
};

/// Only what is in the file, each once.
QVector<FrameItem> itemsOf(const KMDisplayNode &frame, const PmxContents &contents)
{
    QVector<FrameItem> items;
    const KMDisplayNode::Items live = frame.liveItems();
    for (const DisplayItem &item : live) {
        const bool isBone = item.type == DisplayItem::Bone;
        const FrameItem written = {isBone ? Pmx::DisplayedBone : Pmx::DisplayedMorph,
                                   isBone ? pmxBoneIndex(nodeAs<KMBone>(item.node), contents.root)
                                          : contents.morphs.indexOf(item.node->name())};
        if (written.index >= 0 && !items.contains(written))
            items.append(written);
    }
    return items;
}

QVector<const KMDisplayNode *> writtenFrames()
{
    QVector<const KMDisplayNode *> frames;
    const QList<KMDisplayNode *> groups = moveDisplayNodeCommand::liveGroups();
    for (const KMDisplayNode *group : groups) {
        if (!group->liveItems().isEmpty())
            frames.append(group);
    }
    return frames;
}

} // namespace

void PmxWriter::write()
{
    writeHeader();
    writeVertices();
    writeFaces();
    writeTextures();
    writeMaterials();
    PmxBoneWriter(m_out, m_contents).write();
    writeMorphs();
    writeDisplayFrames();
    PmxPhysicsWriter(m_out, m_contents).write();
}

void PmxWriter::writeHeader()
{
    const Pmx::IndexSizes &sizes = m_contents.sizes;
    const int globals[] = {
        0 /* UTF-16 */, 0 /* additional UVs */, sizes.vertex, sizes.texture, sizes.material, sizes.bone, sizes.morph,
        sizes.rigid};
    m_out.writeBytes("PMX ");
    m_out.writeF32(version);
    m_out.writeU8(int(std::size(globals)));
    for (const int global : globals)
        m_out.writeU8(global);
    enum TextInfo { Name = 1, Comment, UniversalName, UniversalComment };
    for (const int text : {Name, UniversalName})
        m_out.writeText(gProject->textInfo(text));
    for (const int text : {Comment, UniversalComment})
        m_out.writeText(gProject->textInfo(text).replace(QLatin1String("\n"), QLatin1String("\r\n")));
}

void PmxWriter::writeVertices()
{
    const QVector<PmxVertex> &vertices = m_contents.model.vertices();
    m_out.writeI32(vertices.size());
    PmxSkin skin(m_out, m_contents.root, m_contents.sizes.bone);
    for (const PmxVertex &vertex : vertices) {
        m_out.writeLength(vertex.position);
        m_out.writeDirection(vertex.normal);
        m_out.writeVector(vertex.uv);
        skin.write(vertex);
        m_out.writeF32(1.0f); // of the outline
    }
}

/// Triangles run the other way round than in the document.
void PmxWriter::writeFaces()
{
    const int order[3] = {0, m_out.isMirrored() ? 1 : 2, m_out.isMirrored() ? 2 : 1};
    const QVector<PmxFace> &faces = m_contents.model.faces();
    m_out.writeI32(faces.size() * 3);
    for (const PmxFace &face : faces) {
        for (const int corner : order)
            m_out.writeIndex(face.corners[corner].vertex, m_contents.sizes.vertex);
    }
}

void PmxWriter::writeTextures()
{
    const QStringList &paths = m_contents.textures.paths();
    m_out.writeI32(paths.size());
    for (const QString &path : paths)
        m_out.writeText(path);
}

void PmxWriter::writeMaterials()
{
    m_out.writeI32(m_contents.materials.size());
    for (int i = 0; i < m_contents.materials.size(); ++i) {
        writeMaterial(m_contents.materials.at(i));
        m_out.writeI32(m_contents.triangles.at(i) * 3);
    }
}

void PmxWriter::writeMaterial(int shader)
{
    const KMShaderNode *node = shader < 0 ? nullptr : gProject->shader(shader);
    const KMBasicShader values = node && node->type() == KMNodeType::BasicShader
                                     ? static_cast<const KMBasicShaderNode *>(node)->values()
                                     : blackShader();
    const auto texture = [&](KMBasicShader::TextureSlot slot) {
        return m_contents.textures.indexOf(values.textures[size_t(slot)]);
    };
    m_out.writeText(node ? node->name() : QString());
    m_out.writeText(node ? node->enName() : QString());
    writeColorAndAlpha(m_out, values.diffuse);
    writeColor(m_out, values.specular);
    m_out.writeF32(float(values.shininess));
    writeColor(m_out, values.ambient);
    m_out.writeU8(values.outlineEnabled ? Pmx::MaterialEdge : 0);
    writeColorAndAlpha(m_out, values.outlineColor);
    m_out.writeF32(values.outlineSize * m_contents.edgeScale);
    m_out.writeIndex(texture(KMBasicShader::Diffuse), m_contents.sizes.texture);
    m_out.writeIndex(texture(KMBasicShader::Sphere), m_contents.sizes.texture);
    m_out.writeU8(sphereMode(values, texture(KMBasicShader::Sphere)));
    m_out.writeU8(0); // the toon is none of those that players bring along
    m_out.writeIndex(texture(KMBasicShader::Toon), m_contents.sizes.texture);
    m_out.writeText(QString());
}

void PmxWriter::writeMorphs()
{
    const PmxMorphs &morphs = m_contents.morphs;
    m_out.writeI32(morphs.count());
    for (int i = 0; i < morphs.count(); ++i) {
        m_out.writeText(morphs.name(i));
        m_out.writeText(m_contents.translations.value(morphs.name(i)));
        m_out.writeU8(morphs.panel(i));
        m_out.writeU8(Pmx::VertexMorph);
        morphs.writeOffsets(m_out, i, m_contents.sizes.vertex);
    }
}

void PmxWriter::writeDisplayFrames()
{
    const QVector<const KMDisplayNode *> frames = writtenFrames();
    QVector<QVector<FrameItem>> items;
    for (const KMDisplayNode *frame : frames)
        items.append(itemsOf(*frame, m_contents));
    if (items.size() - items.count({}) < demandedFrames) // players have no use for an empty one
        qDebug("Warning: DisplayNode is insufficient to export.");
    m_out.writeI32(frames.size());
    for (int i = 0; i < frames.size(); ++i) {
        const KMDisplayNode *frame = frames.at(i);
        m_out.writeText(frame->name());
        m_out.writeText(frame->enName());
        m_out.writeU8(frame->isSpecial());
        m_out.writeI32(items.at(i).size());
        for (const FrameItem &item : items.at(i)) {
            m_out.writeU8(item.kind);
            m_out.writeIndex(item.index,
                             item.kind == Pmx::DisplayedBone ? m_contents.sizes.bone : m_contents.sizes.morph);
        }
    }
}
