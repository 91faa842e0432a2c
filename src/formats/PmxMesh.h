#pragma once

#include "formats/PmxModel.h"
#include "mesh/KMMeshNode.h"

#include <memory>
#include <vector>

struct PmxExportOptions;

/// A mesh of the document on its way into a PMX file.
struct PmxMesh
{
    const KMMeshNode *source = nullptr;    ///< in the document; null for what a primitive makes
    std::unique_ptr<KMMeshNode> evaluated; ///< a copy in no document; null where the source itself can be read
    PmxModel data;
    int offset = 0; ///< of its vertices in the sum of all meshes

    const KMMeshNode &shape() const { return evaluated ? std::as_const(*evaluated) : *source; }

    /// All that is to be written, in the order of the tree and primitives last: without faces that shall not be, their
    /// vertices split. Morphs of the document keep their values and rest in the copies.
    static std::vector<PmxMesh> ofDocument(const PmxExportOptions &options);
};
