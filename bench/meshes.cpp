// Time to build each kind of mesh and to convert it into the arrays that are drawn: what a change of the lens
// circle or of the mesh costs the frame that meets it.
#include <benchmark/benchmark.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "Runner.h"
#include "lens/FishEyeConfig.h"
#include "mesh/GridMesh.h"
#include "mesh/VertexCache.h"

namespace {

using namespace fovix;

/// A lens off the centre of a picture of the given size; the camera's image is the picture.
FishEyeConfig lensFor(int displayType, int width, int height) {
    FishEyeConfig lens;
    lens.displayType = displayType;
    lens.TextureWidth = lens.Fec_imgWidth = width;
    lens.TextureHeight = lens.Fec_imgHeight = height;
    lens.Fec_xCenter = width / 2 + 10;
    lens.Fec_yCenter = height / 2 - 10;
    lens.Fec_radius = height / 2;
    RefreshConfig(lens);
    return lens;
}

struct Case {
    std::string name;
    FishEyeConfig lens;
    std::function<GridMesh(const FishEyeConfig&)> build;
    std::shared_ptr<VertexCache> (*convert)(const GridMesh&);
};

std::vector<Case> allCases() {
    const FishEyeConfig square = lensFor(0, 1920, 1920), wide = lensFor(1, 1920, 1080),
                        tall = lensFor(1, 1080, 1920);
    std::vector<Case> cases = {
        {"original", wide, [](auto& lens) { return GridMesh_Create_Original(lens, 1280, 720); },
         VertexCache_FromFlatMesh},
        {"half", wide, [](auto& lens) { return GridMesh_Create_HalfTop(lens, 1280, 720); },
         VertexCache_FromFlatMesh},
        {"korvel", wide, [](auto& lens) { return GridMesh_Create_Korvel(lens, 1280, 720); },
         VertexCache_FromFlatMesh},
    };
    const struct {
        const char* name;
        int mount, shape;
    } panoramas[] = {{"hemisphere", 0, 0}, {"cylinder", 0, 3}, {"cylinder whole", 0, 4}, {"strip", 0, 5},
                     {"two strips", 0, 6}, {"wall", 1, 5},     {"nothing", 2, 3}};
    for (const auto& [name, mount, shape] : panoramas) {
        cases.push_back(
            {std::string("360 ") + name, square,
             [mount = mount, shape = shape](auto& lens) { return GridMesh_Create_360VR(lens, mount, shape); },
             VertexCache_FromCurvedMesh});
    }
    const struct {
        const char* name;
        int mode;
        const FishEyeConfig& lens;
    } views[] = {{"disc", 0, wide},
                 {"stretch wide", 1, wide},
                 {"stretch tall", 1, tall},
                 {"cylinder", 2, wide},
                 {"curved screen", 3, wide}};
    for (const auto& [name, mode, lens] : views) {
        cases.push_back({std::string("180 ") + name, lens,
                         [mode = mode](auto& own) { return *GridMesh_Create_180VR(mode, own, 1280, 720); },
                         VertexCache_FromCurvedMesh});
    }
    return cases;
}

void registerCase(const Case& each) {
    const auto measure = [](const std::string& name, auto work, int triangles) {
        benchmark::RegisterBenchmark(name.c_str(), [work, triangles](benchmark::State& state) {
            for (auto _ : state) benchmark::DoNotOptimize(work());
            state.counters["triangles"] = triangles;
        })->Unit(benchmark::kMicrosecond);
    };
    const int triangles = each.build(each.lens).triangleCount;
    measure(
        "build/" + each.name, [each] { return each.build(each.lens); }, triangles);
    measure(
        "build and convert/" + each.name, [each] { return each.convert(each.build(each.lens)); }, triangles);
}

void registerCases() {
    for (const Case& each : allCases()) registerCase(each);
}

}  // namespace

int main(int argc, char** argv) {
    return fovix_bench::runBenchmarks(argc, argv, registerCases);
}
