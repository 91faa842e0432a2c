#include "core/KMHeadlessSession.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "formats/PmxExporter.h"
#include "formats/PmxImporter.h"
#include "formats/PmxReader.h"
#include "math/Quaternion.h"
#include "rig/KMBoneContainer.h"
#include "support/ScriptedPrompt.h"
#include "support/StrictReader.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>
#include <functional>

using kvm::Quaternion;
using kvm::Vector3;

namespace {

constexpr float scale = 10.0f; // of the import; the export's undoes it

PmxFile read(const QString &path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    PmxReader reader(file.readAll());
    return reader.readHeader() && reader.readContents(false) ? reader.takeFile() : PmxFile();
}

bool isNear(const Vector3 &a, const Vector3 &b, float tolerance = 1e-4f)
{
    return (a - b).length() <= tolerance * std::max(1.0f, a.length());
}

bool isSameTurn(const Vector3 &a, const Vector3 &b)
{
    return std::fabs(dot(Quaternion::fromEuler(a), Quaternion::fromEuler(b))) > 1.0f - 1e-5f;
}

/// Where the bones of a file stand when children follow their parents, branch by branch.
QVector<int> branchOrder(const PmxFile &file)
{
    QVector<QVector<int>> children(int(file.bones.size()) + 1);
    for (int i = 0; i < int(file.bones.size()); ++i)
        children[file.bones[size_t(i)].parent + 1] << i;
    QVector<int> places(int(file.bones.size()), -1);
    int next = 0;
    const std::function<void(int)> walk = [&](int bone) {
        if (bone >= 0)
            places[bone] = next++;
        for (const int child : std::as_const(children[bone + 1]))
            walk(child);
    };
    walk(-1);
    return places;
}

/// A file beside the one that the document made of it.
struct Pair
{
    PmxFile before;
    PmxFile after;
    QVector<int> bones; ///< from those before to those after

