#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMEdgeCut.h"
#include "mesh/KMExtrusion.h"
#include "mesh/KMMeshEdit.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshNodeCommands.h"
#include "modifiers/KMModSymNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMBoneTreeCommands.h"
#include "rig/KMBoneWeightCommands.h"
#include "rig/KMSkinning.h"
#include "rig/KMTagBoneWeight.h"
#include "support/CommandProof.h"
#include "support/MeshFixtures.h"
#include "support/SkinReference.h"
#include "support/TestRegistry.h"
#include "support/WeightScene.h"

#include <QTest>
#include <QUndoStack>

#include <functional>
#include <memory>

namespace {

/// Bones and weights at random. Every second vertex shall be blended spherically.
class RandomSkin : public WeightScene
{
public:
    explicit RandomSkin(unsigned seed)
        : WeightScene(MeshFixtures::torus(12, 8))
        , random(seed)
    {
        for (int i = 0; i < 9; ++i) {
            KMBone *parent = i == 0 || below(4) == 0 ? nullptr : bones.at(below(i));
            const kvm::Vector3 head = random.vector(8);
            bones << addBone(QStringLiteral("bone"), parent, head, i == 8 ? head : head + random.vector(8));
            bones.last()->setMovable(below(2));
        }
        bones << addBone(QStringLiteral("spare"), nullptr, {}, {0, 1, 0});
        for (KMVertex *vertex : mesh->vertices())
            vertex->pos = random.vector(10);
        for (int v = 0; v < mesh->vertexCount(); ++v)
            weigh(v);
        forget();
    }

    int below(int limit) { return int(random.number(0, limit - 1e-6)); }
    void weigh(int vertex)
    {
        KMWeightEdit edit(tag);
        edit.setEntries(vertex, {});
        const int first = below(2) ? below(3) : below(9); // a few pairs have many vertices
        const int count = below(4) == 0 ? below(5) : 2;
        for (int i = 0; i < count; ++i)
            edit.setWeight(vertex, bones.at((first + i * (1 + below(2))) % 9),
                           below(8) ? float(random.number(0.05, 0.95)) : float(below(2)));
        edit.write(KMWeightEdit::Side::After);
        tag->setSdefFlag(vertex, vertex % 2);
    }
    void pose()
    {
        for (KMBone *bone : bones) {
            PoseTransform pose;
            pose.rotation = random.rotation();
            pose.offset = random.vector(3);
            bone->setKeyPose(pose);
        }
        rig->animation()->reevaluate();
    }
    /// The farthest that a vertex is from where the words take it.
    double away() const
    {
        KMSkinning skinning;
        skinning.prepare(*tag, tag->records());
        const SkinReference words(*tag);
        double worst = 0;
        for (int v = 0; v < mesh->vertexCount(); ++v) {
            if (!mesh->vertex(v))
                continue;
            const SkinReference::Vec expected = words.at(v);
            const double size = 1 + std::sqrt(reference::dot(expected, expected));
            worst =
                std::max(worst, reference::distance(expected, reference::vec(skinning(v, mesh->position(v)))) / size);
        }
        return worst;
    }

    RandomMath random;
    QList<KMBone *> bones;
};

QString recordText(const KMTagBoneWeight &tag, int vertex)
{
    const VertexWeights record = tag.vertexWeights(vertex);
    QString text = QStringLiteral("%1 %2 %3").arg(record.vertex()).arg(record.sdef()).arg(record.unrelated());
    for (int i = 0; i < record.count(); ++i)
        text += QStringLiteral(" %1=%2").arg(quintptr(record.bone(i))).arg(double(record.weight(i)), 0, 'g', 9);
    return text + printed(record.sdefC()) + printed(record.sdefR0()) + printed(record.sdefR1());
}

QStringList recordTexts(const KMTagBoneWeight &tag)
{
    QStringList texts;
    for (int v = 0; v < tag.mesh()->vertexCount(); ++v)
        texts << recordText(tag, v);
    return texts;
}

/// As a tag has them that begins with the same entries.
QStringList textsAfresh(const KMTagBoneWeight &tag)
{
    const std::unique_ptr<KMTagBoneWeight> copy(tag.clone());
    tag.mesh()->addTagKeepName(copy.get());
    const QStringList texts = recordTexts(*copy);
    tag.mesh()->removeTag(copy.get());
    return texts;
}

} // namespace

