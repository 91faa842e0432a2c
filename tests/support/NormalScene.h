#pragma once

#include "support/MeshFixtures.h"

class KMTagNormal;

/// Meshes with the normals of their corners, and all that is lasting about their normal tags.
class NormalDump : public MeshDump
{
protected:
    void writeDetails(QTextStream &out, const KMContainerNode *node) override;
};

/// A session whose document is one selected mesh with an empty normal tag; the history is empty.
class NormalScene : public MeshScene
{
public:
    explicit NormalScene(KMMeshNode *mesh); ///< takes the mesh over

    static KMTagNormal *addTag(KMMeshNode *mesh);
    static void selectAll(KMMeshNode *mesh, bool vertices, bool edges, bool faces);

    KMTagNormal *tag;
    NormalDump normals;
};
