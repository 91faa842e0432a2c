#pragma once

#include "support/RigDump.h"

/// The document with all that a model file brings or takes: rigs, and meshes with their places, chains and morphs.
class ModelDump : public RigDump
{
protected:
    void writeDetails(QTextStream &out, const KMContainerNode *node) override;
};
