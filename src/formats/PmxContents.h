#pragma once

#include "formats/PmxLayout.h"
#include "formats/PmxModel.h"
#include "formats/PmxMorphs.h"
#include "formats/PmxTextures.h"

#include <QHash>
#include <QString>
#include <QVector>

class KMBone;
class KMBoneContainer;
class KMTagJoint;
class KMTagRigidBody;

/// Everything that a PMX file is written from, counted and in its order.
struct PmxContents
{
    template <class Tag>
    struct OnBone
    {
        const Tag *tag;
        const KMBone *bone;
    };

    const PmxModel &model;
    const PmxMorphs &morphs;
    const PmxTextures &textures;
    const KMBoneContainer &root;
    QVector<int> materials; ///< shader indices; the faces are grouped in their order
    QVector<int> triangles; ///< of each material
    QVector<OnBone<KMTagRigidBody>> bodies = {};
    QHash<const KMTagRigidBody *, int> bodyPlaces = {}; ///< in that list
    QVector<OnBone<KMTagJoint>> joints = {};
    QHash<QString, QString> translations = {}; ///< names of bones and morphs in the universal language
    float edgeScale = 1.0f;
    bool convertAxis = false;
    Pmx::IndexSizes sizes = {};

    int bodyIndex(const KMTagRigidBody *body) const { return bodyPlaces.value(body, -1); }
};
