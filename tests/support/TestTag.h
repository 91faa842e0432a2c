#pragma once

#include "core/KMTagBase.h"

/// The smallest concrete tag: a name and nothing else.
class TestTag : public KMTagBase
{
    Q_OBJECT
public:
    explicit TestTag(const QString &name = QStringLiteral("Tag"));
    KMTagBase *clone() const override;
};
