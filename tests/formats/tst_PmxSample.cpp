#include "core/KMBasicShaderNode.h"
#include "core/KMFileTextureNode.h"
#include "core/KMHeadlessSession.h"
#include "core/KMNodeType.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "formats/KMNativeFormat.h"
#include "formats/PmxExporter.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "rig/KMBone.h"
#include "rig/KMBoneContainer.h"
#include "rig/KMDisplayNode.h"
#include "rig/KMRigTags.h"
#include "rig/KMTagBoneWeight.h"
#include "rig/KMTagConstraint.h"
#include "rig/KMTagJoint.h"
#include "rig/KMTagMorph.h"
#include "support/PmxRecords.h"
#include "support/SkinReference.h"
#include "support/TestPaths.h"
#include "support/TestRegistry.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

using reference::Mat;
using reference::Vec;
using reference::vec;

namespace {

constexpr double scale = 0.1;
constexpr double quarter = M_PI / 2.0;

bool isNear(double a, double b, double tolerance = 1e-5)
{
    return std::fabs(a - b) <= tolerance * std::max(1.0, std::fabs(a));
}

bool isNear(const Vec &a, const kvm::Vector3 &b, double factor = 1.0)
{
    return isNear(a[0] * factor, double(b.x)) && isNear(a[1] * factor, double(b.y))
           && isNear(a[2] * factor, double(b.z));
}

/// About X first, then Y, then Z.
Mat matrix(const kvm::Vector3 &angles)
{
    return reference::product(reference::rotation({0, 0, 1}, double(angles.z)),
                              reference::product(reference::rotation({0, 1, 0}, double(angles.y)),
                                                 reference::rotation({1, 0, 0}, double(angles.x))));
}

bool isNear(const QColor &color, QVector<float> channels)
{
    const double expected[] = {color.redF(), color.greenF(), color.blueF(), color.alphaF()};
    for (int i = 0; i < channels.size(); ++i) {
        if (!isNear(expected[i], double(channels[i])))
            return false;
    }
    return channels.size() >= 3;
}

/// Where something that hangs on a bone stands in the file: Y runs along a body there, Z does in the document.
bool isPlaced(const PoseTransform &pose, const KMBone &bone, const kvm::Vector3 &position, const kvm::Vector3 &rotation)
{
    const Vec way = reference::apply(reference::rotation(bone.rotation()), vec(pose.offset)),
              head = vec(bone.restHead());
    const Mat turn =
        reference::product(reference::product(reference::rotation(bone.rotation()), reference::rotation(pose.rotation)),
                           reference::rotation({1, 0, 0}, quarter));
    return isNear(Vec{head[0] + way[0], head[1] + way[1], head[2] + way[2]}, position, scale)
           && reference::distance(turn, matrix(rotation)) < 1e-4;
}

template <class Tag>
QVector<const Tag *> tagsOf(const KMBone &bone, int type)
{
    QVector<const Tag *> tags;
    for (const KMTagBase *tag : bone.tags()) {
        if (tag->type() == type && !tag->isDeleted())
            tags << static_cast<const Tag *>(tag);
    }
    return tags;
}

/// A mesh as it goes out, and what of the document its vertices have.
struct Shape
{
    const KMMeshNode *mesh;
    const KMTagBoneWeight *weights;
    KMTagMorph *morphs;
};

/// A corner of a triangle of the document.
struct Corner
{
    const Shape *shape;
    int vertex;
    kvm::Vector2 uv;
};

/// The document's triangles in the order in which a file has them.
class Surface
{
public:
    explicit Surface(bool isFrozen);

    QVector<Shape> shapes;
    QVector<int> materials;  ///< in the order in which they are first needed
    QVector<int> triangles;  ///< of each
    QVector<Corner> corners; ///< three a triangle

