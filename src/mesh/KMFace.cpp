#include "mesh/KMFace.h"

#include <QDebug>

void copyFace(KMFace &destination, const KMFace &source)
{
    const int index = destination.index;
    destination = source;
    destination.index = index;
    destination.flags &= quint8(~KMElementFlag::Hot); // the cursor's, not the record's
}

void copyCorner(KMFace &destination, int to, const KMFace &source, int from)
{
    destination.indices[to] = source.indices[from];
    destination.normals[to] = source.normals[from];
    destination.uvs[to] = source.uvs[from];
    destination.colors[to] = source.colors[from];
    destination.cornerFlags[to] = source.cornerFlags[from];
}

QDebug operator<<(QDebug debug, const KMFace &face)
{
    QDebugStateSaver saver(debug);
    debug.nospace() << "KMFace(\ncount:" << face.count << "\nshader:" << face.shader << "\nref index:";
    for (int c = 0; c < face.count; ++c)
        debug << face.indices[c] << ',';
    for (int c = 0; c < face.count; ++c)
        debug << face.normals[c] << ',';
    for (int c = 0; c < face.count; ++c)
        debug << face.uvs[c] << ',';
    debug << "\n)";
    return debug;
}
