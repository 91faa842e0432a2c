#pragma once

#include <QCoreApplication>

#include <functional>
#include <memory>

class KMMeshNode;

/// Turns what a chain of modifiers makes into a plain mesh.
class KMFreezeModifiers
{
    Q_DECLARE_TR_FUNCTIONS(KMFreezeModifiers)
public:
    /// Gives the shape the tags of the source that only higher layers can take through a chain.
    using Carry = std::function<void(const KMMeshNode &source, KMMeshNode &shape)>;

    /// The result of the mesh's chain, without morphs, as a mesh in no document, with name and frame of the source. It
    /// is computed on copies, so that the chain is left alone. The caller owns it; null when there is no chain, or it
    /// makes nothing.
    static std::unique_ptr<KMMeshNode> shapeOf(const KMMeshNode &source, const Carry &carry = {});

    /// Puts that mesh into the tree in the place of the source, whose modifiers go with it, as one step, and says in
    /// the line of messages what came of it. Returns 1; 0, and no step, when nothing was done. A locked mesh is left
    /// alone without a word.
    static int freezeModifiers(KMMeshNode *mesh, const Carry &carry = {});

private:
    static QString obstacle(const KMMeshNode &mesh);
};
