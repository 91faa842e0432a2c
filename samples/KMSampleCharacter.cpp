#include "KMSampleCharacter.h"

#include "KMSampleBody.h"
#include "KMSampleClothes.h"
#include "KMSampleDisplay.h"
#include "KMSampleFace.h"
#include "KMSampleHair.h"
#include "KMSampleHead.h"
#include "KMSampleMorphs.h"
#include "KMSampleMotion.h"
#include "KMSamplePhysics.h"
#include "KMSampleRig.h"
#include "KMSampleShaders.h"
#include "KMSampleTextures.h"
#include "core/KMNodeTreeCommands.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTagCommands.h"
#include "core/KMUndoMacro.h"
#include "core/KMVersion.h"
#include "formats/KMNativeFormat.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMModSdvNode.h"
#include "render/KMCameraNode.h"
#include "render/KMCameraSet.h"
#include "render/KMViewFilter.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMModBoneDeformNode.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagMorph.h"

#include <algorithm>
#include <iterator>

namespace {

constexpr kvm::Vector3 lightAngles{32.0f, -18.0f, 0.0f}; // degrees, against the view
constexpr int outlineWidth = 220;                        // percent of the width that the materials name

/// Name and comment in Japanese, then both in English.
constexpr const char *modelTexts[] = {
    "Kelmo", "kelmo2 のサンプルキャラクターです。\n表情、SDEF、髪とスカートの物理演算が入っています。", "Kelmo",
    "The sample character of kelmo2,\nwith shapes of the face, spherical blends, and physics for hair and skirt."};

struct Part
{
    const char *name;
    void (*build)(KMSampleMesh &mesh);
};

constexpr Part parts[] = {
    {"Hair", &KMSampleHair::build},
    {"Hands", &KMSampleBody::buildHands},
    {"Jacket", &KMSampleClothes::buildJacket},
    {"Skirt", &KMSampleClothes::buildSkirt},
    {"Legs", &KMSampleBody::buildLegs},
    {"Shoes", &KMSampleClothes::buildShoes},
};

void addFace(KMMeshNode *mesh, const KMSampleMesh::Face &face)
{
    const int place = mesh->addFaceRaw(face.count(), face.corners.data());
    mesh->setFaceUVs(place, face.uvs.data());
    mesh->setFaceColor(place, {1.0f, 1.0f, 1.0f, 1.0f});
    mesh->setFaceShader(place, face.shader);
}

KMMeshNode *addMesh(const char *name, const KMSampleMesh &part)
{
    auto *mesh = new KMMeshNode;
    mesh->setName(QLatin1String(name));
    for (const KMSampleMesh::Vertex &vertex : part.vertices())
        mesh->addVertexRaw(vertex.position);
    for (const KMSampleMesh::Face &face : part.faces())
        addFace(mesh, face);
    mesh->buildEdges();
    gProject->addToScene(mesh, KMProject::Naming::Keep);
    return mesh;
}

/// Spherical blends keep elbows and knees full when they bend.
bool isSpherical(const KMSampleShares &shares)
{
    constexpr const char *pairs[][2] = {{"arm twist_L", "elbow_L"}, {"leg_L", "knee_L"}};
    if (shares.size() != 2)
        return false;
    const auto has = [&shares](const QByteArray &bone) {
        return std::any_of(shares.begin(), shares.end(),
                           [&bone](const KMSampleShare &share) { return share.bone == bone; });
    };
    return std::any_of(std::begin(pairs), std::end(pairs), [&has](const auto &pair) {
        return (has(pair[0]) && has(pair[1]))
               || (has(KMSampleMesh::mirroredName(pair[0])) && has(KMSampleMesh::mirroredName(pair[1])));
    });
}

void addWeights(KMMeshNode *mesh, const KMSampleMesh &part, const KMBoneContainer *rig)
{
    auto *tag = new KMTagBoneWeight;
    gSolution->push(new addTagCommand(mesh, tag, -1, addTagCommand::Name::Keep));
    QVector<BoneWeightEntry> entries;
    QVector<int> spherical;
    for (int i = 0; i < part.vertexCount(); ++i) {
        const KMSampleShares &shares = part.vertices().at(i).shares;
        for (const KMSampleShare &share : shares)
            entries.append({i, share.weight, rig->bone(QString::fromLatin1(share.bone))});
        if (isSpherical(shares))
            spherical << i;
    }
    gSolution->push(new addBoneWeightCommand(mesh, tag, entries));
    if (!spherical.isEmpty())
        gSolution->push(new setSdefFlagCommand(mesh, tag, spherical));
}

/// Smoothed, and then posed.
void addModifiers(KMMeshNode *mesh)
{
    auto *smooth = new KMModSdvNode;
    KMModSdvNode::Parameters parameters;
    parameters.level = 1;
    smooth->setParameters(parameters);
    for (KMModifierNode *modifier :
         {static_cast<KMModifierNode *>(smooth), static_cast<KMModifierNode *>(new KMModBoneDeformNode)}) {
        gProject->addRaw(modifier);
        gSolution->push(new insertNodeCommand(modifier, mesh, -1, KMRowFocus::Keep));
    }
}

/// The whole figure at first sight, with its pictures.
void aimCamera()
{
    KMViewFilter::reset();
    KMCameraNode *camera = KMCameraSet::camera(KMCameraNode::Perspective);
    camera->setPan({0.0f, 98.0f, 0.0f});
    camera->setPivot({0.0f, 98.0f, 0.0f});
    camera->setDistance(420.0f);
    camera->setAngles(-6.0f, 20.0f, 0.0f);
}

KMTagMorph *addMorphs(KMMeshNode *mesh, const QVector<KMSampleMorphs::Morph> &morphs)
{
    auto *tag = new KMTagMorph;
    gSolution->push(new addTagCommand(mesh, tag, -1, addTagCommand::Name::Keep));
    for (const KMSampleMorphs::Morph &row : morphs) {
        MorphDeltas deltas;
        for (const auto &move : row.moves) {
            const float length = move.second.length();
            if (length > 0.0f)
                deltas.append({move.first, length, move.second / length});
        }
        auto *morph = new KMMorph;
        morph->setName(row.name);
        morph->setPanel(row.panel);
        morph->setDeltas(deltas);
        gSolution->push(new addMorphCommand(tag, morph));
    }
    return tag;
}

KMTagMorph *addHead(const KMBoneContainer *rig)
{
    KMSampleMesh part;
    KMSampleHead head;
    head.build(part);
    KMSampleFace::build(part, head);
    part.finish();
    KMMeshNode *mesh = addMesh("Head", part);
    KMTagMorph *morphs = addMorphs(mesh, KMSampleMorphs::morphs(part, head));
    addWeights(mesh, part, rig);
    addModifiers(mesh);
    return morphs;
}

} // namespace

