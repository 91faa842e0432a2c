#pragma once

#include <QCoreApplication>
#include <QSet>

class KMBone;
class PmxOutput;
struct PmxContents;

/// Writes the bones of the rig, with what their constraints ask of the player.
class PmxBoneWriter
{
    Q_DECLARE_TR_FUNCTIONS(PmxBoneWriter)
public:
    PmxBoneWriter(PmxOutput &out, const PmxContents &contents);

    void write();

private:
    struct Constraints;

    Constraints constraintsOf(const KMBone &bone) const;
    int indexOf(const KMBone *bone) const;
    void writeIndex(int bone);
    void writeBone(const KMBone &bone);
    void writeLocalAxes(const KMBone &bone);
    void writeChain(const Constraints &constraints);
    void collectArms();

    PmxOutput &m_out;
    const PmxContents &m_contents;
    QSet<const KMBone *> m_arms; // and what hangs on them; empty where their axes stay as they are
};
