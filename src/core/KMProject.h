#pragma once

#include "core/KMContainerNode.h"
#include "core/KMNodeListView.h"

#include <QSet>

#include <array>
#include <memory>

class KMBasicShaderNode;
class KMBluePrint;
class KMBlockModel;
class KMBoolNodeContainer;
class KMCameraNode;
class KMCtrlNode;
class KMDisplayNode;
class KMFileTextureNode;
class KMFloatNodeContainer;
class KMIntNodeContainer;
class KMMeshNode;
class KMModifierNode;
class KMNullNode;
class KMPrimitiveNode;
class KMShaderNode;
class KMTextureNode;
class KMTreeWidget;

/// The model: owns all nodes of the scene in one list for each family, hands out unique names and ids, makes
/// the built-in shaders, and answers what is in the scene. The order and parenthood of the nodes are those
/// of the rows of its tree.
///
/// A node that a command took out stays in its family's list, marked deleted, until the command itself
/// goes; the derived lists and the live lists of shaders and textures hold only what is in the scene.
class KMProject : public KMContainerNode
{
    Q_OBJECT
public:
    KMProject();
    ~KMProject() override;

    KMTreeWidget *tree() const { return m_tree.get(); }
    bool isDestroying() const { return m_destroying; }

    // What is in the document

    KMNodeListView<KMNode> allNodes() const { return view<KMNode>(AllNodes); }
    KMNodeListView<KMIntNodeContainer> intNodes() const { return view<KMIntNodeContainer>(IntNodes); }
    KMNodeListView<KMFloatNodeContainer> floatNodes() const { return view<KMFloatNodeContainer>(FloatNodes); }
    KMNodeListView<KMBoolNodeContainer> boolNodes() const { return view<KMBoolNodeContainer>(BoolNodes); }
    KMNodeListView<KMNullNode> nullNodes() const { return view<KMNullNode>(NullNodes); }
    KMNodeListView<KMMeshNode> meshNodes() const { return view<KMMeshNode>(MeshNodes); }
    KMNodeListView<KMModifierNode> modifierNodes() const { return view<KMModifierNode>(ModifierNodes); }
    KMNodeListView<KMPrimitiveNode> primitiveNodes() const { return view<KMPrimitiveNode>(PrimitiveNodes); }
    KMNodeListView<KMCtrlNode> ctrlNodes() const { return view<KMCtrlNode>(CtrlNodes); }
    KMNodeListView<KMTextureNode> allTextures() const { return view<KMTextureNode>(AllTextures); }
    KMNodeListView<KMShaderNode> allShaders() const { return view<KMShaderNode>(AllShaders); }
    KMNodeListView<KMDisplayNode> displayNodes() const { return view<KMDisplayNode>(DisplayNodes); }
    KMNodeListView<KMBluePrint> bluePrints() const { return view<KMBluePrint>(BluePrints); }
    KMNodeListView<KMCameraNode> cameras() const { return view<KMCameraNode>(Cameras); }

    KMNodeListView<KMTextureNode> textures() const
    {
        return view<KMTextureNode>(Textures);
    } ///< what materials refer to by index
    KMNodeListView<KMShaderNode> shaders() const
    {
        return view<KMShaderNode>(Shaders);
    } ///< what faces refer to by index
    KMNodeListView<KMBasicShaderNode> defaultShaders() const { return view<KMBasicShaderNode>(DefaultShaders); }

    // Derived from the tree, in its order, without what is deleted

    KMNodeListView<KMMeshNode> meshesInTree() const { return derivedView<KMMeshNode>(MeshesInTree); }
    KMNodeListView<KMMeshNode> renderMeshes() const
    {
        return derivedView<KMMeshNode>(RenderMeshes);
    } ///< with what modifiers and primitives make
    KMNodeListView<KMModifierNode> modifiersInTree() const { return derivedView<KMModifierNode>(ModifiersInTree); }
    KMNodeListView<KMPrimitiveNode> primitivesInTree() const { return derivedView<KMPrimitiveNode>(PrimitivesInTree); }
    KMNodeListView<KMCtrlNode> ctrlsInTree() const { return derivedView<KMCtrlNode>(CtrlsInTree); }
    void rebuildDerivedLists(); ///< marks them stale; they are rebuilt when next asked for
    enum class RowChange { Entered, Left, Moved };
    /// A row was put into the tree, taken out or moved, with all below it: the lists follow at once. A row that moved
    /// within the tree stands at its new place already.
    void followRow(QTreeWidgetItem *row, RowChange change);

    /// The shader at an index of a face: from 0 on one of shaders(), below it the built-in one of that number,
    /// -1 being the default. Null outside both lists.
    KMShaderNode *shader(int index) const;

    // Adding and deleting, each as a step of the history

