#include "mesh/KMSmoothNormals.h"

void KMSmoothNormals::compute(KMMeshNode &, const KMTagNormal *, bool) {}
