#include "core/KMBasicShaderNode.h"
#include "core/KMConnectionNode.h"
#include "core/KMEmbeddedTextureNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMNodeType.h"
#include "core/KMNullNode.h"
#include "core/KMPbrShaderNode.h"
#include "core/KMProcTextureNode.h"
#include "core/KMProject.h"
#include "core/KMStringNode.h"
#include "core/KMValueNodeContainer.h"
#include "core/KMVariantNode.h"
#include "support/TestRegistry.h"

#include <QDebug>
#include <QSet>
#include <QTest>

#include <iterator>
#include <memory>

class tst_KMNodeType : public QObject
{
    Q_OBJECT
private slots:
    void idsOfTheFileFormat_data();
    void idsOfTheFileFormat();
    void noIdOrNameTwice();
    void idsWithoutAName_data();
    void idsWithoutAName();
    void newNodesBearTheirId_data();
    void newNodesBearTheirId();
    void printsToTheLog();
};

namespace {

struct Expected
{
    int id;
    const char *name;
    const char *families; ///< a letter for each predicate that holds
};

// Families: container, tree node, Modifier, Primitive, Ctrl, Null, Shader, teXture, taG; state columns '+', movable
// '*'.
const Expected expectedTypes[] = {
    {1, "OTHERNODE", ""},
    {2, "OTHERNODE", ""},
    {3, "OTHERNODE", ""},
    {4, "OTHERNODE", ""},
    {5, "OTHERNODE", ""},
    {6, "OTHERNODE", ""},
    {11, "OTHERNODE", ""},
    {14, "OTHERNODE", ""},
    {0x200000, "OTHERNODE", "c+"},
    {0x200004, "OTHERNODE", "c+"},
    {0x200005, "N_MORPH", "c+"},
    {0x200006, "OTHERNODE", "c+"},
    {0x200007, "OTHERNODE", "c+"},
    {0x600001, "N_BOOL", "ct"},
    {0x600002, "N_INT", "ct"},
    {0x600003, "N_FLOAT", "ct"},
    {0x600006, "N_USERCAMERA", "ct+"},
    {0x800000, "OTHERNODE", "M"},
    {0x1000000, "OTHERNODE", "P"},
    {0x2000000, "OTHERNODE", "C"},
    {0x4600000, "N_NULL", "ctN*"},
    {0x4600004, "N_MESH", "ctN+*"},
    {0x4600005, "N_BLUEPRINT", "ctN+*"},
    {0x4e00002, "N_MODBONE", "ctMN+*"},
    {0x4e00003, "N_MODCLN", "ctMN+*"},
    {0x4e00004, "N_MODSDV", "ctMN+*"},
    {0x4e00005, "N_MODSYM", "ctMN+*"},
    {0x4e00006, "N_MODFFD", "ctMN+*"},
    {0x4e00007, "N_MODPIPE", "ctMN+*"},
    {0x4e00008, "N_MODSOL", "ctMN+*"},
    {0x4e00009, "OTHERNODE", "ctMN+*"},
    {0x4e0000a, "N_MODANCHOR", "ctMN+*"},
    {0x5600001, "N_SPHERE", "ctPN+*"},
    {0x5600002, "N_CUBE", "ctPN+*"},
    {0x5600003, "N_CYLINDER", "ctPN+*"},
    {0x5600004, "N_TORUS", "ctPN+*"},
    {0x5600005, "N_PLANE", "ctPN+*"},
    {0x5600006, "N_PTEXT", "ctPN+*"},
    {0x5600007, "OTHERNODE", "ctPN+*"},
    {0x6600002, "N_BONE", "ctCN+*"},
    {0x6600004, "N_BONECONTAINER", "ctCN+"},
    {0x8000001, "OTHERNODE", "S"},
    {0x8000002, "OTHERNODE", "S"},
    {0x10000001, "OTHERNODE", "X"},
    {0x10000002, "OTHERNODE", "X"},
    {0x10000003, "OTHERNODE", "X"},
    {0x20000000, "OTHERNODE", "G"},
    {0x20000001, "N_TAGSEL", "G"},
    {0x20000002, "N_TAGTEXT", "G"},
    {0x20000003, "N_TAGMORPH", "G"},
    {0x20000004, "N_TAGNORMAL", "G"},
    {0x20000005, "N_TAGBONEWEIGHT", "G"},
    {0x20000006, "N_TAGRIGID", "G"},
    {0x20000007, "N_TAGJOINT", "G"},
    {0x20000008, "N_TAGCONST", "G"},
    {0x20000009, "N_TAGFLOAT", "G"},
    {0x2000000a, "N_TAGGROUP", "G"},
};

QByteArray familiesOf(int id)
{
    struct Predicate
    {
        bool (*holds)(int);
        char letter;
    };
    const Predicate predicates[] = {
        {[](int i) { return isContainer(i); }, 'c'},     {[](int i) { return isTreeNode(i); }, 't'},
        {[](int i) { return isModifier(i); }, 'M'},      {[](int i) { return isPrimitive(i); }, 'P'},
        {[](int i) { return isCtrl(i); }, 'C'},          {[](int i) { return isNull(i); }, 'N'},
        {[](int i) { return isShader(i); }, 'S'},        {[](int i) { return isTexture(i); }, 'X'},
        {[](int i) { return isTag(i); }, 'G'},           {[](int i) { return hasStateColumns(i); }, '+'},
        {[](int i) { return isTransformable(i); }, '*'},
    };
    QByteArray letters;
    for (const Predicate &predicate : predicates) {
        if (predicate.holds(id))
            letters += predicate.letter;
    }
    return letters;
}

using Maker = KMNode *(*)();

template <class T>
KMNode *make()
{
    return new T;
}

} // namespace

