#include "mesh/KMFaceFlood.h"

#include "mesh/KMMeshStore.h"

#include <vector>

QVector<int> KMFaceFlood::chained(const KMMeshStore &mesh, const QVector<int> &starts, const StopsAt &stopsAt)
{
    QVector<int> reached;
    std::vector<bool> isReached(size_t(mesh.faceCount()));
    const auto reach = [&](int f) {
        if (!mesh.isFaceShown(f) || isReached[size_t(f)])
            return;
        isReached[size_t(f)] = true;
        reached.append(f);
    };
    for (const int f : starts)
        reach(f);
    for (int i = 0; i < reached.size(); ++i) {
        const KMFace &face = *mesh.face(reached.at(i));
        for (int c = 0; c < face.count; ++c) {
            const KMEdge *edge = mesh.findEdge(face.indices[c], face.next(c));
            if (!edge || (stopsAt && stopsAt(*edge)))
                continue;
            for (const int f : edge->faceRefs)
                reach(f);
        }
    }
    return reached;
}
