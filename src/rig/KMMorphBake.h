#pragma once

#include <QString>
#include <QVector>

class KMMeshNode;
class KMTagMorph;

/// Takes the morphs of a mesh through its chain of modifiers, which may make other vertices of it.
namespace KMMorphBake {

/// A morph that was dropped, since under it the chain makes other vertices: either another number of them, or the same
/// number with empty places elsewhere.
struct Loss
{
    QString morph;
    int count;    ///< of vertices under the morph
    int expected; ///< without it
};

/// The tags of a mesh that hold its morphs: seldom more than one, but files may bring several.
QVector<KMTagMorph *> tagsOf(const KMMeshNode &mesh);

void rest(const QVector<KMTagMorph *> &tags); ///< brings their morphs to the value 0, without the history

/// Gives the shape, which is the result of the source's chain without morphs, tags with the same morphs: each moves
/// its vertices as the chain does when the morph alone has the value 1. Nothing for a source without a morph tag.
QVector<Loss> sample(const KMMeshNode &source, KMMeshNode &shape);

/// The same; the line of messages names the morphs that were dropped.
void carry(const KMMeshNode &source, KMMeshNode &shape);

} // namespace KMMorphBake
