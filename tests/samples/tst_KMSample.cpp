#include "KMSampleCharacter.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "formats/VpdImporter.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"

#include <QDataStream>
#include <QTemporaryDir>
#include <QTest>

#include <map>
#include <memory>

namespace {

using Place = std::array<float, 3>;

Place placeOf(const kvm::Vector3 &p)
{
    return {p.x, p.y, p.z};
}

kvm::Vector3 across(const kvm::Vector3 &p)
{
    return {p.x == 0.0f ? 0.0f : -p.x, p.y, p.z};
}

QString nameAcross(QString name)
{
    if (name.endsWith(QLatin1String("_L")))
        return name.replace(name.size() - 1, 1, QLatin1Char('R'));
    if (name.endsWith(QLatin1String("_R")))
        name.replace(name.size() - 1, 1, QLatin1Char('L'));
    return name;
}

/// Vertices by their places; several may stand at one.
std::multimap<Place, int> placesOf(const KMMeshNode &mesh)
{
    std::multimap<Place, int> places;
    for (int i = 0; i < mesh.vertexCount(); ++i)
        places.emplace(placeOf(mesh.position(i)), i);
    return places;
}

QMap<QString, float> sharesOf(const KMTagBoneWeight &tag, int vertex)
{
    QMap<QString, float> shares;
    for (const BoneWeightEntry &entry : tag.entriesOf(vertex))
        shares.insert(entry.bone->name(), entry.weight);
    return shares;
}

bool areMirrored(const QMap<QString, float> &a, const QMap<QString, float> &b)
{
    for (auto it = a.begin(); it != a.end(); ++it) {
        if (std::fabs(b.value(nameAcross(it.key()), -1.0f) - it.value()) > 1e-6f)
            return false;
    }
    return a.size() == b.size();
}

/// Six times what the triangles enclose.
double volume(const KMMeshNode &mesh)
{
    double sum = 0.0;
    for (const KMFace *face : mesh.faces()) {
        for (int c = 2; c < face->count; ++c)
            sum -= double(dot(mesh.position(face->indices[0]),
                              cross(mesh.position(face->indices[c - 1]), mesh.position(face->indices[c]))));
    }
    return sum;
}

template <class Node>
Node *firstOf(KMNodeListView<KMCtrlNode> nodes, int type)
{
    for (KMCtrlNode *node : nodes) {
        if (node->type() == type)
            return static_cast<Node *>(node);
    }
    return nullptr;
}

QByteArray bytesOf(const QString &path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

/// The sample character as it is stored, and as its code makes it.
class tst_KMSample : public QObject
{
    Q_OBJECT
private slots:
    void init();
    void cleanup() { m_session.reset(); }

    void storedFilesAreWhatTheCodeMakes();
    void surfacesAreClosedAndMirrored();
    void weightsAreSettledAndMirrored();
    void expressionsStandOnTheirPanels();
    void physicsHangTogether();
    void walkLeadsTargetsWithTheFeet();
    void greetingLeadsTargetsWithTheFeet();

private:
    KMBoneContainer *rig() const
    {
        return firstOf<KMBoneContainer>(gProject->ctrlsInTree(), KMNodeType::BoneContainer);
    }

    const QDir m_folder{TestPaths::sourceDir() + QStringLiteral("/samples")};
    std::unique_ptr<KMHeadlessSession> m_session;
};

void tst_KMSample::init()
{
    m_session = std::make_unique<KMHeadlessSession>();
    installNativeFormat(gSolution);
    QVERIFY(gSolution->load(m_folder.filePath(QLatin1String(KMSampleCharacter::documentName))));
}

void tst_KMSample::storedFilesAreWhatTheCodeMakes()
{
    gSolution->newDocument();
    const QTemporaryDir made;
    QVERIFY(KMSampleCharacter::write(QDir(made.path())));
    for (const char *name :
         {KMSampleCharacter::documentName, KMSampleCharacter::motionName, KMSampleCharacter::poseName}) {
        const QByteArray stored = bytesOf(m_folder.filePath(QLatin1String(name)));
        QVERIFY2(!stored.isEmpty() && stored == bytesOf(made.filePath(QLatin1String(name))), name);
    }
    const QDir pictures(m_folder.filePath(QStringLiteral("textures")));
    const QStringList names = pictures.entryList(QDir::Files);
    QCOMPARE(names, QDir(made.filePath(QStringLiteral("textures"))).entryList(QDir::Files));
    for (const QString &name : names)
        QVERIFY2(QImage(pictures.filePath(name)) == QImage(made.filePath(QStringLiteral("textures/") + name)),
                 qPrintable(name));
}

/// Each edge lies between two faces that run along it in opposite directions.
void tst_KMSample::surfacesAreClosedAndMirrored()
{
    int vertices = 0;
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        vertices += mesh->vertexCount();
        std::map<std::pair<int, int>, int> edges;
        int triangles = 0;
        for (const KMFace *face : mesh->faces()) {
            triangles += face->count == 3;
            for (int c = 0; c < face->count; ++c)
                ++edges[{face->indices[c], face->next(c)}];
        }
        QCOMPARE(triangles, 0);
        for (const auto &edge : edges) {
            QVERIFY2(edge.second == 1 && edges.count({edge.first.second, edge.first.first}), qPrintable(mesh->name()));
        }
        QVERIFY2(volume(*mesh) > 0.0, qPrintable(mesh->name()));
        const auto places = placesOf(*mesh);
        for (int i = 0; i < mesh->vertexCount(); ++i)
            QCOMPARE(places.count(placeOf(across(mesh->position(i)))), places.count(placeOf(mesh->position(i))));
    }
    QVERIFY2(vertices > 2500 && vertices < 4500, qPrintable(QString::number(vertices)));
}

void tst_KMSample::weightsAreSettledAndMirrored()
{
    int spherical = 0;
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        const auto *tag = static_cast<KMTagBoneWeight *>(mesh->findTag(KMNodeType::TagBoneWeight));
        QVERIFY2(tag, qPrintable(mesh->name()));
        spherical += tag->sdefVertices().size();
        const auto places = placesOf(*mesh);
        for (int i = 0; i < mesh->vertexCount(); ++i) {
            const QMap<QString, float> shares = sharesOf(*tag, i);
            QVERIFY(!shares.isEmpty() && shares.size() <= 4);
            QVERIFY(!tag->hasSdefFlag(i) || shares.size() == 2);
            float sum = 0.0f;
            for (const float share : shares)
                sum += share;
            QVERIFY(std::fabs(sum - 1.0f) < 1e-5f);
            const auto images = places.equal_range(placeOf(across(mesh->position(i))));
            QVERIFY2(std::any_of(images.first, images.second,
                                 [&](const auto &image) { return areMirrored(shares, sharesOf(*tag, image.second)); }),
                     qPrintable(mesh->name() + QString::number(i)));
        }
    }
    QVERIFY(spherical > 100);
}

