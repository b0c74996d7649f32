// fovix-view: an interactive viewer for fisheye images, videos and streams.

#include <signal.h>

#include <cstdio>
#include <exception>

#include "cli/CommandLine.h"
#include "output/OwnOutput.h"
#include "viewer/Viewer.h"
#include "viewer/options/ViewerOptions.h"

namespace {

constexpr int kRunTimeFailure = 1;
constexpr int kUsageFailure = 2;

int report(const std::exception& problem, int status) {
    std::fprintf(stderr, "fovix-view: %s\n", problem.what());
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace fovix_host;
    signal(SIGPIPE, SIG_IGN);  // the reader of screenshot names may close the pipe
    try {
        const ViewerOptions options = parseViewerOptions(argc, argv);
        OwnOutput out(options.verbose ? Diagnostics::kToStandardError : Diagnostics::kHidden);
        return Viewer(options, out).run();
    } catch (const TextRequest& request) {
        return print(request, "fovix-view");
    } catch (const UsageError& problem) {
        return report(problem, kUsageFailure);
    } catch (const std::exception& problem) {
        return report(problem, kRunTimeFailure);
    }
}
