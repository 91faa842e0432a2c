#pragma once

#include "core/KMHeadlessSession.h"
#include "support/DocumentDump.h"

#include <QString>

class KMMeshNode;

/// Small meshes by name, refreshed, with faces that turn outward or up. The caller owns them.
namespace MeshFixtures {

KMMeshNode *grid(int width, int height);   ///< so many quads, in the plane of x and z
KMMeshNode *torus(int around, int across); ///< closed, so many quads each way
KMMeshNode *cube();                        ///< 8 vertices, 6 quads
KMMeshNode *openCone(int sides = 6);       ///< vertex 0 is the tip, triangles, no base
KMMeshNode *quadWithHole();                ///< a ring of 8 quads about a missing one
KMMeshNode *nonManifoldFan(int quads = 5); ///< quads that share the edge of vertices 0 and 1
KMMeshNode *mixedBag();                    ///< quad, triangles, line polygon, a loose vertex, null slots

/// Puts the mesh on the screen as a view from above does: pixels are 100 plus ten times x and z. All is drawn.
void showOnScreen(KMMeshNode &mesh);

} // namespace MeshFixtures

/// What is wrong with the records, the edges or the lists of a refreshed mesh; empty when nothing is.
QString checkInvariants(const KMMeshNode &mesh);

/// All that is lasting about a mesh as text: slots, records, edges in the order of their keys.
QString meshText(const KMMeshNode &mesh);

/// The document with its meshes.
class MeshDump : public DocumentDump
{
protected:
    void writeDetails(QTextStream &out, const KMContainerNode *node) override;
};

/// A session whose document is one mesh; the history is empty.
class MeshScene
{
public:
    explicit MeshScene(KMMeshNode *mesh); ///< takes the mesh over

    KMHeadlessSession session;
    MeshDump dump;
    KMMeshNode *mesh;
};