void tst_KMSample::expressionsStandOnTheirPanels()
{
    const std::map<QString, int> wanted = {
        {"上", KMMorph::LeftBottom},      {"怒り", KMMorph::LeftBottom}, {"困る", KMMorph::LeftBottom},
        {"まばたき", KMMorph::LeftTop},   {"笑い", KMMorph::LeftTop},    {"ウィンク", KMMorph::LeftTop},
        {"ウィンク右", KMMorph::LeftTop}, {"あ", KMMorph::RightTop},     {"い", KMMorph::RightTop},
        {"う", KMMorph::RightTop},        {"え", KMMorph::RightTop},     {"お", KMMorph::RightTop},
        {"にこり", KMMorph::RightTop},
    };
    const KMTagMorph *tag = nullptr;
    for (const KMMeshNode *mesh : gProject->meshesInTree()) {
        if (KMTagBase *found = mesh->findTag(KMNodeType::TagMorph))
            tag = static_cast<KMTagMorph *>(found);
    }
    QVERIFY(tag);
    std::map<QString, int> found;
    for (const KMMorph *morph : tag->liveMorphs()) {
        found[morph->name()] = morph->panel();
        float left = 0.0f, right = 0.0f;
        for (const MorphDelta &delta : morph->deltas()) {
            const float x = tag->mesh()->position(delta.vertex).x;
            (x > 0.0f ? left : right) += x == 0.0f ? 0.0f : delta.length;
        }
        if (morph->name() == QString::fromUtf8("ウィンク"))
            QVERIFY(left > 1.0f && right == 0.0f);
        else if (morph->name() == QString::fromUtf8("ウィンク右"))
            QVERIFY(left == 0.0f && right > 1.0f);
        else
            QVERIFY2(left > 0.1f && std::fabs(left - right) < 1e-3f, qPrintable(morph->name()));
    }
    QVERIFY(found == wanted);
}

