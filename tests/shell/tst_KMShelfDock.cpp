#include "core/KMFileTextureNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "shell/docks/KMShelfDock.h"
#include "support/TestRegistry.h"

#include <QListWidget>
#include <QSignalSpy>
#include <QTest>

/// Tiles and their pictures.
class tst_KMShelfDock : public QObject
{
    Q_OBJECT
private slots:
    void picturesAreKept();
};

namespace {

/// Counts the pictures that it makes.
class CountingShelf : public KMShelfDock
{
public:
    CountingShelf()
        : KMShelfDock(QStringLiteral("shelf"), QStringLiteral("Shelf"), QStringLiteral("node"))
    {
        connect(gProject, &KMProject::texturesChanged, this, &CountingShelf::refill);
    }

    mutable int made = 0;

protected:
    QList<KMContainerNode *> nodes() const override
    {
        QList<KMContainerNode *> nodes;
        for (KMNode *node : gProject->textures())
            nodes << nodeAs<KMContainerNode>(node);
        return nodes;
    }
    QPixmap picture(KMContainerNode *, const QSize &size) const override
    {
        ++made;
        QPixmap picture(size);
        picture.fill(Qt::red);
        return picture;
    }
    QByteArray pictureKey(KMContainerNode *node) const override { return node->name().toUtf8(); }
    KMContainerNode *current() const override { return nullptr; }
    void setCurrent(KMContainerNode *) override {}
};

} // namespace

/// A step that brings many textures, or takes them back, makes all tiles once, and the pictures that are seen.
void tst_KMShelfDock::picturesAreKept()
{
    KMHeadlessSession session;
    CountingShelf shelf;
    const QSignalSpy told(gProject, &KMProject::texturesChanged);
    constexpr int count = 12;
    {
        const KMUndoMacro macro(QStringLiteral("Textures"));
        for (int i = 0; i < count; ++i)
            gProject->addToScene(new KMFileTextureNode(QStringLiteral("/%1.png").arg(i)));
    }
    const auto *list = shelf.findChild<QListWidget *>();
    const auto isSeen = [list](int i) { return !list->item(i)->icon().isNull(); };
    QCOMPARE(told.size(), 1);
    QCOMPARE(list->count(), count);
    QVERIFY(isSeen(3) && isSeen(5));
    QCOMPARE(shelf.made, 2);
    gProject->addToScene(new KMFileTextureNode(QStringLiteral("/more.png")));
    QVERIFY(isSeen(3) && isSeen(4));
    QCOMPARE(shelf.made, 3); // tiles that stay keep theirs
    session.stack().undo();
    QCOMPARE(told.size(), 3);
    session.stack().undo();
    QCOMPARE(told.size(), 4);
    QCOMPARE(list->count(), 0);
    session.stack().redo();
    QCOMPARE(told.size(), 5);
    QCOMPARE(list->count(), count);
    QCOMPARE(shelf.made, 3);
}

KM_TEST(tst_KMShelfDock);
#include "tst_KMShelfDock.moc"
