#pragma once

#include <QList>
#include <QString>

class KMMeshNode;
class KMMorph;
class KMTagMorph;

/// The morphs that the user works on.
namespace KMMorphTargets {

extern const QString MorphMimeType; ///< of dragged rows; the payload is that of KMTreeWidget::mimeDataOf()

/// The tag that is chosen: the current tag, else that of the current node, else that of the first selected mesh which
/// has one. Where none of these is a morph tag, the last answer holds while its mesh is in the scene. Null for none.
KMTagMorph *tag();
QList<KMMorph *> selectedMorphs(const KMTagMorph &tag); ///< whose rows are selected, in their order

/// The selected meshes that have as many vertices with faces as the mesh of the tag, which is left out itself.
QList<KMMeshNode *> candidates(const KMTagMorph &tag);

} // namespace KMMorphTargets
