#pragma once

#include "core/KMNode.h"

#include <QList>
#include <QSet>
#include <QString>

class KMBoolNode;
class KMStringNode;
class KMTagBase;
class KMUndoCommand;
class QTreeWidgetItem;

/// What a container offers to the schematic: a parameter and how it is called there.
struct KMNodePort
{
    KMNode *node; ///< may be null: callers must tolerate it
    QString label;
};

/// Anything with a name and a place in the document. Its parent and its place among its siblings are those
/// of its row, item(); nobody keeps a second copy of the hierarchy.
///
/// The functions under "Hooks" are how the session reaches into classes that it doesn't know: meshes,
/// primitives, modifiers and bones override what concerns them, the rest keep the neutral bodies.
class KMContainerNode : public KMNode
{
    Q_OBJECT
public:
    KMContainerNode();
    ~KMContainerNode() override;

    QString name() const;
    void setName(const QString &name);
    QString enName() const; ///< the second, English name of a model for exchange formats
    void setEnName(const QString &name);
    bool isVisible() const;
    virtual void setVisible(bool visible);
    bool isLocked() const;
    void setLocked(bool locked);
    bool isDeleted() const { return m_deleted; } ///< logically gone: only its undo command keeps it alive
    void setDeleted(bool deleted) { m_deleted = deleted; }
    bool isSelected() const { return m_selected; }
    void setSelected(bool selected);
    QTreeWidgetItem *item() const { return m_item; } ///< the row; null while the node isn't in the tree
    void setItem(QTreeWidgetItem *item) { m_item = item; }
    int index() const { return m_index; } ///< number within the bone family, id of a camera, else -1
    void setIndex(int index) { m_index = index; }

    KMStringNode *nameNode() const { return m_name; }
    KMStringNode *enNameNode() const { return m_enName; }
    KMBoolNode *visibleNode() const { return m_visible; }
    KMBoolNode *lockedNode() const { return m_locked; }

    void addNodePort(KMNode *node, const QString &label);
    KMNode *nodePort(const QString &objectName) const; ///< the first port whose node is called so, else null
    QList<KMNodePort> ports() const { return m_ports; }

    /// Appends a tag and numbers its name: the present name with the first of 0, 1, 2, ... that is free
    /// among the live tags. Returns the tag's index. The node owns the tag from now on.
    int addTag(KMTagBase *tag);
    int addTagKeepName(KMTagBase *tag);       ///< for loading; returns the tag's index
    int insertTag(int index, KMTagBase *tag); ///< for undo; returns the last index
    int removeTag(KMTagBase *tag);            ///< doesn't delete it; returns the last index
    bool hasTag(const KMTagBase *tag) const;
    int indexOfTag(const KMTagBase *tag) const;         ///< in the list with the deleted ones; -1 when it isn't there
    QString numberedTagName(const QString &name) const; ///< as addTag() would call a tag of this name
    int tagCount() const { return m_tags.size(); }
    KMTagBase *tag(int index) const { return m_tags.value(index, nullptr); }
    QList<KMTagBase *> tags() const { return m_tags; }
    void clearTags(); ///< deletes all tags
    int liveTagCount() const;
    void cloneTagsTo(KMContainerNode *destination) const; ///< copies the live tags

    // Hooks

    virtual KMContainerNode *clone() const; ///< an unattached copy; null for classes that can't be copied
    virtual void pushAddCommand();          ///< pushes the command that brings this node into the scene
    virtual void pushDeleteCommand();       ///< pushes the command that takes this node and its subtree out
    virtual void pushContentsDeleted() {} ///< before that, also for nodes below it: deletes what has no row in the tree
    virtual void pushRenameCommand(const QString &name);     ///< pushes the command that gives it another name
    virtual bool isRefreshDeferred() const { return false; } ///< a command of the history will refresh it
    virtual void refreshAfterEdit() {}                       ///< computes what the dirty bits ask for
    virtual void notifyDependents() {}                       ///< hands its changes to tags and modifiers
    virtual void forceFullRefresh() {}                       ///< once after the history was emptied
    virtual void tagsChanged() {} ///< a command brought, removed or moved a tag: what depends on tags is stale
    virtual QList<KMContainerNode *> evaluatedMeshes() const { return {}; } ///< what a modifier or primitive makes
    virtual bool isChainStale() const { return false; }           ///< a mesh whose modifiers in the tree are others now
    virtual KMUndoCommand *makeBuildCommand() { return nullptr; } ///< links the chain of such a mesh anew
    virtual QSet<int> shaderReferences() const { return {}; }  ///< indices into KMProject::shaders() that it refers to
    virtual QSet<int> textureReferences() const { return {}; } ///< indices into KMProject::textures() that it refers to
    virtual void pushShaderRemoved(int index); ///< follows the removal of the shader at this place of the list

signals:
    void selectionChanged(bool selected);

private:
    bool m_deleted = false;
    bool m_selected = false;
    QTreeWidgetItem *m_item = nullptr; // owned by the tree, or by the command that took it out
    int m_index = -1;
    KMStringNode *m_name; // these four are owned
    KMStringNode *m_enName;
    KMBoolNode *m_visible;
    KMBoolNode *m_locked;
    QList<KMNodePort> m_ports;
    QList<KMTagBase *> m_tags; // owned
};