const char KMSampleCharacter::documentName[] = "kelmo.kmd";
const char KMSampleCharacter::motionName[] = "walk.vmd";
const char KMSampleCharacter::poseName[] = "greeting.vpd";

void KMSampleCharacter::build()
{
    {
        const KMUndoMacro macro(QStringLiteral("Sample"));
        KMSampleShaders::addToDocument();
        KMBoneContainer *rig = KMSampleRig::build();
        const KMTagMorph *morphs = addHead(rig);
        for (const Part &row : parts) {
            KMSampleMesh part;
            row.build(part);
            part.finish();
            KMMeshNode *mesh = addMesh(row.name, part);
            addWeights(mesh, part, rig);
            addModifiers(mesh);
        }
        gProject->checkModifiers();
        KMSamplePhysics::addBodies(rig);
        KMSampleDisplay::addGroups(rig, morphs);
        rig->setVisible(false);
        rig->tree()->setCurrentItem(nullptr);
    }
    gProject->setName(QStringLiteral("Kelmo"));
    for (int i = 0; i < int(std::size(modelTexts)); ++i)
        gProject->setTextInfo(i + 1, QString::fromUtf8(modelTexts[i]));
    gSolution->setFogDistance(outlineWidth);
    gSolution->setLightAngles(lightAngles);
    gSolution->setCurrentNode(nullptr);
    gSolution->clearHistory();
}

bool KMSampleCharacter::write(const QDir &folder)
{
    build();
    bool isWritten = KMSampleTextures::write(folder);
    KMNativeFormat format;
    const KMCameraSet cameras(&format);
    aimCamera();
    isWritten = format.write(folder.filePath(QLatin1String(documentName)), KMVersion::WriterForm) && isWritten;
    isWritten = KMSampleMotion::writeWalk(folder.filePath(QLatin1String(motionName))) && isWritten;
    return KMSampleMotion::writeGreeting(folder.filePath(QLatin1String(poseName))) && isWritten;
}
