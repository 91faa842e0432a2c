#pragma once

#include "formats/PmxExportOptions.h"
#include "support/PmxRecords.h"
#include "support/RigScene.h"

#include <QTemporaryDir>

class KMBasicShaderNode;
class KMDisplayNode;
class KMMeshNode;
class KMMorph;
class KMTagBoneWeight;
class KMTagConstraint;
class KMTagJoint;
class KMTagMorph;
class KMTagRigidBody;

/// A document with a rig of five bones, "center" over "arm", "elbow" and "hand", and "goal" beside it, and what tests
/// of PMX add to it.
class PmxScene : public RigScene
{
public:
    PmxScene();

    KMMeshNode *addMesh(KMMeshNode *mesh); ///< takes it over, at the end of the tree
    KMBasicShaderNode *addShader(const QString &name);
    static KMTagBoneWeight *weigh(KMMeshNode *mesh);
    /// A morph of the mesh that moves one vertex up by a length.
    static KMMorph *addMorph(KMMeshNode *mesh, const QString &name, int vertex, float length);
    static KMTagConstraint *constrain(KMBone *bone, int type, KMBone *target, float value = 0.0f);
    static KMTagRigidBody *addBody(KMBone *bone, const QString &name);
    static KMTagJoint *addJoint(KMBone *bone, KMTagRigidBody *a, KMTagRigidBody *b);
    KMDisplayNode *addFrame(const QString &name, const QVector<KMContainerNode *> &items);
    template <class Modifier>
    Modifier *addModifier(KMMeshNode *mesh, Modifier *modifier)
    {
        place(mesh, modifier);
        return modifier;
    }
    void addSomethingOfAll(); ///< what fills each section of a file

    QString path() const { return folder.filePath(QStringLiteral("model.pmx")); }
    QByteArray bytes();        ///< of an export with the options; empty when it failed
    PmxRecords exported();     ///< likewise
    static QString document(); ///< all that an export might change, meshes with their positions included

    QTemporaryDir folder;
    KMBone *center, *arm, *elbow, *hand, *goal;
    PmxExportOptions options;

private:
    static void place(KMMeshNode *mesh, KMContainerNode *modifier);
};
