#include "core/KMResources.h"
#include "shell/KMStartup.h"

int main(int argc, char **argv)
{
    initKelmoResources();
    KMStartup startup(argc, argv);
    return startup.run();
}
