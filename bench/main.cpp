#include <QApplication>

#include <benchmark/benchmark.h>

/// Runs the benchmarks; only those of the renderer need a display. Options are those of Google Benchmark.
int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM") && qEnvironmentVariableIsEmpty("DISPLAY"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QCoreApplication::setAttribute(Qt::AA_ShareOpenGLContexts);
    benchmark::Initialize(&argc, argv);
    const QApplication app(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
