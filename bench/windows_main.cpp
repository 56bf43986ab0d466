// The main() of the benchmarks that have windows: drawn as the program draws them.

#include "views/theme/ThemeConfigurator.h"

#include <QApplication>

#include <benchmark/benchmark.h>

int main(int argc, char **argv)
{
    const QApplication application{argc, argv};
    ThemeConfigurator::shared().apply();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
