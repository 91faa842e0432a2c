#pragma once

#include <QObject>
#include <QString>

/// Makes a test class known to the test program under its own name.
using TestMaker = QObject *(*)();

class TestRegistry
{
public:
    static int add(const char *name, TestMaker maker);
    static QObject *make(const QString &name); ///< null when no test class has that name
    static QStringList names();
};

#define KM_TEST(Class)                                                                                                 \
    static const int registered_##Class = TestRegistry::add(#Class, []() -> QObject * { return new Class; })
