#include "core/KMResources.h"

#include <QtGlobal>

void initKelmoResources()
{
    Q_INIT_RESOURCE(kelmo);
}
