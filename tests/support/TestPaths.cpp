#include "support/TestPaths.h"

QString TestPaths::program()
{
    return QStringLiteral(KELMO_PROGRAM);
}

QString TestPaths::batchProgram()
{
    return QStringLiteral(KELMO_BATCH_PROGRAM);
}

QString TestPaths::sourceDir()
{
    return QStringLiteral(KELMO_SOURCE_DIR);
}