    /// The file's vertices; false when two places of the document share one.
    bool match(const PmxRecords &file, QVector<Corner> &vertices) const;
};

Surface::Surface(bool isFrozen)
{
    for (KMMeshNode *mesh : gProject->meshesInTree()) {
        // The deform at the end of each chain moves nothing at rest, and takes the weights of its result away.
        const KMMeshModifier *last = isFrozen ? mesh->modifiers().last().second : nullptr;
        const KMMeshNode *weighed = last ? last->previous()->modMesh() : mesh;
        shapes << Shape{last ? last->modMesh() : mesh,
                        static_cast<KMTagBoneWeight *>(weighed->findTag(KMNodeType::TagBoneWeight)),
                        static_cast<KMTagMorph *>(mesh->findTag(KMNodeType::TagMorph))};
    }
    QVector<QVector<Corner>> byMaterial;
    for (const Shape &shape : std::as_const(shapes)) {
        for (const KMFace *face : shape.mesh->faces()) {
            int place = materials.indexOf(face->shader);
            if (place < 0) {
                place = materials.size();
                materials << face->shader;
                byMaterial << QVector<Corner>();
            }
            for (int c = 2; c < face->count; ++c) {
                for (const int corner : {0, c - 1, c})
                    byMaterial[place] << Corner{&shape, face->indices[corner], face->uvs[corner]};
            }
        }
    }
    for (const QVector<Corner> &some : std::as_const(byMaterial)) {
        triangles << some.size() / 3;
        corners += some;
    }
}

bool Surface::match(const PmxRecords &file, QVector<Corner> &vertices) const
{
    vertices.fill({nullptr, -1, {}}, file.vertices.size());
    for (int i = 0; i < corners.size(); ++i) {
        constexpr int turnedRound[] = {0, 2, 1};
        const Corner &corner = corners.at(i);
        Corner &there = vertices[file.corners.at(i / 3 * 3 + turnedRound[i % 3])];
        if (there.shape && (there.shape != corner.shape || there.vertex != corner.vertex || there.uv != corner.uv))
            return false;
        there = corner;
    }
    return std::all_of(vertices.begin(), vertices.end(), [](const Corner &corner) { return corner.shape; });
}

} // namespace

/// The sample character as a file, beside the document that it comes from: each field is reckoned from the document in
/// double precision and with nothing of the exporter.
class tst_PmxSample : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void vertices_data();
    void vertices();
    void morphs_data() { vertices_data(); }
    void morphs();
    void materials();
    void bones();
    void bodies();
    void joints();
    void frames();

private:
    const PmxRecords &file(bool isFrozen) const { return isFrozen ? m_shown : m_modelled; }
    int boneOf(const KMBone *bone) const { return m_rig->bones().indexOf(const_cast<KMBone *>(bone)); }

    const KMHeadlessSession m_session;
    const QTemporaryDir m_folder;
    KMBoneContainer *m_rig = nullptr;
    PmxRecords m_shown{{}};
    PmxRecords m_modelled{{}};
};

void tst_PmxSample::initTestCase()
{
    installNativeFormat(gSolution);
    QVERIFY(gSolution->load(TestPaths::sourceDir() + QStringLiteral("/samples/kelmo.kmd")));
    m_rig = KMBoneContainer::inTree().value(0);
    QVERIFY(m_rig);
    const QString path = m_folder.filePath(QStringLiteral("sample.pmx"));
    for (const bool isFrozen : {false, true}) {
        PmxExporter exporter;
        exporter.root = m_rig;
        exporter.freezeMods = isFrozen;
        QVERIFY2(exporter.exportTo(path), qPrintable(exporter.error()));
        QFile out(path);
        QVERIFY(out.open(QIODevice::ReadOnly));
        PmxRecords &records = isFrozen ? m_shown : m_modelled;
        records = PmxRecords(out.readAll());
        QCOMPARE(records.fault, QString());
        QCOMPARE(records.texts.value(0), gProject->textInfo(1));
    }
}

void tst_PmxSample::vertices_data()
{
    QTest::addColumn<bool>("isFrozen");
    QTest::newRow("as modelled") << false;
    QTest::newRow("as shown") << true;
}

