#pragma once

#include <QHash>
#include <QString>

class KMContainerNode;
class KMNode;
class KMTagBase;
class QTextStream;
class QTreeWidgetItem;

/// The open document as text: rows with what they show, nodes with their values, tags, shaders, textures and
/// the project's own texts. Floats are written bit for bit. A node has the same number in all texts of one
/// dump, so that equal texts mean the same objects. What was deleted and only the history keeps is left out.
class DocumentDump
{
public:
    virtual ~DocumentDump() = default;

    QString text();
    bool withCurrent = false; ///< names the current node too; adding and deleting change it on both ways

protected:
    /// More about a node than the core knows: overridden by tests of classes of higher layers.
    virtual void writeDetails(QTextStream &out, const KMContainerNode *node);
    int number(const void *object); ///< counted from 1 in the order of the first question; 0 for null

private:
    void writeRow(QTextStream &out, const QTreeWidgetItem *row, int depth);
    void writeNode(QTextStream &out, const KMContainerNode *node);
    void writeValues(QTextStream &out, const KMContainerNode *node);
    void writeTag(QTextStream &out, const KMTagBase *tag);

    QHash<const void *, int> m_numbers;
};