class tst_KMTagBoneWeight : public QObject
{
    Q_OBJECT
private slots:
    void skinByWords_data();
    void skinByWords();
    void recordsFollowEdits();
    void normalizing_data();
    void normalizing();
    void commands_data();
    void commands();
    void newVertices_data();
    void newVertices();
    void renumbering();
    void goneBones();
    void chainIsLeftItsSkin();
    void turnedParent();
};

void tst_KMTagBoneWeight::skinByWords_data()
{
    QTest::addColumn<int>("method");
    QTest::addColumn<bool>("normalized");
    QTest::addColumn<float>("blend");
    QTest::newRow("parent") << 0 << false << 100.0f;
    QTest::newRow("child") << 1 << false << 60.0f;
    QTest::newRow("both") << 2 << false << 100.0f;
    QTest::newRow("both, normalised") << 2 << true << 130.0f;
    QTest::newRow("parent, normalised") << 0 << true << 0.0f;
}

void tst_KMTagBoneWeight::skinByWords()
{
    QFETCH(int, method);
    QFETCH(bool, normalized);
    QFETCH(float, blend);
    int related = 0, unrelated = 0, linear = 0;
    for (unsigned seed = 1; seed <= 12; ++seed) {
        RandomSkin skin(seed);
        KMWeightParameters parameters;
        parameters.sdefMethod = method;
        parameters.autoNormalize = normalized;
        parameters.sdefBlend = blend;
        skin.tag->setParameters(parameters);
        skin.pose();
        QVERIFY2(skin.away() < 2e-4, qPrintable(QStringLiteral("%1 in %2").arg(skin.away()).arg(seed)));
        for (int v = 0; v < skin.mesh->vertexCount(); ++v) {
            const VertexWeights record = skin.tag->vertexWeights(v);
            (!record.sdef() ? linear : record.unrelated() ? unrelated : related) += 1;
        }
    }
    QVERIFY(related > 50 && unrelated > 50 && linear > 50);
}

/// What is derived step by step is what is derived afresh, and what it tells to have derived is all that is other.
void tst_KMTagBoneWeight::recordsFollowEdits()
{
    RandomSkin skin(77);
    KMWeightParameters parameters;
    int told = 0, most = 0;
    for (int step = 0; step < 400; ++step) {
        const int revision = skin.tag->records().sdefRevision();
        const QStringList before = recordTexts(*skin.tag);
        QVector<int> edited{skin.below(skin.mesh->vertexCount())};
        const int vertex = edited.first(), kind = skin.below(12);
        if (kind == 0) {
            skin.mesh->setPosition(vertex, skin.random.vector(10));
        } else if (kind == 1) {
            parameters.autoNormalize = skin.below(2);
            parameters.sdefMethod = skin.below(3);
            skin.tag->setParameters(parameters);
        } else if (kind == 2) {
            skin.bones.at(skin.below(9))->setRest(restBone(skin.random.vector(8), skin.random.vector(8)));
        } else if (kind < 5) {
            skin.tag->setSdefFlag(vertex, skin.below(2));
        } else if (kind < 8) {
            skin.weigh(vertex);
        } else {
            edited += vertex / 3;
            for (const int v : std::as_const(edited)) {
                for (const BoneWeightEntry &entry : skin.tag->entriesOf(v))
                    skin.tag->addEntry({v, float(skin.random.number(0, 1)), entry.bone});
            }
        }
        if (kind > 2) // where the places are as they were
            skin.tag->editedRecords();
        const QStringList texts = recordTexts(*skin.tag);
        QCOMPARE(texts, textsAfresh(*skin.tag));
        if (!skin.tag->records().derivedSince(revision, edited))
            continue;
        ++told;
        for (int v = 0; v < texts.size(); ++v)
            QVERIFY(texts.at(v) == before.at(v) || edited.contains(v));
        most = std::max(most, edited.size());
    }
    QVERIFY(told > 100 && most > 5);
}

void tst_KMTagBoneWeight::normalizing_data()
{
    QTest::addColumn<QVector<float>>("weights");
    QTest::addColumn<QVector<float>>("expected");
    const float third = 0.3f * (1.0f / (0.3f + 0.3f + 0.3f));
    QTest::newRow("all zero") << QVector<float>{0, 0} << QVector<float>{0, 1};
    QTest::newRow("one") << QVector<float>{0.2f} << QVector<float>{1};
    QTest::newRow("one of zero") << QVector<float>{0} << QVector<float>{1};
    QTest::newRow("thirds") << QVector<float>{0.3f, 0.3f, 0.3f} << QVector<float>{third, third, 1 - (third + third)};
    QTest::newRow("no number, above one") << QVector<float>{float(qQNaN()), 7, -3} << QVector<float>{0, 1, 0};
}

