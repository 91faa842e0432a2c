#include "shell/attributes/KMMeshPage.h"

#include "core/KMNodeType.h"
#include "core/KMSolution.h"
#include "core/KMUndoMacro.h"
#include "mesh/KMMeshModifier.h"
#include "mesh/KMMeshNode.h"
#include "mesh/KMMeshNodeCommands.h"
#include "shell/KMNodeEdits.h"
#include "shell/widgets/KMNumberField.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QLabel>
#include <QLocale>

#include <algorithm>

namespace {

bool isFrameOnly = false; // stays from one mesh to the next: who sets up axes does so on several

template <class Records>
qint64 countOf(const Records &records)
{
    return std::count_if(records.begin(), records.end(), [](const auto *record) { return record; });
}

} // namespace

KMMeshPage::KMMeshPage(KMMeshNode *mesh)
    : KMNullPage(mesh)
    , m_mesh(mesh)
{
    addFrameSwitch();
    addHeading(tr("Mesh"));
    m_smoothAngle = addNumber(tr("Smooth angle"), QStringLiteral("smoothAngle"));
    m_smoothAngle->setRange(0.0, 180.0);
    m_smoothAngle->setSuffix(QStringLiteral("\u00b0"));
    m_smoothAngle->setToolTip(tr("Faces that meet at a smaller angle are shaded as one surface"));
    connect(m_smoothAngle, &KMNumberField::committed, this, &KMMeshPage::setSmoothAngle);
    addCounts();
}

void KMMeshPage::addFrameSwitch()
{
    m_frameOnly = addCheck(tr("Frame only"), QStringLiteral("frameOnly"));
    m_frameOnly->setToolTip(tr("Moves the axes and the symmetry plane of the mesh and leaves the vertices where they "
                               "are"));
    m_frameOnly->setChecked(isFrameOnly);
    connect(m_frameOnly, &QCheckBox::clicked, this, [](bool on) { isFrameOnly = on; });
}

void KMMeshPage::addCounts()
{
    const auto add = [this](const QString &label, const char *objectName) {
        auto *value = new QLabel;
        addRow(label, value, QLatin1String(objectName));
        return value;
    };
    m_vertices = add(tr("Vertices"), "vertices");
    m_edges = add(tr("Edges"), "edges");
    m_faces = add(tr("Faces"), "faces");
    m_triangles = add(tr("Triangles"), "triangles");
    m_modifiers = add(tr("Modifiers"), "modifiers");
    m_modifiers->setWordWrap(true);
}

KMTransformEdit::Reach KMMeshPage::reach() const
{
    return m_frameOnly->isChecked() ? KMTransformEdit::Reach::Frame : KMTransformEdit::Reach::Object;
}

void KMMeshPage::setSmoothAngle(double degrees)
{
    const KMUndoMacro macro(tr("Edit MeshNode"));
    for (KMContainerNode *node : KMNodeEdits::affectedBy(m_mesh)) {
        if (node->type() == KMNodeType::Mesh)
            gSolution->push(new editMeshNodeCommand(static_cast<KMMeshNode *>(node), {float(degrees)}));
    }
}

/// In the order of the chain; those that are switched off stand in brackets.
QString KMMeshPage::modifierNames() const
{
    QStringList names;
    for (const KMMeshNode::ModifierEntry &entry : m_mesh->modifiers()) {
        const QString name = entry.second->modifierNode()->name();
        names << (entry.first ? name : QStringLiteral("(%1)").arg(name));
    }
    return names.isEmpty() ? tr("None") : names.join(QLatin1Char('\n'));
}

void KMMeshPage::refresh()
{
    KMNullPage::refresh();
    m_smoothAngle->showNumber(double(m_mesh->smoothAngle()));
    m_smoothAngle->setEnabled(!m_mesh->isLocked());
    const QLocale locale;
    m_vertices->setText(locale.toString(countOf(m_mesh->vertices())));
    m_edges->setText(locale.toString(m_mesh->edgeCount()));
    m_faces->setText(locale.toString(m_mesh->liveFaces().size()));
    m_triangles->setText(locale.toString(m_mesh->triangleCount()));
    m_modifiers->setText(modifierNames());
}
