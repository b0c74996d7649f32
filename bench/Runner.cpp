#include "Runner.h"

#include <benchmark/benchmark.h>
#include <unistd.h>

#include <cstdio>
#include <ext/stdio_filebuf.h>
#include <iostream>
#include <ostream>

namespace fovix_bench {

int runBenchmarks(int argc, char** argv, void (*registerCases)()) {
    benchmark::Initialize(&argc, argv);
    if (benchmark::ReportUnrecognizedArguments(argc, argv)) return 2;
    __gnu_cxx::stdio_filebuf<char> tableBuffer(dup(STDOUT_FILENO), std::ios::out);
    std::ostream table(&tableBuffer);
    if (!std::freopen("/dev/null", "w", stdout)) return 1;
    registerCases();
    benchmark::ConsoleReporter reporter(benchmark::ConsoleReporter::OO_Tabular);
    reporter.SetOutputStream(&table);
    reporter.SetErrorStream(&std::cerr);
    benchmark::RunSpecifiedBenchmarks(&reporter);
    return 0;
}

}  // namespace fovix_bench