void tst_KMTagBoneWeight::normalizing()
{
    QFETCH(QVector<float>, weights);
    QFETCH(QVector<float>, expected);
    WeightScene scene(MeshFixtures::cube());
    for (int i = 0; i < weights.size(); ++i)
        scene.tag->addEntry({3, weights.at(i), scene.addBone(QStringLiteral("b"), nullptr, {}, {0, 1, 0})});
    KMWeightParameters parameters;
    parameters.autoNormalize = true;
    scene.tag->setParameters(parameters);
    QCOMPARE(scene.tag->vertexWeights(3).weights(), expected);
    QCOMPARE(scene.tag->entriesOf(3).size(), expected.size());
    QCOMPARE(scene.tag->vertexWeights(2).count(), 0);
    KMWeightEdit edit(scene.tag);
    edit.normalize(3);
    edit.write(KMWeightEdit::Side::After);
    for (int i = 0; i < expected.size(); ++i)
        QCOMPARE(scene.tag->entriesOf(3).at(i).weight, expected.at(i));
}

using MakeCommand = std::function<KMUndoCommand *(RandomSkin &)>;
Q_DECLARE_METATYPE(MakeCommand)

void tst_KMTagBoneWeight::commands_data()
{
    QTest::addColumn<MakeCommand>("make");
    QTest::addColumn<QString>("text");
    const auto row = [](const char *name, const char *text, const MakeCommand &make) {
        QTest::newRow(name) << make << QString::fromLatin1(text);
    };
    row("add", "Add BoneWeight", [](RandomSkin &s) {
        return new addBoneWeightCommand(s.mesh, s.tag, {{5, 0.4f, s.bones[9]}, {6, 0.25f, s.bones[9]}});
    });
    row("delete", "Delete BoneWeight", [](RandomSkin &s) {
        return new deleteBoneWeightCommand(s.mesh, s.tag, s.tag->entriesOf(4) + s.tag->entriesOf(5).mid(0, 1));
    });
    row("edit", "Edit BoneWeight", [](RandomSkin &s) {
        QVector<BoneWeightEntry> entries = s.tag->entries();
        for (BoneWeightEntry &entry : entries)
            entry.weight = 0.5f;
        return new editBoneWeightCommand(s.mesh, s.tag, entries);
    });
    row("settings", "Edit BoneWeight", [](RandomSkin &s) {
        return new editTagBoneWeightCommand(s.mesh, s.tag, {1, true, 40.0f});
    });
    row("flag", "Set Sdef Flag", [](RandomSkin &s) { return new setSdefFlagCommand(s.mesh, s.tag, {3, 4, 5, 6}); });
    row("unflag", "Remove Sdef Flag", [](RandomSkin &s) {
        return new removeSdefFlagCommand(s.mesh, s.tag, {3, 4, 5, 6});
    });
}

void tst_KMTagBoneWeight::commands()
{
    QFETCH(MakeCommand, make);
    QFETCH(QString, text);
    RandomSkin skin(5);
    skin.tag->records();
    const QString failure = proofFailure(skin.dump, [&skin, make] { return make(skin); });
    QVERIFY2(failure.isEmpty(), qPrintable(failure));
    QCOMPARE(skin.session.stack().text(skin.session.stack().index() - 1), text);
    skin.pose();
    QVERIFY(skin.away() < 2e-4); // the records went along
    skin.session.stack().undo();
    QVERIFY(skin.away() < 2e-4);
}

/// Weights go with their vertices, and those of a vertex that went come back with it.
void tst_KMTagBoneWeight::newVertices_data()
{
    QTest::addColumn<unsigned>("seed");
    for (unsigned seed = 1; seed <= 12; ++seed)
        QTest::addRow("%u", seed) << seed;
}