Q_DECLARE_METATYPE(Maker)

void tst_KMNodeType::idsOfTheFileFormat_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("families");

    for (const Expected &type : expectedTypes) {
        QTest::newRow(QByteArray::number(type.id, 16).constData())
            << type.id << QString::fromLatin1(type.name) << QByteArray(type.families);
    }
}

void tst_KMNodeType::idsOfTheFileFormat()
{
    QFETCH(int, id);
    QFETCH(QString, name);
    QFETCH(QByteArray, families);
    QVERIFY(KMNodeType::find(id));
    QCOMPARE(nodeTypeName(id), name);
    QCOMPARE(familiesOf(id), families);
}

void tst_KMNodeType::noIdOrNameTwice()
{
    QSet<int> ids;
    QSet<QByteArray> names;
    for (const KMNodeType::Row *row = KMNodeType::begin(); row != KMNodeType::end(); ++row) {
        QVERIFY2(!ids.contains(row->id), QByteArray::number(row->id, 16).constData());
        ids << row->id;
        if (!row->logName)
            continue;
        QVERIFY2(!names.contains(row->logName), row->logName);
        names << row->logName;
    }
    QCOMPARE(ids.size(), int(std::size(expectedTypes)));
}

void tst_KMNodeType::idsWithoutAName_data()
{
    QTest::addColumn<int>("id");

    QTest::newRow("none") << 0;
    QTest::newRow("between two") << 0x600004;
    QTest::newRow("family alone") << 0x4000000;
    QTest::newRow("negative") << -1;
}

void tst_KMNodeType::idsWithoutAName()
{
    QFETCH(int, id);
    QVERIFY(!KMNodeType::find(id));
    QCOMPARE(nodeTypeName(id), QStringLiteral("OTHERNODE"));
}

void tst_KMNodeType::newNodesBearTheirId_data()
{
    QTest::addColumn<Maker>("maker");
    QTest::addColumn<int>("id");

    QTest::newRow("node") << Maker(&make<KMNode>) << 0;
    QTest::newRow("variant") << Maker(&make<KMVariantNode>) << 1;
    QTest::newRow("connection") << Maker(&make<KMConnectionNode>) << 2;
    QTest::newRow("bool") << Maker(&make<KMBoolNode>) << 3;
    QTest::newRow("int") << Maker(&make<KMIntNode>) << 4;
    QTest::newRow("float") << Maker(&make<KMFloatNode>) << 5;
    QTest::newRow("string") << Maker(&make<KMStringNode>) << 6;
    QTest::newRow("container") << Maker(&make<KMContainerNode>) << 0x200000;
    QTest::newRow("project") << Maker(&make<KMProject>) << 0x200004;
    QTest::newRow("bool container") << Maker(&make<KMBoolNodeContainer>) << 0x600001;
    QTest::newRow("int container") << Maker(&make<KMIntNodeContainer>) << 0x600002;
    QTest::newRow("float container") << Maker(&make<KMFloatNodeContainer>) << 0x600003;
    QTest::newRow("null") << Maker(&make<KMNullNode>) << 0x4600000;
    QTest::newRow("basic shader") << Maker(&make<KMBasicShaderNode>) << 0x8000001;
    QTest::newRow("pbr shader") << Maker(&make<KMPbrShaderNode>) << 0x8000002;
    QTest::newRow("file texture") << Maker(&make<KMFileTextureNode>) << 0x10000001;
    QTest::newRow("computed texture") << Maker(&make<KMProcTextureNode>) << 0x10000002;
    QTest::newRow("embedded texture") << Maker(&make<KMEmbeddedTextureNode>) << 0x10000003;
}

void tst_KMNodeType::newNodesBearTheirId()
{
    QFETCH(Maker, maker);
    QFETCH(int, id);
    const std::unique_ptr<KMNode> node(maker());
    QCOMPARE(node->type(), id);
}

void tst_KMNodeType::printsToTheLog()
{
    QTest::ignoreMessage(QtDebugMsg, "node: KMNode(73400320) end");
    qDebug() << "node:" << KMNullNode() << "end";
}

KM_TEST(tst_KMNodeType);

#include "tst_KMNodeType.moc"