void tst_PmxSample::vertices()
{
    QFETCH(bool, isFrozen);
    const PmxRecords &records = file(isFrozen);
    const Surface surface(isFrozen);
    QCOMPARE(records.corners.size(), surface.corners.size());
    QVector<Corner> vertices;
    QVERIFY(surface.match(records, vertices));

    const Shape *shape = nullptr;
    std::unique_ptr<SkinReference> skin;
    int spherical = 0;
    for (int i = 0; i < vertices.size(); ++i) {
        const PmxRecords::Vertex &is = records.vertices.at(i);
        const Corner &was = vertices.at(i);
        if (shape != was.shape) {
            shape = was.shape;
            skin = std::make_unique<SkinReference>(*shape->weights);
        }
        const QByteArray where = "vertex " + QByteArray::number(i);
        QVERIFY2(isNear(vec(shape->mesh->position(was.vertex)), is.position, scale), where);
        QVERIFY2(was.uv == is.uv && is.edge == 1.0f, where);
        if (skin->isSpherical(was.vertex)) {
            const SkinReference::Blend blend = skin->blend(was.vertex);
            const QVector<int> bones{boneOf(blend.p), boneOf(blend.q)};
            QVERIFY2(is.deform == 3 && is.bones == bones && isNear(blend.w0, double(is.weights.at(0))), where);
            const Vec points[] = {blend.c, blend.r1, blend.r0};
            for (int p = 0; p < 3; ++p) {
                const kvm::Vector3 point(is.sdef.at(3 * p), is.sdef.at(3 * p + 1), is.sdef.at(3 * p + 2));
                QVERIFY2(reference::distance(points[p], vec(point * 10.0f)) < 2e-3,
                         where + " C, R0, R1: " + char('0' + p));
            }
            ++spherical;
            continue;
        }
        QVERIFY2(is.deform < 3, where);
        QMap<int, double> expected, weights;
        double rest = 1.0;
        for (const BoneWeightEntry &entry : shape->weights->entriesOf(was.vertex)) {
            if (entry.weight == 0.0f || expected.size() == 4)
                continue;
            const double weight =
                expected.size() == 3 ? rest : double(entry.weight); // for further bones there is no room
            expected.insert(boneOf(entry.bone), weight);
            rest -= weight;
        }
        for (int k = 0; k < is.bones.size(); ++k) {
            const double weight = is.deform == 0             ? 1.0
                                  : k == 1 && is.deform == 1 ? 1.0 - double(is.weights.at(0))
                                                             : double(is.weights.at(k));
            if (weight != 0.0)
                weights[is.bones.at(k)] += weight;
        }
        QVERIFY2(expected.keys() == weights.keys(), where);
        for (auto it = expected.cbegin(); it != expected.cend(); ++it)
            QVERIFY2(isNear(it.value(), weights.value(it.key())), where);
    }
    QVERIFY(spherical > 100);
}

/// One after the other is laid on the document, and what that does to the meshes is looked at there.
void tst_PmxSample::morphs()
{
    QFETCH(bool, isFrozen);
    const PmxRecords &records = file(isFrozen);
    const Surface surface(isFrozen);
    QVector<Corner> vertices;
    QVERIFY(surface.match(records, vertices));
    const auto owner =
        std::find_if(surface.shapes.begin(), surface.shapes.end(), [](const Shape &shape) { return shape.morphs; });
    QVERIFY(owner != surface.shapes.end());
    const QList<KMMorph *> morphs = owner->morphs->liveMorphs();
    QCOMPARE(records.morphs.size(), morphs.size());
    QVector<kvm::Vector3> rest;
    for (int v = 0; v < owner->mesh->vertexCount(); ++v)
        rest << owner->mesh->position(v);
    for (int i = 0; i < morphs.size(); ++i) {
        const PmxRecords::Morph &is = records.morphs.at(i);
        QCOMPARE(is.name, morphs.at(i)->name());
        QCOMPARE(is.panel, morphs.at(i)->panel());
        QCOMPARE(is.type, 1);
        QHash<int, kvm::Vector3> offsets;
        for (const auto &offset : is.offsets)
            offsets.insert(offset.first, offset.second);
        QCOMPARE(offsets.size(), is.offsets.size());
        morphs.at(i)->setValue(1.0f);
        owner->morphs->mesh()->evaluateModifiers();
        int moved = 0;
        for (int v = 0; v < vertices.size(); ++v) {
            Vec way{};
            if (vertices.at(v).shape == &*owner)
                way = reference::minus(vec(owner->mesh->position(vertices.at(v).vertex)),
                                       vec(rest.at(vertices.at(v).vertex)));
            QVERIFY2(isNear(way, offsets.value(v), scale), qPrintable(is.name + QString::number(v)));
            moved += reference::dot(way, way) > 0.0;
        }
        morphs.at(i)->setValue(0.0f);
        QVERIFY2(moved > 10, qPrintable(is.name));
    }
    owner->morphs->mesh()->evaluateModifiers();
}

