#include "mesh/KMVertex.h"

#include <QDebug>

void copyVertex(KMVertex &destination, const KMVertex &source)
{
    const int index = destination.index;
    destination = source;
    destination.index = index;
    destination.flags &= quint8(~KMElementFlag::Hot); // the cursor's, not the record's
}

QDebug operator<<(QDebug debug, const KMVertex &vertex)
{
    QDebugStateSaver saver(debug);
    const kvm::Vector3 &pos = vertex.pos;
    debug.nospace() << "KMVertex(\npos:" << pos.x << ", " << pos.y << ", " << pos.z << "\nweight:" << vertex.weight
                    << "\nrefcount:" << vertex.faceRefs.size() << '\n';
    for (const int face : vertex.faceRefs)
        debug << face << ',';
    debug << "\n)";
    return debug;
}
