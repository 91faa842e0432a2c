#pragma once

#include "core/KMNode.h"

#include <QList>
#include <QString>

class KMStringNode;

/// Data that hangs on a container: weights, morphs, rigid bodies, selections and the like.
/// The hooks let a tag follow the edits of the mesh that owns it; the mesh's refresh calls them.
class KMTagBase : public KMNode
{
    Q_OBJECT
public:
    KMTagBase();
    ~KMTagBase() override;

    virtual void setOwner(KMNode *owner);
    virtual KMNode *owner() const;

    virtual void unapply() {}       ///< takes its offsets off the positions, before something reads base positions
    virtual void apply() {}         ///< lays its offsets on the positions again
    virtual void onFullRefresh() {} ///< everything about the mesh may have changed
    virtual void onNodeEvent(quint32 flags); ///< pending notifications of the mesh, once a frame
    virtual void remapIndices() {}           ///< the mesh was renumbered; it answers old index to new
    virtual void rebuildWeights(int mask);   ///< the refresh computes what the mask names
    virtual void onVertexRemoved(int index); ///< a vertex slot became empty
    virtual void removeOffsets() {}          ///< takes its offsets off and forgets them
    virtual void resetValues() {}            ///< puts its parameters back to rest

    /// A new tag of the same class with a copy of the data, not yet attached to a node.
    virtual KMTagBase *clone() const = 0;

    virtual QList<KMNode *> blockNodes() const { return {}; } ///< its parts that may have a block in the schematic

    QString name() const;
    void setName(const QString &name);
    KMStringNode *nameNode() const { return m_name; }
    bool isSelected() const { return m_selected; }
    void setSelected(bool selected) { m_selected = selected; }
    bool isDeleted() const { return m_deleted; } ///< kept alive by a command only; ignored by every list
    void setDeleted(bool deleted) { m_deleted = deleted; }

private:
    KMStringNode *m_name; // owned
    bool m_selected = false;
    bool m_deleted = false;
    KMNode *m_owner = nullptr; // not owned
};