void tst_PmxSample::materials()
{
    const Surface surface(true);
    QCOMPARE(m_shown.materials.size(), surface.materials.size());
    const auto isTexture = [this](const KMBasicShader &values, KMBasicShader::TextureSlot slot, int texture) {
        const int place = values.textures[slot];
        if (place < 0 || texture < 0)
            return place < 0 && texture < 0;
        const QString there = QDir(m_folder.path()).filePath(m_shown.textures.at(texture));
        const QString picture = QFileInfo(there).canonicalFilePath();
        const auto *node = static_cast<const KMFileTextureNode *>(gProject->textures().at(place));
        return !picture.isEmpty() && picture == QFileInfo(node->filePath()).canonicalFilePath();
    };
    int pictures = 0;
    for (int i = 0; i < surface.materials.size(); ++i) {
        const auto *shader = static_cast<const KMBasicShaderNode *>(gProject->shader(surface.materials.at(i)));
        const KMBasicShader &was = shader->values();
        const PmxRecords::Material &is = m_shown.materials.at(i);
        QCOMPARE(is.name, shader->name());
        QCOMPARE(is.corners, 3 * surface.triangles.at(i));
        QVERIFY(isNear(was.diffuse, is.diffuse) && isNear(was.specular, is.specular)
                && isNear(was.ambient, is.ambient));
        QCOMPARE(is.power, float(was.shininess));
        QCOMPARE(is.flags, was.outlineEnabled ? 16 : 0);
        QVERIFY(isNear(was.outlineColor, is.edgeColor) && is.edgeSize == was.outlineSize);
        QVERIFY(isTexture(was, KMBasicShader::Diffuse, is.texture) && isTexture(was, KMBasicShader::Sphere, is.sphere)
                && isTexture(was, KMBasicShader::Toon, is.toon));
        QCOMPARE(is.sphereMode, is.sphere < 0 ? 0 : was.sphereAdd ? 1 : 2);
        QCOMPARE(is.sharedToon, 0);
        pictures += (is.texture >= 0) + (is.toon >= 0);
    }
    QVERIFY(pictures > 1);
}

void tst_PmxSample::bones()
{
    QCOMPARE(m_shown.bones.size(), m_rig->bones().size());
    int chains = 0;
    for (int i = 0; i < m_shown.bones.size(); ++i) {
        const KMBone &was = *m_rig->bones().at(i);
        const PmxRecords::Bone &is = m_shown.bones.at(i);
        int flags = 0x0812 | (was.isMovable() ? 4 : 0) | (was.isVisible() ? 8 : 0);
        const ConstraintData *ik = nullptr, *inherited = nullptr;
        for (const KMTagConstraint *tag : tagsOf<KMTagConstraint>(was, KMNodeType::TagConstraint)) {
            const ConstraintData &data = tag->data();
            const bool isAimed = data.target;
            flags |= (isAimed && data.type & 4 ? 0x20 : 0) | (isAimed && data.type & 2 ? 0x100 : 0)
                     | (isAimed && data.type & 1 ? 0x200 : 0) | (data.type & 8 ? 0x400 : 0);
            (data.type & 4 ? ik : inherited) = &data;
        }
        QCOMPARE(is.name, was.name());
        QCOMPARE(is.flags, flags);
        QCOMPARE(is.parent, boneOf(was.parentBone()));
        const Mat turn = reference::rotation(was.rotation());
        const QByteArray name = was.name().toUtf8();
        QVERIFY2(isNear(vec(was.restHead()), is.head, scale), name);
        QVERIFY2(isNear(reference::minus(vec(was.restTail()), vec(was.restHead())), is.tail, scale), name);
        QVERIFY2(isNear(reference::apply(turn, {1, 0, 0}), is.localX), name);
        QVERIFY2(isNear(reference::apply(turn, {0, 0, 1}), is.localZ), name);
        if (flags & 0x300)
            QVERIFY2(is.inheritTarget == boneOf(inherited->target) && is.inheritRatio == inherited->value, name);
        if (!ik)
            continue;
        ++chains;
        QCOMPARE(is.ikTarget, boneOf(ik->target));
        QCOMPARE(is.loop, ik->loop);
        QVERIFY2(isNear(double(ik->value) * M_PI / 180.0, double(is.angle)), name);
        QCOMPARE(is.links.size(), ik->ikDepth);
        const KMBone *link = ik->target;
        for (const PmxRecords::Link &there : is.links) {
            link = link->parentBone();
            QCOMPARE(there.bone, boneOf(link));
            const BoneLimit &limit = link->limits();
            QVector<float> expected;
            if (limit.enabled)
                expected << limit.minH << limit.minP << limit.minB << limit.maxH << limit.maxP << limit.maxB;
            QCOMPARE(there.limits, expected);
        }
    }
    QCOMPARE(chains, 4);
}

