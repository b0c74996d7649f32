// fovix-render: draws views of fisheye pictures without a window and writes them as PNG files.

#include <cstdio>
#include <exception>

#include "Options.h"
#include "RenderJob.h"

namespace {

constexpr int runTimeFailure = 1;
constexpr int usageFailure = 2;

int complain(const std::exception& problem, int status) {
    std::fprintf(stderr, "fovix-render: %s\n", problem.what());
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace fovix_host;
    try {
        const Options options = parseOptions(argc, argv);
        OwnOutput out(options.verbose ? Diagnostics::toStandardError : Diagnostics::hidden);
        render(options, out);
        return 0;
    } catch (const TextWanted& wanted) {
        return std::fputs(wanted.text.c_str(), stdout) < 0 || std::fflush(stdout) != 0 ? runTimeFailure : 0;
    } catch (const UsageError& problem) {
        return complain(problem, usageFailure);
    } catch (const std::exception& problem) {
        return complain(problem, runTimeFailure);
    }
}
