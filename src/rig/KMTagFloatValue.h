#pragma once

#include "core/KMTagBase.h"

#include <QCoreApplication>

/// A number on a node, for scripts. The native file keeps the tag and not the number.
class KMTagFloatValue : public KMTagBase
{
    Q_DECLARE_TR_FUNCTIONS(KMTagFloatValue)
public:
    struct Parameters
    {
        float value = 0.0f;

        bool operator==(const Parameters &other) const { return value == other.value; }
    };

    KMTagFloatValue();

    const Parameters &parameters() const { return m_data; }
    void setParameters(const Parameters &data) { m_data = data; }
    KMTagFloatValue *clone() const override;

private:
    Parameters m_data;
};