    int boneAfter(int bone) const { return bone < 0 ? -1 : bones.at(bone); }
    QString bonesDiffer() const;
    QString chainsDiffer() const;
    QString surfaceDiffers() const;
    QString morphsDiffer() const;
    QString materialsDiffer() const;
    QString framesDiffer() const;
    QString bodiesDiffer() const;
    QString jointsDiffer() const;

private:
    QMap<int, float> weightsOf(const PmxFile::Vertex &vertex, bool isBefore) const;
};

QString Pair::bonesDiffer() const
{
    constexpr int kept =
        Pmx::Movable | Pmx::HasIK | Pmx::InheritsRotation | Pmx::InheritsTranslation | Pmx::HasFixedAxis;
    if (before.bones.size() != after.bones.size())
        return QStringLiteral("count");
    for (int i = 0; i < bones.size(); ++i) {
        const PmxFile::Bone &was = before.bones[size_t(i)], &is = after.bones[size_t(bones.at(i))];
        const bool hasAxes = was.flags & Pmx::HasLocalAxes;
        const bool isRight =
            was.name.local == is.name.local && isNear(was.position, is.position) && boneAfter(was.parent) == is.parent
            && (was.flags & kept) == (is.flags & kept)
            && (!(was.flags & Pmx::InheritsRotation)
                || (boneAfter(was.rotation.bone) == is.rotation.bone && was.rotation.ratio == is.rotation.ratio))
            && (!hasAxes || (isNear(was.axisX, is.axisX, 1e-3f) && isNear(was.axisZ, is.axisZ, 1e-3f)))
            && std::fabs(was.tailOffset.length() - is.tailOffset.length()) < 1e-3f;
        if (!isRight)
            return was.name.local;
    }
    return {};
}

/// Limits belong to bones, so that all chains through one have those of the last. A chain is told by its length.
QString Pair::chainsDiffer() const
{
    QMap<int, PmxFile::Link> limits;
    for (const PmxFile::Bone &bone : before.bones) {
        for (const PmxFile::Link &link : bone.links) {
            if (link.isLimited)
                limits.insert(boneAfter(link.bone), link);
        }
    }
    for (int i = 0; i < bones.size(); ++i) {
        const PmxFile::Bone &was = before.bones[size_t(i)], &is = after.bones[size_t(bones.at(i))];
        if (!(was.flags & Pmx::HasIK))
            continue;
        if (boneAfter(was.ikTarget) != is.ikTarget || was.ikLoop != is.ikLoop || was.links.size() != is.links.size()
            || std::fabs(was.ikAngle - is.ikAngle) > 1e-5f)
            return was.name.local;
        int above = is.ikTarget;
        for (const PmxFile::Link &link : is.links) {
            above = after.bones[size_t(above)].parent;
            const PmxFile::Link limit = limits.value(link.bone);
            if (link.bone != above || link.isLimited != limit.isLimited || !isNear(limit.lower, link.lower)
                || !isNear(limit.upper, link.upper))
                return was.name.local;
        }
    }
    return {};
}

QMap<int, float> Pair::weightsOf(const PmxFile::Vertex &vertex, bool isBefore) const
{
    QMap<int, float> weights;
    for (int i = 0; i < vertex.boneCount; ++i) {
        const int bone = vertex.bones[size_t(i)];
        if (bone >= 0 && vertex.weights[size_t(i)] != 0.0f)
            weights[isBefore ? boneAfter(bone) : bone] += vertex.weights[size_t(i)];
    }
    return weights;
}

/// Corner by corner: which vertices corners share is another matter.
QString Pair::surfaceDiffers() const
{
    if (before.triangles.size() != after.triangles.size())
        return QStringLiteral("count");
    for (size_t t = 0; t < before.triangles.size(); ++t) {
        for (size_t c = 0; c < 3; ++c) {
            const PmxFile::Vertex &was = before.vertices[size_t(before.triangles[t][c])];
            const PmxFile::Vertex &is = after.vertices[size_t(after.triangles[t][c])];
            const QString where = QStringLiteral("triangle %1, corner %2").arg(t).arg(c);
            if (!isNear(was.position, is.position) || was.uv != is.uv || was.isSdef != is.isSdef)
                return where;
            const QMap<int, float> weightsBefore = weightsOf(was, true), weightsAfter = weightsOf(is, false);
            if (weightsBefore.size() < 2 ? weightsAfter.size() > 1 : weightsBefore.keys() != weightsAfter.keys())
                return where + QStringLiteral(", bones");
            for (auto w = weightsBefore.begin(); weightsBefore.size() > 1 && w != weightsBefore.end(); ++w) {
                if (std::fabs(w.value() - weightsAfter.value(w.key())) > 2e-3f)
                    return where + QStringLiteral(", weights");
            }
        }
    }
    return {};
}

QString Pair::morphsDiffer() const
{
    size_t place = 0;
    for (const PmxFile::Morph &was : before.morphs) {
        if (was.type != Pmx::VertexMorph)
            continue;
        if (place == after.morphs.size())
            return QStringLiteral("count");
        const PmxFile::Morph &is = after.morphs[place++];
        QVector<Vector3> waysBefore(int(before.vertices.size())), waysAfter(int(after.vertices.size()));
        for (const PmxFile::Offset &offset : was.offsets)
            waysBefore[offset.vertex] += offset.offset;
        for (const PmxFile::Offset &offset : is.offsets)
            waysAfter[offset.vertex] += offset.offset;
        bool isRight = was.name.local == is.name.local && was.panel == is.panel;
        for (size_t t = 0; t < before.triangles.size() && isRight; ++t) {
            for (size_t c = 0; c < 3; ++c)
                isRight = isRight && isNear(waysBefore.at(before.triangles[t][c]), waysAfter.at(after.triangles[t][c]));
        }
        if (!isRight)
            return was.name.local;
    }
    return place == after.morphs.size() ? QString() : QStringLiteral("count");
}

QString Pair::materialsDiffer() const
{
    const auto fileName = [](const PmxFile &file, int texture) {
        return texture < 0 ? QString() : file.textures.at(texture).section(QRegExp(QStringLiteral("[/\\\\]")), -1);
    };
    const auto isNearColor = [](const kvm::Vector4 &a, const kvm::Vector4 &b) {
        return std::fabs(a.x - b.x) + std::fabs(a.y - b.y) + std::fabs(a.z - b.z) + std::fabs(a.w - b.w) < 1e-3f;
    };
    size_t place = 0;
    for (const PmxFile::Material &was : before.materials) {
        if (was.triangleCount == 0) // nobody needs it
            continue;
        if (place == after.materials.size())
            return QStringLiteral("count");
        const PmxFile::Material &is = after.materials[place++];
        const bool isRight = was.name.local == is.name.local && was.triangleCount == is.triangleCount
                             && (was.flags & Pmx::MaterialEdge) == (is.flags & Pmx::MaterialEdge)
                             && was.edgeSize == is.edgeSize && isNearColor(was.diffuse, is.diffuse)
                             && isNearColor(was.edgeColor, is.edgeColor) && isNear(was.specular, is.specular, 1e-3f)
                             && isNear(was.ambient, is.ambient, 1e-3f)
                             && fileName(before, was.texture) == fileName(after, is.texture)
                             && fileName(before, was.sphere) == fileName(after, is.sphere)
                             && fileName(before, was.toon) == fileName(after, is.toon);
        if (!isRight)
            return was.name.local;
    }
    return {};
}

QString Pair::framesDiffer() const
{
    QMap<int, int> morphs;
    for (int i = 0; i < int(before.morphs.size()); ++i) {
        if (before.morphs[size_t(i)].type == Pmx::VertexMorph)
            morphs.insert(i, morphs.size());
    }
    size_t place = 0;
    for (const PmxFile::Frame &was : before.frames) {
        QVector<QPair<int, int>> items;
        for (const PmxFile::FrameItem &item : was.items) {
            const int index = item.kind == Pmx::DisplayedBone ? boneAfter(item.index) : morphs.value(item.index, -1);
            if (index >= 0 && !items.contains({item.kind, index}))
                items << qMakePair(item.kind, index);
        }
        if (items.isEmpty())
            continue;
        if (place == after.frames.size())
            return QStringLiteral("count");
        const PmxFile::Frame &is = after.frames[place++];
        QVector<QPair<int, int>> itemsAfter;
        for (const PmxFile::FrameItem &item : is.items)
            itemsAfter << qMakePair(item.kind, item.index);
        if (was.name.local != is.name.local || was.isSpecial != is.isSpecial || items != itemsAfter)
            return was.name.local;
    }
    return place == after.frames.size() ? QString() : QStringLiteral("count");
}

/// Bodies come in the order of their bones; one without a bone doesn't come.
QString Pair::bodiesDiffer() const
{
    QVector<PmxFile::Body> expected;
    for (const PmxFile::Body &body : before.bodies) {
        if (body.bone >= 0)
            expected << body;
    }
    std::stable_sort(expected.begin(), expected.end(), [this](const PmxFile::Body &a, const PmxFile::Body &b) {
        return boneAfter(a.bone) < boneAfter(b.bone);
    });
    if (expected.size() != int(after.bodies.size()))
        return QStringLiteral("count");
    for (int i = 0; i < expected.size(); ++i) {
        const PmxFile::Body &was = expected.at(i), &is = after.bodies[size_t(i)];
        const bool isRight = was.name.local == is.name.local && boneAfter(was.bone) == is.bone && was.group == is.group
                             && was.mask == is.mask && was.shape == is.shape && was.mode == is.mode
                             && isNear(was.size, is.size) && isNear(was.position, is.position)
                             && isSameTurn(was.rotation, is.rotation) && was.mass == is.mass
                             && was.linearDamping == is.linearDamping && was.angularDamping == is.angularDamping
                             && was.restitution == is.restitution && was.friction == is.friction;
        if (!isRight)
            return was.name.local;
    }
    return {};
}

/// Springs of lengths take the import's scale along, and limits of lengths their own order and the export's scale.
QString Pair::jointsDiffer() const
{
    QMultiMap<QString, const PmxFile::Joint *> byName;
    for (const PmxFile::Joint &joint : after.joints)
        byName.insert(joint.name.local, &joint);
    const auto bodyName = [](const PmxFile &file, int body) {
        return body < 0 ? QString() : file.bodies[size_t(body)].name.local;
    };
    for (const PmxFile::Joint &was : before.joints) {
        const QList<const PmxFile::Joint *> candidates = byName.values(was.name.local);
        const bool isThere = std::any_of(candidates.begin(), candidates.end(), [&](const PmxFile::Joint *is) {
            return bodyName(before, was.bodyA) == bodyName(after, is->bodyA)
                   && bodyName(before, was.bodyB) == bodyName(after, is->bodyB) && isNear(was.position, is->position)
                   && isSameTurn(was.rotation, is->rotation) && isNear(was.angularMin, is->angularMin)
                   && isNear(was.angularMax, is->angularMax) && isNear(was.linearSpring * scale, is->linearSpring)
                   && was.angularSpring == is->angularSpring
                   && isNear(Vector3(was.linearMax.x, was.linearMin.z, was.linearMin.y), is->linearMin * scale)
                   && isNear(Vector3(was.linearMin.x, was.linearMax.z, was.linearMax.y), is->linearMax * scale);
        });
        if (!isThere)
            return was.name.local;
    }
    return before.joints.size() == after.joints.size() ? QString() : QStringLiteral("count");
}

/// What a strict reader has against a file that is written as it has to be.
QStringList demandedComplaints(const PmxFile &file)
{
    QStringList demanded;
    if (file.frames.size() < 2) // those without items aren't written, and none is made up
        demanded << QStringLiteral("fewer than two display frames");
    const auto isFixed = [](const PmxFile::Bone &bone) { return bone.flags & Pmx::HasFixedAxis; };
    if (std::any_of(file.bones.begin(), file.bones.end(), isFixed)) // the axis has the scale of the file
        demanded << QStringLiteral("fixed axis not of unit length");
    return demanded;
}

} // namespace

