#pragma once

#include "core/KMCommand.h"
#include "mesh/KMMeshTargets.h"

/// A command on the normal tags of the selected meshes. It works on those that are not locked, have a normal tag
/// and hold a selected element of the kinds that it needs; where there are none it says so and leaves no step in
/// the history.
class KMNormalCommand : public KMCommand
{
    Q_OBJECT
public:
    KMNormalCommand(const QString &text, KMMeshTargets::Elements needed, QObject *parent);

protected:
    virtual QList<KMMeshNode *> targets() const;
    virtual int runOn(KMMeshNode &mesh) = 0;  ///< returns how many edges or faces it changed
    virtual QString missingSelection() const; ///< what to say where no mesh holds what is needed
    QString obstacle() const override;
    void run() override;
    void report(int changed) const; ///< in the message line

private:
    QString missingMesh() const;

    KMMeshTargets::Elements m_needed;
};
