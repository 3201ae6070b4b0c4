// The one entry of the suite: every group registers itself from its own file.
#include <benchmark/benchmark.h>

BENCHMARK_MAIN();