/// Real models come in, go out and are read again.
class tst_PmxRoundTrip : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void models_data();
    void models();

private:
    QString samplePath() const { return m_folder.filePath(QStringLiteral("sample.pmx")); }

    const QTemporaryDir m_folder;
};

/// What a file holds is another matter: see tst_PmxSample.
void tst_PmxRoundTrip::initTestCase()
{
    const KMHeadlessSession session;
    installNativeFormat(gSolution);
    QVERIFY(gSolution->load(TestPaths::sourceDir() + QStringLiteral("/samples/kelmo.kmd")));
    PmxExporter exporter;
    exporter.scale = 1.0f / scale;
    exporter.root = KMBoneContainer::inTree().value(0);
    QVERIFY2(exporter.exportTo(samplePath()), qPrintable(exporter.error()));
}

void tst_PmxRoundTrip::models_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("sample") << samplePath();
    const QDir folder(TestPaths::sourceDir() + QStringLiteral("/../shared/data/pmx"));
    const QFileInfoList files = folder.entryInfoList({QStringLiteral("*.pmx")}, QDir::Files, QDir::Name);
    for (const QFileInfo &file : files)
        QTest::newRow(qPrintable(file.baseName())) << file.filePath();
    if (files.isEmpty())
        QTest::newRow("no models here") << QString();
}

