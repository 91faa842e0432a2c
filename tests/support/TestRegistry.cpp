#include "support/TestRegistry.h"

#include <QMap>

namespace {

QMap<QString, TestMaker> &makers()
{
    static QMap<QString, TestMaker> map;
    return map;
}

} // namespace

int TestRegistry::add(const char *name, TestMaker maker)
{
    makers().insert(QString::fromLatin1(name), maker);
    return makers().size();
}

QObject *TestRegistry::make(const QString &name)
{
    const TestMaker maker = makers().value(name, nullptr);
    return maker ? maker() : nullptr;
}

QStringList TestRegistry::names()
{
    return makers().keys();
}
