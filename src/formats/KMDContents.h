#pragma once

#include "core/KMSolution.h"
#include "formats/KMDDisplayBlock.h"
#include "formats/KMDViewParts.h"
#include "math/Vector3.h"

#include <QByteArray>
#include <QColor>
#include <QHash>
#include <QString>

#include <array>
#include <memory>
#include <vector>

class KMNode;
class KMShaderNode;

/// A texture as the file tells it. Its node is made when the document is built, since file textures of equal
/// paths share one.
struct KMDTextureRecord
{
    int type = 0;
    quint64 id = 0;
    QString name;
    QString path;   ///< of a file texture
    QByteArray png; ///< of an embedded texture
};

/// A material, whose texture slots still hold indices into the file's own textures.
struct KMDShaderRecord
{
    quint64 id = 0;
    std::unique_ptr<KMShaderNode> node;
};

/// A node that is in no document yet.
struct KMDNodeRecord
{
    std::unique_ptr<KMContainerNode> node;
    quint64 id = 0;
    int parent = -1; ///< index of its parent's record, which stands before it; -1 at the top
    int depth = 0;   ///< 0 at the top
    bool expanded = false;
};

/// Everything that was read from a native file. The document is touched only when all of it is here.
struct KMDContents
{
    QString name;
    QString information;
    QColor background;
    kvm::Vector3 lightAngles;
    std::array<QString, 4> textInfo;

    int fogDistance = 0;
    KMSolution::ViewFlags viewFlags{};
    bool nodeFilterOn = false;
    int displayMask = 0;
    QVector<KMDCamera> cameras;
    QVector<KMDViewSettings> views;

    std::vector<KMDTextureRecord> textures;
    std::vector<KMDShaderRecord> shaders;
    std::vector<KMDNodeRecord> nodes;
    std::vector<KMDDisplayRecord> displayGroups;
    QHash<quint64, KMNode *> objects; ///< what has an id in a record: nodes, bones; they belong to the records

    quint64 currentNode = 0;
    quint64 currentShader = 0;
    quint64 currentTexture = 0;
    quint64 currentBone = 0;
};
