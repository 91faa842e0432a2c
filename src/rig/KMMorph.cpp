#include "rig/KMMorph.h"

#include "core/KMNodeType.h"
#include "core/KMVariantNode.h"
#include "rig/KMTagMorph.h"

#include <algorithm>

namespace {

constexpr const char *panelNames[KMMorph::PanelCount] = {"NULL", "LeftBottom", "LeftTop", "RightTop", "RightBottom"};

} // namespace

KMMorph::KMMorph()
    : m_value(new KMFloatNode(this))
{
    setType(KMNodeType::Morph);
    setName(tr("Morph"));
    m_value->setObjectName(QStringLiteral("KMMorph::Value"));
    addNodePort(m_value, QStringLiteral("Value"));
    connect(m_value, &KMVariantNode::refresh, this, &KMMorph::onChanged);
}

KMMorph::~KMMorph()
{
    if (m_tag)
        m_tag->dropMorph(this);
    delete m_value;
}

float KMMorph::value() const
{
    return m_value->toFloat();
}

void KMMorph::setValue(float value)
{
    m_value->setFloat(value);
}

float KMMorph::weight() const
{
    const float raw = value();
    return raw > 0.0f ? std::min(raw, 1.0f) : 0.0f; // what is no number counts for nothing
}

void KMMorph::setPanel(int panel)
{
    m_panel = panel > NoPanel && panel < PanelCount ? panel : NoPanel;
}

const char *KMMorph::panelName(int panel)
{
    return panel >= 0 && panel < PanelCount ? ::panelNames[panel] : ::panelNames[NoPanel];
}

QStringList KMMorph::panelNames()
{
    QStringList names;
    for (const char *name : ::panelNames)
        names << QString::fromLatin1(name);
    return names;
}

void KMMorph::setDeltas(const MorphDeltas &deltas)
{
    m_deltas = deltas;
    onChanged();
}

void KMMorph::onChanged()
{
    if (m_tag)
        m_tag->layAnew();
}
