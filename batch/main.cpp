#include "KMBatchProgram.h"
#include "core/KMResources.h"

#include <QApplication>

int main(int argc, char **argv)
{
    KMBatchProgram::prepareEnvironment(argc, argv);
    QApplication app(argc, argv);
    initKelmoResources();
    return KMBatchProgram(app.arguments().mid(1)).run();
}
