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

/// A step that brings many textures, or takes them back, makes all tiles once, and a picture of each.
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
    QCOMPARE(list->count(), count);
    QCOMPARE(std::exchange(shelf.made, 0), count);
    QCOMPARE(told.size(), 1);
    session.stack().undo();
    QCOMPARE(list->count(), 0);
    QCOMPARE(shelf.made, 0);
    QCOMPARE(told.size(), 2);
    session.stack().redo();
    QCOMPARE(told.size(), 3);
    QCOMPARE(shelf.made, count);
    for (int i = 0; i < count; ++i)
        QVERIFY(!list->item(i)->icon().isNull());
}

KM_TEST(tst_KMShelfDock);
#include "tst_KMShelfDock.moc"
