#include "formats/KMParentLoops.h"

QVector<int> cutParentLoops(QVector<int> &parents)
{
    QVector<int> cut;
    QVector<int> walks(parents.size(), -1); // the walk upwards that came by
    for (int i = 0; i < parents.size(); ++i) {
        int place = i;
        while (place >= 0 && walks[place] < 0) {
            walks[place] = i;
            place = parents[place];
        }
        if (place < 0 || walks[place] != i)
            continue;
        parents[place] = -1;
        cut << place;
    }
    return cut;
}
