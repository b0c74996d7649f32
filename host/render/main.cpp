// fovix-render: renders views of fisheye images and videos off screen, and writes them as PNG files or video.

#include <unistd.h>

#include <csignal>
#include <cstdio>
#include <exception>
#include <string>

#include "cli/CommandLine.h"
#include "render/FindLens.h"
#include "render/RenderJob.h"
#include "render/RenderOptions.h"
#include "render/StopSignals.h"

namespace {

constexpr int kRunTimeFailure = 1;
constexpr int kUsageFailure = 2;
constexpr int kStopped = 128;  // 128 + signal, as shells do

int report(const std::exception& problem, int status) {
    const int signal = fovix_host::stopSignal();
    const std::string why = signal != 0 ? fovix_host::stopText() + ": " : "";
    std::fprintf(stderr, "fovix-render: %s%s\n", why.c_str(), problem.what());
    return signal != 0 ? kStopped + signal : status;
}

int run(const fovix_host::RenderOptions& options) {
    using namespace fovix_host;
    const bool isPipe = options.output.kind == OutputKind::kPipe;
    if (isPipe && isatty(STDOUT_FILENO))
        throw UsageError(
            "standard output is a terminal; redirect the raw frames of -o - to a pipe or a file");
    // Make writes fail with an error instead of a signal.
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
    catchStopSignals();
    OwnOutput out(options.verbose ? Diagnostics::kToStandardError : Diagnostics::kHidden,
                  isPipe ? Lines::kToStandardError : Lines::kToStandardOutput);
    if (options.findLens)
        printLens(options, out);
    else
        render(options, out);
    return stopSignal() != 0 ? kStopped + stopSignal() : 0;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace fovix_host;
    try {
        return run(parseRenderOptions(argc, argv));
    } catch (const TextRequest& request) {
        return print(request, "fovix-render");
    } catch (const ReaderGone&) {
        return kRunTimeFailure;
    } catch (const UsageError& problem) {
        return report(problem, kUsageFailure);
    } catch (const std::exception& problem) {
        return report(problem, kRunTimeFailure);
    }
}
