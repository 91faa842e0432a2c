#include "core/KMHeadlessSession.h"
#include "core/KMProject.h"
#include "core/KMSolution.h"
#include "core/KMTreeWidget.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshNode.h"
#include "modifiers/KMObjectTransform.h"
#include "support/MeshFixtures.h"
#include "support/TestRegistry.h"

#include <QRandomGenerator>
#include <QTest>
#include <QUndoStack>

class tst_KMObjectTransform : public QObject
{
    Q_OBJECT
private slots:
    void randomTree();
    void placeIsExact();
    void flattening();
};

namespace {

class Scene
{
public:
    explicit Scene(quint32 seed)
        : m_random(seed)
    {
        // Null0 ( Mesh0 ( Null1 ( Mesh1 ) ) Mesh2 ) Mesh3
        for (KMNullNode *node : {top, below})
            gProject->addNode(node);
        for (KMMeshNode *&mesh : meshes) {
            mesh = MeshFixtures::cube();
            gProject->addNode(mesh);
        }
        put(meshes[0], top);
        put(below, meshes[0]);
        put(meshes[1], below);
        put(meshes[2], top);
    }

    static void put(KMContainerNode *node, KMContainerNode *parent)
    {
        gProject->tree()->takeRow(node->item());
        gProject->tree()->insertRow(parent->item(), -1, node->item());
    }

    float number(float least, float most) { return least + float(m_random.generateDouble()) * (most - least); }

    /// Scales of one size each way, so that a turned child isn't slanted.
    KMTransform transform()
    {
        KMTransform result;
        const float scale = number(0.5f, 2.0f);
        result.scale = {scale, scale, scale};
        result.rotation = kvm::Quaternion::fromEuler(number(-3, 3), number(-1.5f, 1.5f), number(-3, 3));
        result.translation = {number(-50, 50), number(-50, 50), number(-50, 50)};
        return result;
    }

    static void move(KMNullNode *node, const KMTransform &transform)
    {
        const KMUndoMacro macro(QStringLiteral("Move"));
        KMObjectTransform::push(node, transform);
    }

    KMNullNode *top = new KMNullNode;
    KMNullNode *below = new KMNullNode;
    KMMeshNode *meshes[4];

private:
    KMHeadlessSession m_session;
    QRandomGenerator m_random;
};

} // namespace

/// A vertex keeps its place in the frame of its mesh, whichever node above it moves.
void tst_KMObjectTransform::randomTree()
{
    Scene scene(7);
    QVector<kvm::Vector3> inFrame;
    for (const KMMeshNode *mesh : scene.meshes)
        inFrame << mesh->position(3);
    KMNullNode *const nodes[] = {scene.top, scene.below, scene.meshes[0], scene.meshes[1], scene.meshes[3]};
    QUndoStack *stack = gSolution->undoStack();
    const int start = stack->index();
    for (int step = 0; step < 60; ++step) {
        const kvm::Vector3 aside = scene.meshes[3]->position(3);
        KMNullNode *node = nodes[step % 5];
        Scene::move(node, scene.transform());
        for (int i = 0; i < 4; ++i) {
            const kvm::Vector3 now = scene.meshes[i]->worldMatrix() * inFrame[i];
            const float error = (now - scene.meshes[i]->position(3)).length();
            QVERIFY2(error < 0.05f, qPrintable(QStringLiteral("step %1, mesh %2: %3").arg(step).arg(i).arg(error)));
        }
        if (node != scene.meshes[3])
            QCOMPARE(scene.meshes[3]->position(3), aside);
    }
    while (stack->index() > start)
        stack->undo();
    for (int i = 0; i < 4; ++i)
        QCOMPARE(scene.meshes[i]->position(3), inFrame[i]);
}

/// What is only moved loses no digit by way of a matrix and its inverse.
void tst_KMObjectTransform::placeIsExact()
{
    Scene scene(13);
    KMMeshNode *mesh = scene.meshes[3];
    KMTransform transform = scene.transform();
    Scene::move(mesh, transform);
    const kvm::Vector3 before = mesh->position(2);
    transform.translation.x += 4.0f;
    Scene::move(mesh, transform);
    QCOMPARE(mesh->position(2).y, before.y);
    QCOMPARE(mesh->position(2).z, before.z);
}

void tst_KMObjectTransform::flattening()
{
    Scene scene(17);
    KMTransform flat;
    flat.scale.y = 0.0f;
    QVERIFY(KMObjectTransform::wouldFlatten(scene.top, flat));
    QVERIFY(KMObjectTransform::wouldFlatten(scene.meshes[3], flat));
    auto *lone = new KMNullNode;
    gProject->addNode(lone);
    QVERIFY(!KMObjectTransform::wouldFlatten(lone, flat));
    const kvm::Vector3 before = scene.meshes[3]->position(1);
    Scene::move(scene.meshes[3], flat);
    QCOMPARE(scene.meshes[3]->position(1), before);
}

KM_TEST(tst_KMObjectTransform);
#include "tst_KMObjectTransform.moc"
