#include "core/KMResources.h"

int main(int, char **)
{
    initKelmoResources();
    return 0;
}
