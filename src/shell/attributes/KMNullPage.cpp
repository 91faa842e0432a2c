#include "shell/attributes/KMNullPage.h"

#include "core/KMNullNode.h"
#include "core/KMSolution.h"
#include "core/KMTransformCommands.h"
#include "math/Quaternion.h"
#include "shell/widgets/KMVectorField.h"

#include <cmath>

namespace {

constexpr float degreesPerRadian = float(180.0 / M_PI);

} // namespace

KMNullPage::KMNullPage(KMNullNode *node)
    : KMNodePage(node)
    , m_null(node)
    , m_translation(new KMVectorField)
    , m_rotation(new KMVectorField)
    , m_scale(new KMVectorField)
{
    addRow(tr("Position"), m_translation, QStringLiteral("translation"));
    addRow(tr("Rotation"), m_rotation, QStringLiteral("rotation"));
    addRow(tr("Scale"), m_scale, QStringLiteral("scale"));
    m_scale->setSingleStep(0.1);
    m_rotation->setToolTip(tr("Degrees about X first, then Y, then Z"));

    connect(m_translation, &KMVectorField::committed, this, [this](const kvm::Vector3 &translation) {
        KMTransform transform = m_null->transform();
        transform.translation = translation;
        push(transform);
    });
    connect(m_rotation, &KMVectorField::committed, this, [this](const kvm::Vector3 &degrees) {
        KMTransform transform = m_null->transform();
        transform.rotation = kvm::Quaternion::fromEuler(degrees * (1.0f / degreesPerRadian));
        push(transform);
    });
    connect(m_scale, &KMVectorField::committed, this, [this](const kvm::Vector3 &scale) {
        KMTransform transform = m_null->transform();
        transform.scale = scale;
        push(transform);
    });
}

void KMNullPage::push(const KMTransform &transform)
{
    gSolution->push(new editSRTCommand(m_null, transform));
}

void KMNullPage::refresh()
{
    KMNodePage::refresh();
    m_translation->showVector(m_null->translation());
    m_rotation->showVector(m_null->rotation().toEuler() * degreesPerRadian);
    m_scale->showVector(m_null->scale());
}
