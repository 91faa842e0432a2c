#include "support/TestTag.h"

TestTag::TestTag(const QString &name)
{
    setName(name);
}

KMTagBase *TestTag::clone() const
{
    return new TestTag(name());
}
