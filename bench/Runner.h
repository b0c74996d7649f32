// Runs the registered benchmarks and keeps the library's diagnostics, which go to standard output, out of the
// table.
#pragma once

namespace fovix_bench {

/// registerCases runs with the diagnostics already silenced; the table goes where standard output was
/// directed.
int runBenchmarks(int argc, char** argv, void (*registerCases)());

}  // namespace fovix_bench
