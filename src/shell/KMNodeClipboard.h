#pragma once

#include <QObject>

#include <memory>
#include <vector>

class KMContainerNode;

namespace KMNodeEdits {
class Template;
}

/// Nodes that were copied or cut. The system's clipboard gets a mark only: what was copied elsewhere since then
/// counts instead of the nodes.
class KMNodeClipboard : public QObject
{
    Q_OBJECT
public:
    explicit KMNodeClipboard(QObject *parent = nullptr);
    ~KMNodeClipboard() override;

    void copy(const QList<KMContainerNode *> &nodes);
    void paste(); ///< new copies in the document, as one step; each stays selected
    bool hasNodes() const;
    void clear(); ///< another document comes: copies may refer to shaders of this one

private:
    std::vector<std::unique_ptr<KMNodeEdits::Template>> m_templates;
};
