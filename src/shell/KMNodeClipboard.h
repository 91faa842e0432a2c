#pragma once

#include <QObject>

#include <memory>
#include <vector>

class KMContainerNode;
class KMNodeTemplates;
class KMTagBase;

/// Nodes of the tree, shaders, textures or tags that were copied or cut. The system's clipboard gets a mark only: what
/// was copied elsewhere since then counts instead.
class KMNodeClipboard : public QObject
{
    Q_OBJECT
public:
    explicit KMNodeClipboard(QObject *parent = nullptr);
    ~KMNodeClipboard() override;

    void copy(const QList<KMContainerNode *> &nodes);
    void copyTags(const QList<KMTagBase *> &tags); ///< of one tree

    /// New copies in the document, as one step; nodes of the tree stay selected. Tags go to each of the selected
    /// nodes, or, if bones had them, of the selected bones that can hold them, or it is said that none can.
    void paste();
    bool isEmpty() const; ///< nothing was copied here, or something elsewhere since then
    void clear();         ///< another document comes: copies may refer to shaders of this one

private:
    void mark(const QString &format);
    void pasteNodes();
    void pasteTags();

    std::unique_ptr<KMNodeTemplates> m_templates; // null when tags were copied
    std::vector<std::unique_ptr<KMTagBase>> m_tags;
    bool m_isOfBone = false; ///< tags of bones go to bones
};
