// Benchmarks of the engine routines; see scripts/bench for the table they print.
#include <benchmark/benchmark.h>