void tst_PmxSample::bodies()
{
    int place = 0, hanging = 0;
    for (const KMBone *bone : m_rig->bones()) {
        for (const KMTagRigidBody *tag : tagsOf<KMTagRigidBody>(*bone, KMNodeType::TagRigidBody)) {
            QVERIFY(place < m_shown.bodies.size());
            const PmxRecords::Body &is = m_shown.bodies.at(place++);
            const RigidBodyData &was = tag->parameters();
            const QByteArray name = tag->name().toUtf8();
            QCOMPARE(is.name, tag->name());
            QCOMPARE(is.bone, boneOf(bone));
            QVERIFY2(is.group == was.group && is.shape == was.shape && is.mode == was.rigidType, name);
            QCOMPARE(quint32(is.mask), was.collisionMask ^ 0xffffu);
            QVERIFY2(isNear(vec({was.width, was.height, was.depth}), is.size, scale / 2.0), name);
            QVERIFY2(isPlaced(was.pose, *bone, is.position, is.rotation), name);
            const QVector<float> numbers{was.mass, was.linearDamping, was.angularDamping, was.restitution,
                                         was.friction};
            QCOMPARE(is.numbers, numbers);

            // Players take these as radius and length of the straight part.
            if (bone->name() == QLatin1String("head"))
                QVERIFY(is.shape == 0 && isNear(1.0, double(is.size.x)));
            const Vec along = reference::minus(vec(bone->restTail()), vec(bone->restHead()));
            if (is.mode == 1 && ++hanging)
                QVERIFY2(isNear(0.8 * std::sqrt(reference::dot(along, along)) * scale, double(is.size.y)), name);
        }
    }
    QCOMPARE(m_shown.bodies.size(), place);
    QVERIFY(hanging > 40);
}

void tst_PmxSample::joints()
{
    const QList<KMTagRigidBody *> bodies = KMRigTags::bodies(m_rig);
    int place = 0;
    for (const KMBone *bone : m_rig->bones()) {
        for (const KMTagJoint *tag : tagsOf<KMTagJoint>(*bone, KMNodeType::TagJoint)) {
            QVERIFY(place < m_shown.joints.size());
            const PmxRecords::Joint &is = m_shown.joints.at(place++);
            const JointData &was = tag->parameters();
            const JointData::Limits &l = was.linearLimit, &a = was.angularLimit;
            const QByteArray name = tag->name().toUtf8();
            QCOMPARE(is.name, tag->name());
            QCOMPARE(is.type, 0);
            QVERIFY2(is.a == bodies.indexOf(was.bodyA) && is.b == bodies.indexOf(was.bodyB), name);
            QVERIFY2(isPlaced(was.pose, *bone, is.position, is.rotation), name);
            const float linear[] = {l[1], l[4], l[2], l[0], l[5], l[3]};
            const float angular[] = {-a[1], -a[5], a[2], -a[0], -a[4], a[3]};
            const float springs[] = {was.linearSpring.x,  was.linearSpring.z,  was.linearSpring.y,
                                     was.angularSpring.x, was.angularSpring.z, was.angularSpring.y};
            for (int i = 0; i < 6; ++i) {
                QVERIFY2(isNear(double(linear[i]) * scale, double(is.numbers.at(i))), name);
                QVERIFY2(isNear(double(angular[i]) * M_PI / 180.0, double(is.numbers.at(6 + i))), name);
                QCOMPARE(is.numbers.at(12 + i), springs[i]);
            }
            for (const int lowest : {0, 1, 2, 6, 7, 8}) // the other way round an axis would be free
                QVERIFY2(is.numbers.at(lowest) <= is.numbers.at(lowest + 3), name);
        }
    }
    QCOMPARE(m_shown.joints.size(), place);
    QVERIFY(place > 40);
}

void tst_PmxSample::frames()
{
    int place = 0;
    for (const KMDisplayNode *node : gProject->displayNodes()) {
        QVERIFY(place < m_shown.frames.size());
        const KMDisplayNode *was = node;
        const PmxRecords::Frame &is = m_shown.frames.at(place++);
        QCOMPARE(is.name, was->name());
        QCOMPARE(is.special, place < 3); // the root's and that of the face, which players look for
        QStringList expected, items;
        for (const DisplayItem &item : was->liveItems())
            expected << item.node->name();
        for (const auto &item : is.items)
            items << (item.first ? m_shown.morphs.at(item.second).name : m_shown.bones.at(item.second).name);
        QCOMPARE(items, expected);
    }
    QCOMPARE(m_shown.frames.size(), place);
    QVERIFY(place > 4);
}

KM_TEST(tst_PmxSample);

#include "tst_PmxSample.moc"
