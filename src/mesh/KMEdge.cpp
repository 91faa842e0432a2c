#include "mesh/KMEdge.h"

#include <QDebug>

void copyEdge(KMEdge &destination, const KMEdge &source)
{
    destination = source;
}

QDebug operator<<(QDebug debug, const KMEdge &edge)
{
    QDebugStateSaver saver(debug);
    debug.nospace() << "KMEdge(index0:" << edge.index0 << ",index1:" << edge.index1 << ",\nref count:QVector(";
    for (int i = 0; i < edge.faceRefs.size(); ++i)
        debug << (i ? ", " : "") << edge.faceRefs.at(i);
    debug << ")\nweight:" << edge.weight << ')';
    return debug;
}
