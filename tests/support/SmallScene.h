#pragma once

#include "core/KMHeadlessSession.h"
#include "support/DocumentDump.h"

class KMBasicShaderNode;
class KMBoolNodeContainer;
class KMContainerNode;
class KMEmbeddedTextureNode;
class KMFileTextureNode;
class KMFloatNodeContainer;
class KMIntNodeContainer;
class KMNullNode;
class KMTagBase;

/// A session with a document that has something of everything the core knows, and an empty history:
/// A(B(C) D) E, then an int, a bool and a float node, three shaders and two textures.
/// The rows A and B are expanded, D is hidden; A has two tags, E one.
class SmallScene
{
public:
    explicit SmallScene(int undoLimit = 0);

    static QString treeText(); ///< the tree by names, in the form "A(B(C) D) E"

    KMHeadlessSession session;
    DocumentDump dump;
    KMNullNode *a, *b, *c, *d, *e;
    KMIntNodeContainer *integer;
    KMBoolNodeContainer *boolean;
    KMFloatNodeContainer *number;
    KMBasicShaderNode *shaders[3];
    KMFileTextureNode *file;
    KMEmbeddedTextureNode *embedded;
    KMTagBase *first, *second, *other; ///< of A, A and E

private:
    KMNullNode *addNull(const QString &name, KMContainerNode *parent);
    KMTagBase *addTag(KMContainerNode *node, const QString &name);
};