    /// The general entry of the menus: one macro "Add Node" with a unique name, list entry and add command.
    void addNode(KMContainerNode *node);
    enum class Naming { Unique, Keep };
    /// The same without a macro of its own: for readers and commands that have one open. A file that is read
    /// has given its nodes their names already.
    void addToScene(KMContainerNode *node, Naming naming = Naming::Unique);
    void deleteNode(KMContainerNode *node); ///< one macro "Delete Node"; shaders and textures with their references
    KMFileTextureNode *addTextureFile(const QString &path); ///< the live node of an equal path, or a new one
    void addCamera(KMContainerNode *camera);   ///< no command: cameras are not edited in steps; the project owns it
    KMContainerNode *cameraById(int id) const; ///< the camera whose index() is the id; null when there is none
    void addRaw(KMContainerNode *node);        ///< unique name and list entry with neither row nor command, for readers
    void checkModifiers(); ///< pushes a build command for each mesh whose chain isn't the one of the tree any more

    QString uniqueName(const KMContainerNode *node) const; ///< among the live nodes of its family

    // For commands

    void removeNode(KMContainerNode *node) { removeNodes({node}); }
    void
    removeNodes(const QList<KMContainerNode *> &nodes); ///< out of every list and forgotten by the session; not deleted
    /// Deletes what only a command still kept, after removing it from every list. Nothing is left to do when
    /// the project went first: it owned the nodes of its lists.
    static void destroyNodes(const QList<KMContainerNode *> &nodes);
    void retitleBlock(KMNode *node, const QString &title); ///< its block in the schematic, where there is one
    enum class Shelf { Shaders, Textures };
    void attachToShelf(Shelf shelf, int index, KMContainerNode *node); ///< into the live list; an index of -1 appends
    int detachFromShelf(Shelf shelf, KMContainerNode *node);           ///< out of the live list; returns where it was
    /// Tells of the live lists that have changed since. The session does at the end of each step: a panel makes all its
    /// tiles anew, and a step may bring or take thousands.
    void announceShelves();

    void clear(); ///< empties everything for another document; the history must be empty already
    void setBlockModel(KMBlockModel *blocks) { m_blocks = blocks; } ///< not owned; null for none
    KMBlockModel *blockModel() const { return m_blocks; }           ///< null while there is no schematic

    // The project's own data

    QString information() const;
    void setInformation(const QString &text);
    QString textInfo(int number) const; ///< number 1 to 4
    void setTextInfo(int number, const QString &text);
    int currentFrame() const { return m_currentFrame; }
    void setCurrentFrame(int frame); ///< emits frameChanged, which drives the bones

    int newId(); ///< a number not in use yet, entered as used
    void releaseId(int id);

signals:
    void shadersChanged(); ///< the live list of shaders is another
    void texturesChanged();
    void frameChanged(int frame);
    /// A bone is gone for good: who refers to it forgets it now. Not told while the project empties itself.
    void boneDestroyed(KMNode *bone);

private:
    enum List {
        AllNodes,
        IntNodes,
        FloatNodes,
        BoolNodes,
        NullNodes,
        MeshNodes,
        ModifierNodes,
        PrimitiveNodes,
        CtrlNodes,
        AllTextures,
        AllShaders,
        DisplayNodes,
        BluePrints,
        Cameras,
        Textures,
        Shaders,
        DefaultShaders,
        MeshesInTree,
        RenderMeshes,
        ModifiersInTree,
        PrimitivesInTree,
        CtrlsInTree,
        ListCount,
        NoList = -1
    };
    struct Family;
    static const Family families[];

    template <class T>
    KMNodeListView<T> view(List list) const
    {
        return KMNodeListView<T>(m_lists[list]);
    }
    template <class T>
    KMNodeListView<T> derivedView(List list) const
    {
        return KMNodeListView<T>(currentList(list));
    }
    const QList<KMNode *> &currentList(List list) const; ///< brings derived lists up to date first
    void refillDerivedLists() const;
    static List derivedListOf(const KMContainerNode *node);
    bool takeFromDerived(List list, const QList<KMNode *> &run);
    bool insertIntoDerived(List list, const QList<KMNode *> &run, QTreeWidgetItem *row);
    int derivedPlace(List list, QTreeWidgetItem *row) const;
    static const Family *familyOf(int type);
    void enlist(KMContainerNode *node, Naming naming);
    void makeDefaultShaders();
    void resetProperties();
    void deleteShader(KMShaderNode *shader);
    void deleteTexture(KMTextureNode *texture);
    void deleteTreeNode(KMContainerNode *node);
    void deleteBlocks(const QList<KMNode *> &nodes);
    void deleteContents();
    QList<KMNode *> &shelfList(Shelf shelf);
    void markShelf(Shelf shelf);

    std::unique_ptr<KMTreeWidget> m_tree;
    mutable std::array<QList<KMNode *>, ListCount> m_lists;
    mutable bool m_derivedStale = false;      // all of the derived lists
    mutable bool m_renderMeshesStale = false; // the one with what modifiers and primitives make
    bool m_shadersTold = true;                // who shows the live lists knows them as they are
    bool m_texturesTold = true;
    bool m_destroying = false;
    KMBlockModel *m_blocks = nullptr;
    KMStringNode *m_information; // owned
    std::array<QString, 4> m_textInfo;
    int m_currentFrame = 0;
    QSet<int> m_idTable;
};

extern KMProject *gProject; ///< the model of the one open document; null before the session and after it