void tst_PmxRoundTrip::models()
{
    QFETCH(QString, path);
    if (path.isEmpty())
        QSKIP("the models aren't here");
    const KMHeadlessSession session;
    ScriptedPrompt prompt;
    const KMPromptScope scope(&prompt);
    PmxImporter importer;
    importer.scale = scale;
    if (!importer.load(path)) {
        QVERIFY(!prompt.messages.isEmpty() && path != samplePath()); // it says why
        QSKIP("refused");
    }
    PmxExporter exporter;
    exporter.scale = 1.0f / scale;
    for (KMNode *node : gProject->ctrlsInTree().nodes()) {
        if (node->type() == KMNodeType::BoneContainer)
            exporter.root = nodeAs<KMBoneContainer>(node);
    }
    const QTemporaryDir folder;
    const QString out = folder.filePath(QStringLiteral("out.pmx"));
    QVERIFY2(exporter.exportTo(out), qPrintable(exporter.error()));

    Pair pair{read(path), read(out), {}};
    pair.bones = branchOrder(pair.before);
    if (StrictReader::isHere()) {
        QStringList demanded = demandedComplaints(pair.after);
        demanded.sort();
        QCOMPARE(StrictReader::complaints(out), demanded);
    }
    QCOMPARE(pair.after.modelName.local, pair.before.modelName.local);
    QCOMPARE(pair.after.comment.universal, pair.before.comment.universal);
    QCOMPARE(pair.bonesDiffer(), QString());
    QCOMPARE(pair.chainsDiffer(), QString());
    QCOMPARE(pair.surfaceDiffers(), QString());
    QCOMPARE(pair.morphsDiffer(), QString());
    QCOMPARE(pair.materialsDiffer(), QString());
    QCOMPARE(pair.framesDiffer(), QString());
    QCOMPARE(pair.bodiesDiffer(), QString());
    QCOMPARE(pair.jointsDiffer(), QString());
}

KM_TEST(tst_PmxRoundTrip);

#include "tst_PmxRoundTrip.moc"
