#include "support/TestRegistry.h"

#include <QApplication>
#include <QTest>

#include <cstdio>
#include <memory>

/// Runs one test class: kelmo_tests CLASS [options of Qt Test]. Without a class it lists them.
int main(int argc, char **argv)
{
    QApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    QApplication app(argc, argv);
    if (argc < 2) {
        for (const QString &name : TestRegistry::names())
            std::printf("%s\n", qPrintable(name));
        return 1;
    }
    const std::unique_ptr<QObject> test(TestRegistry::make(QString::fromLocal8Bit(argv[1])));
    if (!test) {
        std::fprintf(stderr, "no test class %s\n", argv[1]);
        return 1;
    }
    QStringList arguments = app.arguments();
    arguments.removeAt(1);
    return QTest::qExec(test.get(), arguments);
}
