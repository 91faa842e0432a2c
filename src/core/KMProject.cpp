#include "core/KMProject.h"

#include "core/KMBasicShaderNode.h"
#include "core/KMBlockModel.h"
#include "core/KMNodeType.h"
#include "core/KMSessionWindow.h"
#include "core/KMShaderNode.h"
#include "core/KMSolution.h"
#include "core/KMStringNode.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "core/KMUniqueName.h"

#include <QRandomGenerator>

#include <algorithm>
#include <limits>
#include <utility>

KMProject *gProject = nullptr;

/// Where the nodes of a family are listed and among which names theirs has to be unique.
/// A row matches its one type, or every type with its flag.
struct KMProject::Family
{
    int type;
    int flag;
    List list;
    List namesIn; ///< NoList: names in this family need not be unique
};

const KMProject::Family KMProject::families[] = {
    {KMNodeType::Mesh, 0, MeshNodes, MeshesInTree},
    {KMNodeType::BluePrint, 0, BluePrints, BluePrints},
    {KMNodeType::Null, 0, NullNodes, NullNodes},
    {KMNodeType::BoolContainer, 0, BoolNodes, BoolNodes},
    {KMNodeType::IntContainer, 0, IntNodes, IntNodes},
    {KMNodeType::FloatContainer, 0, FloatNodes, FloatNodes},
    {KMNodeType::Display, 0, DisplayNodes, NoList},
    {KMNodeType::ProcTexture, 0, AllTextures, Textures},
    {0, KMNodeType::TextureFlag, AllTextures, NoList},
    {0, KMNodeType::ShaderFlag, AllShaders, NoList},
    {0, KMNodeType::ModifierFlag, ModifierNodes, ModifiersInTree},
    {0, KMNodeType::PrimitiveFlag, PrimitiveNodes, PrimitivesInTree},
    {KMNodeType::Bone, 0, NoList, NoList}, // its container owns, lists and names it
    {0, KMNodeType::CtrlFlag, CtrlNodes, CtrlNodes},
};

KMProject::KMProject()
    : m_tree(new KMTreeWidget)
    , m_information(new KMStringNode)
{
    setType(KMNodeType::Project);
    m_information->setOwner(this);
    resetProperties();
    makeDefaultShaders();
}

KMProject::~KMProject()
{
    m_destroying = true;
    if (gSolution && gSolution->project() == this)
        gSolution->setProject(nullptr);
    deleteContents();
    qDeleteAll(m_lists[Cameras]);
    qDeleteAll(m_lists[DefaultShaders]);
    delete m_information;
}

void KMProject::resetProperties()
{
    setName(tr("unnamed Project"));
    setEnName({});
    m_information->setValue(tr("information"));
    m_textInfo.fill({});
    m_currentFrame = 0;
    m_idTable.clear();
}

void KMProject::makeDefaultShaders()
{
    struct BuiltIn
    {
        const char *name;
        QColor diffuse, specular, ambient; // an invalid colour stays as constructed
    };
    const BuiltIn builtIns[] = {
        {"Default", {}, {}, {}},
        {"Default", {160, 172, 216, 255}, {64, 64, 64, 255}, {16, 16, 32, 255}},
        {"Orange", {255, 160, 0, 255}, {}, {}},
        {"Red", {200, 0, 32, 255}, {}, {}},
        {"Green", {0, 140, 32, 255}, {}, {}},
        {"Blue", {0, 0, 200, 255}, {96, 96, 128, 255}, {}},
        {"BoneGreen", {60, 100, 100, 200}, {}, {}},
        {"AlphaGray", {128, 128, 128, 32}, {}, {}},
        {"clear", {0, 0, 0, 0}, {}, {}},
    };
    for (const BuiltIn &row : builtIns) {
        auto *shader = new KMBasicShaderNode;
        shader->setName(QString::fromLatin1(row.name));
        KMBasicShader values = shader->values();
        if (row.diffuse.isValid())
            values.diffuse = row.diffuse;
        if (row.specular.isValid())
            values.specular = row.specular;
        if (row.ambient.isValid())
            values.ambient = row.ambient;
        shader->setValues(values);
        m_lists[DefaultShaders] << shader;
    }
}

void KMProject::clear()
{
    m_destroying = true;
    deleteContents();
    resetProperties();
    m_destroying = false;
    markShelf(Shelf::Shaders);
    markShelf(Shelf::Textures);
    announceShelves();
}

