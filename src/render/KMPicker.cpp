#include "render/KMPicker.h"

#include "mesh/KMMeshNode.h"
#include "render/KMPickSearch.h"

#include <QPointer>

namespace {

/// What is marked. By its place and not by its record, which an edit may have freed.
struct Hot
{
    QPointer<KMMeshNode> mesh;
    int vertex = -1;
    int face = -1;
    int edge[2] = {-1, -1};

    bool operator==(const Hot &other) const
    {
        return mesh == other.mesh && vertex == other.vertex && face == other.face && edge[0] == other.edge[0]
               && edge[1] == other.edge[1];
    }
};

Hot hot; // one cursor, so one for the whole program

template <class Record>
void mark(Record *record, bool on)
{
    if (record)
        record->flags = quint8(on ? record->flags | KMElementFlag::Hot : record->flags & ~KMElementFlag::Hot);
}

/// Only the colours wait for this: a highlight is nothing to modifiers.
void mark(const Hot &element, bool on)
{
    if (!element.mesh)
        return;
    mark(element.mesh->vertex(element.vertex), on);
    mark(element.mesh->face(element.face), on);
    if (element.edge[0] >= 0)
        mark(element.mesh->findEdge(element.edge[0], element.edge[1]), on);
    element.mesh->markDirty(KMMeshDirty::Colors);
}

void setHot(const Hot &element)
{
    if (element == hot)
        return;
    mark(hot, false);
    mark(element, true);
    hot = element;
}

} // namespace

bool KMPicker::pick(const KMCameraNode &camera, const QPointF &position, KMPickRequest &request)
{
    request.clearResult();
    KMPickSearch(camera, position, request).run();
    Hot found;
    found.mesh = request.mesh;
    found.vertex = request.vertex;
    found.face = request.face;
    if (request.edge) {
        found.edge[0] = request.edge->index0;
        found.edge[1] = request.edge->index1;
    }
    setHot(found);
    return request.isHit();
}

void KMPicker::clearHot()
{
    setHot({});
}
