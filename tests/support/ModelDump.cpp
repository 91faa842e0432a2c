#include "support/ModelDump.h"

#include "core/KMNodeType.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMTagMorph.h"
#include "support/MeshFixtures.h"

#include <QTextStream>

void ModelDump::writeDetails(QTextStream &out, const KMContainerNode *node)
{
    RigDump::writeDetails(out, node);
    if (node->type() != KMNodeType::Mesh)
        return;
    const auto *mesh = static_cast<const KMMeshNode *>(node);
    out << '\n' << meshText(*mesh) << mesh->modifiers().size() << " stages";
    const auto *tag = static_cast<const KMTagMorph *>(mesh->findTag(KMNodeType::TagMorph));
    const QList<KMMorph *> morphs = tag ? tag->liveMorphs() : QList<KMMorph *>();
    for (const KMMorph *morph : morphs) {
        out << "\n morph " << number(morph) << ' ' << morph->name() << '|' << morph->enName() << ' ' << morph->panel()
            << ' ' << morph->value();
        for (const MorphDelta &delta : morph->deltas())
            out << ' ' << delta.vertex
                << QByteArray(reinterpret_cast<const char *>(&delta.length), 4 * sizeof(float)).toHex();
    }
}
