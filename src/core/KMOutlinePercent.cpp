#include "core/KMOutlinePercent.h"

#include "core/KMSolution.h"

int KMOutlinePercent::current()
{
    return gSolution ? gSolution->fogDistance() : Usual;
}