/// Lists and rows go before the nodes: a destructor, or who is told that nothing is current any more, finds an
/// empty scene and not one half deleted. Group and value nodes go first, as what they refer to must still be there.
void KMProject::deleteContents()
{
    static const List owning[] = {DisplayNodes,  BoolNodes,      IntNodes,  FloatNodes, NullNodes,  BluePrints,
                                  ModifierNodes, PrimitiveNodes, CtrlNodes, MeshNodes,  AllShaders, AllTextures};
    QList<KMNode *> nodes;
    for (const List list : owning)
        nodes += std::exchange(m_lists[list], {});
    for (const List list : {AllNodes, Textures, Shaders})
        m_lists[list].clear();
    for (const QTreeWidgetItem *row : KMTreeWidget::flatten(m_tree.get()))
        KMTreeWidget::nodeOf(row)->setItem(nullptr);
    m_tree->clear();
    rebuildDerivedLists();
    for (KMNode *node : std::as_const(nodes)) {
        if (gSolution)
            gSolution->forgetNode(node);
        delete node;
    }
}

KMShaderNode *KMProject::shader(int index) const
{
    return index >= 0 ? shaders().value(index) : static_cast<KMShaderNode *>(m_lists[DefaultShaders].value(-index));
}

const KMProject::Family *KMProject::familyOf(int type)
{
    for (const Family &family : families) {
        if (family.type ? family.type == type : (type & family.flag) != 0)
            return &family;
    }
    return nullptr;
}

QString KMProject::uniqueName(const KMContainerNode *node) const
{
    const Family *family = familyOf(node->type());
    if (!family || family->namesIn == NoList)
        return node->name();
    KMNumberedNames names(withoutTrailingDigits(node->name()));
    for (KMNode *other : currentList(family->namesIn)) {
        const auto *container = nodeAs<KMContainerNode>(other);
        if (!container->isDeleted())
            names.take(container->name());
        if (names.isFull())
            break;
    }
    return names.firstFree();
}

void KMProject::enlist(KMContainerNode *node, Naming naming)
{
    const Family *family = familyOf(node->type());
    Q_ASSERT(family);
    if (naming == Naming::Unique)
        node->setName(uniqueName(node));
    if (family->list == NoList)
        return;
    m_lists[family->list] << node;
    m_lists[AllNodes] << node;
}

void KMProject::addNode(KMContainerNode *node)
{
    if (gSolution->window())
        gSolution->window()->commitOpenEditors();
    const KMUndoMacro macro(tr("Add Node"));
    addToScene(node);
    if (isTreeNode(node->type()))
        checkModifiers();
}

void KMProject::addToScene(KMContainerNode *node, Naming naming)
{
    enlist(node, naming);
    node->pushAddCommand();
}

void KMProject::addRaw(KMContainerNode *node)
{
    enlist(node, Naming::Unique);
}

void KMProject::checkModifiers()
{
    const QList<KMNode *> meshes = currentList(MeshesInTree);
    for (KMNode *mesh : meshes) {
        auto *container = nodeAs<KMContainerNode>(mesh);
        if (!container->isChainStale())
            continue;
        if (KMUndoCommand *command = container->makeBuildCommand())
            gSolution->push(command);
    }
}

void KMProject::removeNodes(const QList<KMContainerNode *> &nodes)
{
    const QSet<KMNode *> gone(nodes.cbegin(), nodes.cend());
    for (QList<KMNode *> &list : m_lists) {
        const auto isGone = [&gone](KMNode *node) { return gone.contains(node); };
        list.erase(std::remove_if(list.begin(), list.end(), isGone), list.end());
    }
    for (const KMContainerNode *node : nodes)
        gSolution->forgetNode(node);
}

void KMProject::destroyNodes(const QList<KMContainerNode *> &nodes)
{
    if (!gProject)
        return;
    gProject->removeNodes(nodes);
    qDeleteAll(nodes);
}

void KMProject::retitleBlock(KMNode *node, const QString &title)
{
    if (m_blocks)
        m_blocks->retitle(node, title);
}

void KMProject::addCamera(KMContainerNode *camera)
{
    m_lists[Cameras] << camera;
}

KMContainerNode *KMProject::cameraById(int id) const
{
    for (KMNode *node : std::as_const(m_lists[Cameras])) {
        auto *camera = nodeAs<KMContainerNode>(node);
        if (camera->index() == id)
            return camera;
    }
    return nullptr;
}

QString KMProject::information() const
{
    return m_information->value();
}

void KMProject::setInformation(const QString &text)
{
    m_information->setValue(text);
}

QString KMProject::textInfo(int number) const
{
    return m_textInfo.at(size_t(number - 1));
}

void KMProject::setTextInfo(int number, const QString &text)
{
    m_textInfo.at(size_t(number - 1)) = text;
}

void KMProject::setCurrentFrame(int frame)
{
    m_currentFrame = frame;
    emit frameChanged(frame);
}

int KMProject::newId()
{
    int id;
    do {
        id = int(QRandomGenerator::global()->bounded(std::numeric_limits<int>::max()));
    } while (m_idTable.contains(id));
    m_idTable.insert(id);
    return id;
}

void KMProject::releaseId(int id)
{
    m_idTable.remove(id);
}
