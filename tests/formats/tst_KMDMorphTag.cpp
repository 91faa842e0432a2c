#include "core/KMHeadlessSession.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMMorphCommands.h"
#include "rig/KMTagMorph.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QTemporaryDir>
#include <QTest>

/// Morphs through a native file.
class tst_KMDMorphTag : public QObject
{
    Q_OBJECT
private slots:
    void comesBack();
};

/// The file has the shape without morphs, and numbers only vertices that are there.
void tst_KMDMorphTag::comesBack()
{
    MeshScene scene(MeshFixtures::grid(3, 3));
    KMNativeFormat format;
    gSolution->setDocumentFormat(&format);
    auto *tag = new KMTagMorph;
    scene.mesh->addTagKeepName(tag);
    const char *names[] = {"smile", "gone", "笑い"};
    for (const char *name : names) {
        auto *morph = new KMMorph;
        morph->setName(QString::fromUtf8(name));
        morph->setPanel(KMMorph::LeftTop);
        morph->setDeltas({{5, 0.1f, {0.6f, 0.8f, 0.0f}}, {2, 3.0f, {0, 1, 0}}});
        tag->addMorph(morph);
    }
    tag->morphs()[0]->setValue(1.5f);
    gSolution->push(new removeMorphCommand(tag, tag->morphs()[1]));
    KMMeshEdit::deleteVertex(*scene.mesh, 2);
    const kvm::Vector3 shown = scene.mesh->position(5);

    const QTemporaryDir folder;
    gSolution->setFileName(folder.filePath(QStringLiteral("morphs.kmd")));
    QVERIFY(gSolution->save());
    QCOMPARE(scene.mesh->position(5), shown);
    QVERIFY(gSolution->load(folder.filePath(QStringLiteral("morphs.kmd"))));
    QCOMPARE(gProject->meshesInTree().size(), 1);
    KMMeshNode *mesh = gProject->meshesInTree().first();
    mesh->refreshMesh(KMMeshDirty::All);
    const auto *read = static_cast<KMTagMorph *>(mesh->findTag(KMNodeType::TagMorph));
    QVERIFY(read);
    QCOMPARE(read->liveMorphs().size(), 2);
    QCOMPARE(read->liveMorphs()[1]->name(), QString::fromUtf8("笑い"));
    const KMMorph *smile = read->liveMorphs()[0];
    QCOMPARE(smile->value(), 1.5f);
    QCOMPARE(smile->panel(), int(KMMorph::LeftTop));
    QCOMPARE(smile->deltas(), (MorphDeltas{{4, 0.1f, {0.6f, 0.8f, 0.0f}}}));
    QCOMPARE(mesh->position(4), shown);
    gSolution->setDocumentFormat(nullptr);
}

KM_TEST(tst_KMDMorphTag);

#include "tst_KMDMorphTag.moc"
