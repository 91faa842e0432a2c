#include "rig/KMTagText.h"

#include "core/KMNodeType.h"

KMTagText::KMTagText()
{
    setType(KMNodeType::TagText);
    setName(tr("Text"));
}

KMTagText *KMTagText::clone() const
{
    auto *copy = new KMTagText;
    copy->setName(name());
    copy->setParameters(m_text);
    return copy;
}