/// A point on an edge lies between the weights of its ends; what is extruded weighs what it came from.
void tst_KMTagBoneWeight::newVertices()
{
    QFETCH(const unsigned, seed);
    RandomSkin scene(seed);
    QVector<KMEdgeCut> cuts;
    for (int i = 0; i < 9; ++i) {
        const KMEdge *edge = scene.mesh->edges().at(scene.below(scene.mesh->edgeCount()));
        const float first = float(scene.random.number(0.05, 0.7));
        cuts.append({edge->index0, edge->index1, {first, first + 0.25f}});
    }
    const auto text = [&] {
        scene.mesh->refreshAfterEdit();
        return scene.dump.text() + recordTexts(*scene.tag).join(QLatin1Char('\n'));
    };
    QVector<QVector<int>> made;
    QCOMPARE(stepFailure(text, QStringLiteral("Edit"),
                         [&] {
                             const KMUndoMacro macro(QStringLiteral("Edit"));
                             made = KMMeshEdit::cutEdges(*scene.mesh, cuts);
                         }),
             QString());
    for (int i = 0; i < cuts.size(); ++i) {
        const auto &[a, b, ratios] = cuts.at(i);
        for (int point = 0; point < made.at(i).size(); ++point) {
            const int vertex = made.at(i).at(point);
            for (KMBone *bone : scene.bones) {
                const double t = double(ratios.at(point));
                const double expected =
                    double(scene.tag->weight(a, bone)) * (1 - t) + double(scene.tag->weight(b, bone)) * t;
                QVERIFY(std::abs(double(scene.tag->weight(vertex, bone)) - expected) < 1e-6);
            }
            QCOMPARE(scene.tag->hasSdefFlag(vertex), scene.tag->hasSdefFlag(a) && scene.tag->hasSdefFlag(b));
        }
    }

    const auto weights = [&](int vertex) { return scene.tag->entriesOf(vertex).size(); };
    const auto extrude = [&] {
        int face = scene.below(scene.mesh->faceCount());
        while (!scene.mesh->face(face)) // the cuts took its place
            face = (face + 1) % scene.mesh->faceCount();
        scene.mesh->setFaceFlag(face, KMElementFlag::Selected);
        std::vector<KMExtrusion> extrusions;
        extrusions.emplace_back(*scene.mesh, KMExtrusion::Options());
        extrusions.front().setLength(1.0f);
        KMExtrusion::apply(extrusions);
    };
    const int count = scene.mesh->vertexCount();
    QCOMPARE(stepFailure(text, QStringLiteral("Extrude"), extrude), QString());
    QVERIFY(scene.mesh->vertexCount() > count);
    for (int v = count; v < scene.mesh->vertexCount(); ++v) {
        bool isOfOne = false;
        for (int from = 0; from < count && !isOfOne; ++from) {
            isOfOne = weights(from) == weights(v);
            for (const BoneWeightEntry &entry : scene.tag->entriesOf(from))
                isOfOne = isOfOne && scene.tag->weight(v, entry.bone) == entry.weight;
        }
        QVERIFY(isOfOne);
    }
}

void tst_KMTagBoneWeight::renumbering()
{
    RandomSkin skin(8);
    const QString before = skin.dump.text();
    QHash<QString, QVector<float>> weights;
    const auto placeText = [](const kvm::Vector3 &p) { return printed(p); };
    for (int v = 0; v < skin.mesh->vertexCount(); ++v)
        weights.insert(placeText(skin.mesh->position(v)), skin.tag->vertexWeights(v).weights());
    for (const int v : {3, 4, 17, 40, 95})
        KMMeshEdit::deleteVertex(*skin.mesh, v);
    gSolution->push(new compactMeshCommand(skin.mesh));
    QVERIFY(skin.mesh->vertexCount() < 96);
    for (int v = 0; v < skin.mesh->vertexCount(); ++v)
        QCOMPARE(skin.tag->vertexWeights(v).weights(), weights.value(placeText(skin.mesh->position(v))));
    skin.session.stack().setIndex(0);
    QCOMPARE(skin.dump.text(), before);
}

void tst_KMTagBoneWeight::goneBones()
{
    RandomSkin skin(9);
    skin.pose();
    gSolution->push(new deleteBoneCommand(skin.bones[2]));
    QVERIFY(skin.away() < 2e-4); // its share stays at rest
    skin.session.stack().undo();
    QVERIFY(skin.away() < 2e-4);
    const int entries = skin.tag->entries().size();
    delete skin.rig->clone(); // bones of others
    QCOMPARE(skin.tag->entries().size(), entries);

    auto elsewhere = std::make_unique<KMBone>();
    skin.tag->addEntry({0, 1.0f, elsewhere.get()});
    KMWeightParameters parameters;
    parameters.autoNormalize = true;
    skin.tag->setParameters(parameters);
    elsewhere.reset();
    QCOMPARE(skin.tag->entries().size(), entries);
    QVERIFY(skin.away() < 2e-4);
}

