#pragma once

#include "core/KMTagBase.h"

#include <QCoreApplication>

/// A switch for all nodes directly below its node: it shows them, hides them, or shows those alone that are selected.
class KMTagGroup : public KMTagBase
{
    Q_DECLARE_TR_FUNCTIONS(KMTagGroup)
public:
    enum Mode : int { Show, Hide, ShowSelected };
    struct Parameters
    {
        int mode = Show; ///< of Mode

        bool operator==(const Parameters &other) const { return mode == other.mode; }
    };

    KMTagGroup();

    const Parameters &parameters() const { return m_data; }
    void setParameters(const Parameters &data) { m_data = data; }
    int mode() const { return m_data.mode; }
    void setMode(int mode) { m_data.mode = mode; }
    static QStringList modeNames(); ///< by Mode
    KMTagGroup *clone() const override;

    /// Switches the nodes, as one step of the history; no step when all are as they should be.
    void applyToChildren() const;

private:
    Parameters m_data;
};
