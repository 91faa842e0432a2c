#include "core/KMNodeType.h"
#include "support/TestRegistry.h"

#include <QSet>
#include <QTest>

class tst_KMNodeType : public QObject
{
    Q_OBJECT
private slots:
    void familiesOfAnId_data();
    void familiesOfAnId();
    void noIdOrNameTwice();
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
    {0x200000, "OTHERNODE", "c+"},
    {0x200005, "N_MORPH", "c+"},
    {0x600001, "N_BOOL", "ct"},
    {0x600006, "N_USERCAMERA", "ct+"},
    {0x800000, "OTHERNODE", "M"},
    {0x4600000, "N_NULL", "ctN*"},
    {0x4600004, "N_MESH", "ctN+*"},
    {0x4e00002, "N_MODBONE", "ctMN+*"},
    {0x4e00009, "OTHERNODE", "ctMN+*"},
    {0x5600001, "N_SPHERE", "ctPN+*"},
    {0x6600002, "N_BONE", "ctCN+*"},
    {0x6600004, "N_BONECONTAINER", "ctCN+"},
    {0x8000001, "OTHERNODE", "S"},
    {0x10000001, "OTHERNODE", "X"},
    {0x20000000, "OTHERNODE", "G"},
    {0x20000001, "N_TAGSEL", "G"},
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

} // namespace

void tst_KMNodeType::familiesOfAnId_data()
{
    QTest::addColumn<int>("id");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("families");

    for (const Expected &type : expectedTypes) {
        QTest::newRow(QByteArray::number(type.id, 16).constData())
            << type.id << QString::fromLatin1(type.name) << QByteArray(type.families);
    }
}

void tst_KMNodeType::familiesOfAnId()
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
}

KM_TEST(tst_KMNodeType);

#include "tst_KMNodeType.moc"