/// From each body that moves joints lead up to one that follows its bone.
void tst_KMSample::physicsHangTogether()
{
    QHash<KMTagRigidBody *, QVector<KMTagRigidBody *>> holders;
    for (const KMTagJoint *joint : KMRigTags::joints(rig())) {
        QVERIFY(joint->bodyA() && joint->bodyB());
        holders[joint->bodyB()] << joint->bodyA();
        const kvm::Vector3 joining = joint->worldMatrix().translation();
        QVERIFY((joining - joint->bone()->restHead()).length() < 20.0f);
    }
    int moving = 0;
    for (KMTagRigidBody *body : KMRigTags::bodies(rig())) {
        const bool isFixed = body->parameters().rigidType == KMTagRigidBody::Kinematic;
        QCOMPARE(holders.contains(body), !isFixed);
        moving += !isFixed;
        KMTagRigidBody *holder = body;
        for (int steps = 0; holders.contains(holder) && steps < 10; ++steps)
            holder = holders.value(holder).first();
        QVERIFY(!holders.contains(holder));
    }
    QVERIFY(moving > 40);
}

/// Players solve the legs towards the targets, this program poses them by their own keys: both have to agree.
void tst_KMSample::walkLeadsTargetsWithTheFeet()
{
    constexpr int header = 50, keyBytes = 111;
    const QByteArray motion = bytesOf(m_folder.filePath(QLatin1String(KMSampleCharacter::motionName)));
    QDataStream in(motion);
    in.setByteOrder(QDataStream::LittleEndian);
    in.setFloatingPointPrecision(QDataStream::SinglePrecision);
    in.skipRawData(header);
    quint32 count = 0;
    in >> count;
    QVERIFY(qint64(count) * keyBytes < motion.size());
    BoneAnimation *animation = rig()->animation();
    std::map<quint32, QVector<KMBoneKey>> targets;
    for (quint32 i = 0; i < count; ++i) {
        KMBoneKey key;
        key.name = QString::fromLatin1(motion.mid(int(in.device()->pos()), 15).constData());
        in.skipRawData(15);
        in >> key.frameno >> key.position.x >> key.position.y >> key.position.z;
        in >> key.rotation.x >> key.rotation.y >> key.rotation.z >> key.rotation.w;
        in.skipRawData(64);
        QVERIFY2(rig()->bone(key.name), qPrintable(key.name));
        key.position = key.position * 10.0f;
        animation->setKey(key);
        if (key.name.startsWith(QLatin1String("leg IK")))
            targets[key.frameno] << key;
    }
    QVERIFY(targets.size() > 8);
    for (const auto &frame : targets) {
        animation->applyFrame(frame.first);
        QCOMPARE(frame.second.size(), 2);
        for (const KMBoneKey &key : frame.second) {
            const KMBone *target = rig()->bone(key.name);
            const KMBone *ankle = rig()->bone(QStringLiteral("ankle_") + key.name.right(1));
            QVERIFY((target->head() - ankle->head()).length() < 1e-2f);
        }
    }
}

void tst_KMSample::greetingLeadsTargetsWithTheFeet()
{
    QVERIFY(VpdImporter::load(m_folder.filePath(QLatin1String(KMSampleCharacter::poseName))));
    QVERIFY(rig()->bone(QStringLiteral("knee_L"))->solvedPose() != PoseTransform());
    for (const char *side : {"_L", "_R"}) {
        const KMBone *target = rig()->bone(QLatin1String("leg IK") + QLatin1String(side));
        const KMBone *ankle = rig()->bone(QLatin1String("ankle") + QLatin1String(side));
        QVERIFY((target->head() - ankle->head()).length() < 1e-2f);
    }
}

KM_TEST(tst_KMSample);
#include "tst_KMSample.moc"
