// fovix-view: shows fisheye pictures, videos and streams in a window, as views to look round in.

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

int complain(const std::exception& problem, int status) {
    std::fprintf(stderr, "fovix-view: %s\n", problem.what());
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    using namespace fovix_host;
    signal(SIGPIPE, SIG_IGN);  // whoever reads the names of screenshots may go
    try {
        const ViewerOptions options = parseViewerOptions(argc, argv);
        OwnOutput out(options.verbose ? Diagnostics::kToStandardError : Diagnostics::kHidden);
        return Viewer(options, out).run();
    } catch (const TextRequest& request) {
        return print(request, "fovix-view");
    } catch (const UsageError& problem) {
        return complain(problem, kUsageFailure);
    } catch (const std::exception& problem) {
        return complain(problem, kRunTimeFailure);
    }
}
