#pragma once

#include "core/KMNodeType.h"
#include "formats/KMDReader.h"

#include <QHash>
#include <QVector>

struct KMBasicShader;
struct KMDNodeRecord;
class KMContainerNode;
class QTreeWidgetItem;

/// Brings what was read from a native file into the document. Nothing in here can fail.
class KMDSceneBuilder
{
    Q_DECLARE_TR_FUNCTIONS(KMDSceneBuilder)
public:
    KMDSceneBuilder(KMDContents &contents, const KMDReader::Options &options);

    void build(); ///< ends with an empty history; takes the nodes out of the contents

private:
    bool takesAll() const { return m_options.mask == KMD::TakeAll; }
    void addQuietly();
    void addEverything();
    void applyProject();
    void applyViewState();
    void addTextures();
    void addShaders();
    int redirected(int texture) const; ///< index of a texture of the file in the document
    void addNodes();
    void placeRow(QTreeWidgetItem *row, const KMDNodeRecord &record);
    void restoreRows();
    KMContainerNode *nodeOfFamily(quint64 id, KMNodeType::Flag family) const;
    void restoreCurrent();

    KMDContents &m_contents;
    KMDReader::Options m_options;
    QVector<KMContainerNode *> m_nodes; ///< of the node records
    QVector<int> m_textureIndices;      ///< in the project, for each texture of the file; -1 for one left out
    QHash<quint64, KMContainerNode *> m_byId;
};
