#include <QApplication>

#include <benchmark/benchmark.h>

/// Runs the benchmarks; no display is needed. Options are those of Google Benchmark.
int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&argc, argv);
    const QApplication app(argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
