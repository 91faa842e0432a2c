#include "core/KMBluePrint.h"

#include "core/KMNodeType.h"
#include "core/KMVariantNode.h"

#include <tuple>

namespace {

auto fields(const KMBluePrintValues &v)
{
    return std::tie(v.mode, v.texture, v.foreground, v.blend, v.alpha);
}

} // namespace

bool KMBluePrintValues::operator==(const KMBluePrintValues &other) const
{
    return fields(*this) == fields(other);
}

KMBluePrint::KMBluePrint()
{
    setType(KMNodeType::BluePrint);
    setName(tr("BluePrint"));
    addNodePort(visibleNode(), QStringLiteral("visible"));
    addNodePort(lockedNode(), QStringLiteral("locked"));
}

KMContainerNode *KMBluePrint::clone() const
{
    auto *copy = new KMBluePrint;
    copyNullTo(copy);
    copy->m_values = m_values;
    return copy;
}

QSet<int> KMBluePrint::textureReferences() const
{
    return m_values.texture < 0 ? QSet<int>() : QSet<int>{m_values.texture};
}

blueprintSetParamCommand::blueprintSetParamCommand(KMBluePrint *bluePrint, const KMBluePrintValues &values)
    : changeValueCommand(tr("Assign Texture"), bluePrint, bluePrint->values(), values)
    , m_bluePrint(bluePrint)
{
}

void blueprintSetParamCommand::write(const KMBluePrintValues &values)
{
    m_bluePrint->setValues(values);
}
