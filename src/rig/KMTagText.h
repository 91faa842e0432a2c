#pragma once

#include "core/KMTagBase.h"

#include <QCoreApplication>

/// A note on a node.
class KMTagText : public KMTagBase
{
    Q_DECLARE_TR_FUNCTIONS(KMTagText)
public:
    using Parameters = QString;

    KMTagText();

    const QString &parameters() const { return m_text; }
    void setParameters(const QString &text) { m_text = text; }
    KMTagText *clone() const override;

private:
    QString m_text;
};