/// Records of a mesh with a chain, or of a result, aren't derived anew by what leaves them alone; others are.
void tst_KMTagBoneWeight::chainIsLeftItsSkin()
{
    WeightScene scene(MeshFixtures::cube());
    KMBone *below = scene.addBone(QStringLiteral("a"), nullptr, {0, -1, 0}, {});
    KMBone *above = scene.addBone(QStringLiteral("b"), below, {}, {0, 1, 0});
    scene.tag->addEntry({0, 0.5f, below});
    scene.tag->addEntry({0, 0.5f, above});
    scene.tag->setSdefFlag(0, true);
    const auto isDerivedBy = [](KMMeshNode &mesh, int mask) {
        auto *tag = WeightScene::weightsOf(mesh);
        const int before = tag->records().sdefRevision();
        tag->rebuildWeights(mask);
        return tag->records().sdefRevision() != before && tag->vertexWeights(0).count() == 2;
    };
    const int everything = int(KMMeshDirty::All);
    QVERIFY(isDerivedBy(*scene.mesh, KMTagBoneWeight::OnlyEditable) && isDerivedBy(*scene.mesh, everything));
    QVERIFY(!isDerivedBy(*scene.mesh, 1));
    KMModSymNode symmetry;
    scene.mesh->linkChain({{true, &symmetry}});
    scene.mesh->refreshMesh(KMMeshDirty::All);
    for (KMMeshNode *mesh : {scene.mesh, symmetry.modMesh()}) {
        QVERIFY(!isDerivedBy(*mesh, KMTagBoneWeight::OnlyEditable));
        QVERIFY(isDerivedBy(*mesh, everything));
    }
    scene.mesh->linkChain({});
    const std::unique_ptr<KMMeshNode> copy(scene.mesh->clone());
    QCOMPARE(static_cast<KMTagBoneWeight *>(copy->tag(0))->entries(), scene.tag->entries());
}

/// Two bones without a bond below one that turns: shown beside the form that would turn with it.
void tst_KMTagBoneWeight::turnedParent()
{
    WeightScene scene(MeshFixtures::grid(4, 4));
    KMBone *root = scene.addBone(QStringLiteral("root"), nullptr, {0, -10, 0}, {0, -5, 0});
    KMBone *left = scene.addBone(QStringLiteral("left"), root, {1, 0, 2}, {-1, 0, 2});
    KMBone *right = scene.addBone(QStringLiteral("right"), root, {3, 0, 2}, {5, 0, 2});
    for (int v = 0; v < scene.mesh->vertexCount(); ++v) {
        const float share = qBound(0.1f, scene.mesh->position(v).x / 4.0f, 0.9f);
        scene.tag->addEntry({v, 1.0f - share, left});
        scene.tag->addEntry({v, share, right});
        scene.tag->setSdefFlag(v, true);
    }
    for (const float degrees : {0.0f, 10.0f, 45.0f, 90.0f, 180.0f}) {
        PoseTransform pose;
        pose.rotation = kvm::Quaternion::fromAxisAngle({0.2f, 1, 0.3f}, degrees * float(M_PI) / 180.0f);
        root->setKeyPose(pose);
        scene.rig->animation()->reevaluate();
        KMSkinning skinning;
        skinning.prepare(*scene.tag, scene.tag->records());
        const SkinReference words(*scene.tag);
        double written = 0, rigid = 0, ours = 0;
        for (int v = 0; v < scene.mesh->vertexCount(); ++v) {
            const SkinReference::Vec turned = reference::vec(root->skinMatrix() * scene.mesh->position(v));
            written = std::max(written, reference::distance(words.at(v), turned));
            rigid = std::max(rigid, reference::distance(words.rigid(v), turned));
            ours =
                std::max(ours, reference::distance(words.at(v), reference::vec(skinning(v, scene.mesh->position(v)))));
        }
        qInfo("parent turned by %g: as written %.3f away from a rigid turn, rigid form %.3f", double(degrees), written,
              rigid);
        QVERIFY(ours < 1e-4);
        QVERIFY(rigid < 1e-4 && (written < 1e-4) == (degrees == 0.0f));
    }
}

KM_TEST(tst_KMTagBoneWeight);

#include "tst_KMTagBoneWeight.moc"
