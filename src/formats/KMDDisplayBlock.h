#pragma once

#include <QString>
#include <QVector>

class KMDOutput;
class KMDStream;
class KMNode;
struct KMDContents;

/// A display group as the file tells it. What its items name stands in records before it.
struct KMDDisplayRecord
{
    QString name;
    QVector<KMNode *> items; ///< bones and morphs of the records before it
};

/// The block of display groups. Items of deleted nodes aren't written, nor a group that has no others.
namespace KMDDisplayBlock {

void write(KMDOutput &out);
/// Behind the nodes: leaves out items that name none of them, with a warning.
void read(KMDStream &in, KMDContents &contents);
void build(const KMDContents &contents); ///< brings the groups into the document, when all nodes are there

} // namespace KMDDisplayBlock
