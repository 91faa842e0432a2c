#pragma once

#include "rig/KMPhysicsCommands.h"
#include "shell/attributes/KMParameterPage.h"
#include "shell/attributes/KMTagPage.h"

class QComboBox;

/// A constraint: what it does, the bone that it takes that from, and the numbers for the player of the model.
class KMConstraintTagPage : public KMParameterPage<KMTagPage, KMTagConstraint, editTagConstraintCommand>
{
    Q_OBJECT
public:
    explicit KMConstraintTagPage(KMTagConstraint *tag);

private:
    void addType();
    void addTarget();
    void listTargets(QComboBox *box) const; ///< no bone first, then those of all rigs
    void addNumbers();

    KMTagConstraint *m_tag;
};
