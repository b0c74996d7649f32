// What the library costs over the GL itself: every round draws the same frame twice, through the library and
// as the bare GL calls that it amounts to (one copy, the uploads, the clear, the draw), and adds up the
// processor time of all threads, the software rasteriser's included. Counters: median milliseconds of both,
// and the median of the rounds' ratios.

#include <GL/glew.h>
#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstring>
#include <ctime>
#include <string>
#include <vector>

#include "Runner.h"
#include "gl/Shaders.h"
#include "handle/FovixContext.h"
#include "surface/GlContext.h"

namespace {

struct Case {
    int type, pixelFmt, side, width, height;
};

constexpr int kWarmUpRounds = 3;

std::size_t pictureBytes(const Case& c) {
    const auto pixels = static_cast<std::size_t>(c.side) * static_cast<std::size_t>(c.side);
    return c.pixelFmt == FOVIX_FORMAT_RGBA ? pixels * 4 : pixels * 3 / 2;
}

std::vector<unsigned char> makePicture(const Case& c) {
    std::vector<unsigned char> bytes(pictureBytes(c));
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<unsigned char>(i * 31 + i / 977);
    return bytes;
}

/// Processor time of all threads of the process, in milliseconds.
double processMilliseconds() {
    std::timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) * 1e-6;
}

template <class Work>
double timed(Work&& work) {
    glFinish();
    const double start = processMilliseconds();
    work();
    glFinish();
    return processMilliseconds() - start;
}

double median(std::vector<double> values) {
    std::nth_element(values.begin(), values.begin() + static_cast<long>(values.size() / 2), values.end());
    return values[values.size() / 2];
}

unsigned compile(GLenum type, const char* source) {
    const unsigned shader = glCreateShader(type);
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    return shader;
}

/// The frame as a program without the library would draw it: same shader, same mesh, same matrix.
class BareFrame {
  public:
    BareFrame(const Case& c, const FovixContext& context)
        : case_(c), mesh_(context.display.load()->model->getVerticesCache()) {
        program_ = glCreateProgram();
        glAttachShader(program_, compile(GL_VERTEX_SHADER, fovix::kDewarperVertexShader));
        glAttachShader(program_, compile(GL_FRAGMENT_SHADER, fovix::kDewarperFragmentShader));
        glBindAttribLocation(program_, 0, "a_position");
        glBindAttribLocation(program_, 1, "a_textureCoords");
        glLinkProgram(program_);
        GLint library = 0;
        glGetIntegerv(GL_CURRENT_PROGRAM, &library);
        glGetUniformfv(static_cast<GLuint>(library),
                       glGetUniformLocation(static_cast<GLuint>(library), "u_mvpMatrix"), matrix_);
        glGenTextures(4, textures_);
        for (int unit = 0; unit < 4; ++unit) {
            glActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + unit));
            glBindTexture(GL_TEXTURE_2D, textures_[unit]);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_S, GL_CLAMP_TO_EDGE);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MIN_FILTER, GL_LINEAR);
            glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_MAG_FILTER, GL_LINEAR);
        }
        copy_.resize(static_cast<std::size_t>(c.side) * static_cast<std::size_t>(c.side) * 4 + 1024);
        chroma_.resize(copy_.size() / 8);
    }

    void draw(const std::vector<unsigned char>& picture) {
        std::memcpy(copy_.data(), picture.data(), picture.size());
        glViewport(0, 0, case_.width, case_.height);
        glClearColor(0.0f, 0.0f, 0.0f, 1.0f);
        glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
        glEnable(GL_DEPTH_TEST);
        glEnable(GL_BLEND);
        glBlendFunc(GL_ONE, GL_ZERO);
        glVertexAttribPointer(0, 3, GL_FLOAT, GL_FALSE, 12, mesh_->positions.data());
        glVertexAttribPointer(1, 2, GL_FLOAT, GL_FALSE, 8, mesh_->textureCoords.data());
        glEnableVertexAttribArray(0);
        glEnableVertexAttribArray(1);
        glPixelStorei(GL_UNPACK_ALIGNMENT, 1);
        upload();
        glUseProgram(program_);
        setUniforms();
        glDrawArrays(GL_TRIANGLES, 0, mesh_->vertexCount());
    }

  private:
    void uploadTo(int unit, GLenum format, int side, const unsigned char* bytes) {
        glActiveTexture(static_cast<GLenum>(GL_TEXTURE0 + unit));
        glBindTexture(GL_TEXTURE_2D, textures_[unit]);
        glTexImage2D(GL_TEXTURE_2D, 0, static_cast<GLint>(format), side, side, 0, format, GL_UNSIGNED_BYTE,
                     bytes);
    }

    void upload() {
        const int side = case_.side;
        if (case_.pixelFmt == FOVIX_FORMAT_RGBA) return uploadTo(0, GL_RGBA, side, copy_.data());
        const std::size_t luma = static_cast<std::size_t>(side) * static_cast<std::size_t>(side),
                          chroma = luma / 4;
        const unsigned char* u = copy_.data() + luma;
        const unsigned char* v = u + chroma;
        if (case_.pixelFmt == FOVIX_FORMAT_NV12) {
            unsigned char* first = chroma_.data();
            unsigned char* second = first + chroma;
            for (std::size_t j = 0; j < chroma; ++j) {
                first[j] = copy_[luma + 2 * j];
                second[j] = copy_[luma + 2 * j + 1];
            }
            u = first;
            v = second;
        }
        uploadTo(1, GL_LUMINANCE, side, copy_.data());
        uploadTo(2, GL_LUMINANCE, side / 2, u);
        uploadTo(3, GL_LUMINANCE, side / 2, v);
    }

    void setUniforms() {
        const auto at = [&](const char* name) { return glGetUniformLocation(program_, name); };
        if (!located_) {
            const char* samplers[] = {"u_dewarperTexture", "u_dewarperYTexture", "u_dewarperUTexture",
                                      "u_dewarperVTexture"};
            for (int unit = 0; unit < 4; ++unit) glUniform1i(at(samplers[unit]), unit);
            const char* ones[] = {"u_yTextureScaleAdjustment", "u_uTextureScaleAdjustment",
                                  "u_vTextureScaleAdjustment", "u_aspectRatio", "u_textureScale"};
            for (const char* name : ones) glUniform1f(at(name), 1.0f);
            glUniform1f(at("u_usingYUV"), case_.pixelFmt == FOVIX_FORMAT_RGBA ? 0.0f : 1.0f);
            matrixAt_ = at("u_mvpMatrix");
            located_ = true;
        }
        glUniformMatrix4fv(matrixAt_, 1, GL_FALSE, matrix_);
    }

    const Case case_;
    fovix::VertexCachePtr mesh_;
    unsigned program_ = 0;
    unsigned textures_[4] = {};
    float matrix_[16] = {};
    int matrixAt_ = -1;
    bool located_ = false;
    std::vector<unsigned char> copy_, chroma_;
};

void frames(benchmark::State& state, const Case& c) {
    const fovix_host::GlContext gl(c.width, c.height);
    const std::vector<unsigned char> picture = makePicture(c);
    const int size = static_cast<int>(picture.size());
    VRHANDLE handle = nullptr;
    Fovix_Create(&handle);
    Fovix_Prepare(handle);
    Fovix_Init(handle, c.width, c.height);
    Fovix_SetType(handle, c.type);
    const auto throughLibrary = [&] {
        Fovix_SetTexture(handle, c.pixelFmt, picture.data(), size, c.side, c.side);
        Fovix_Drawself(handle);
    };
    for (int round = 0; round < kWarmUpRounds; ++round) throughLibrary();
    BareFrame bare(c, *handle);
    for (int round = 0; round < kWarmUpRounds; ++round) bare.draw(picture);

    std::vector<double> library, plain, ratio;
    for (auto _ : state) {
        const bool libraryFirst = library.size() % 2 == 0;
        double libraryTime = libraryFirst ? timed(throughLibrary) : 0.0;
        const double bareTime = timed([&] { bare.draw(picture); });
        if (!libraryFirst) libraryTime = timed(throughLibrary);
        library.push_back(libraryTime);
        plain.push_back(bareTime);
        ratio.push_back(libraryTime / bareTime);
    }
    state.counters["library_ms"] = median(library);
    state.counters["bare_ms"] = median(plain);
    state.counters["ratio"] = median(ratio);
    Fovix_Release(handle);
}

void registerCases() {
    struct Format {
        const char* name;
        int code;
    };
    struct Size {
        int side, width, height;
    };
    struct Type {
        const char* name;
        int code;
    };
    for (const Type& type :
         {Type{"plain", FOVIX_TYPE_ORIGINAL}, Type{"180", FOVIX_TYPE_180VR}, Type{"360", FOVIX_TYPE_360VR}}) {
        for (const Size& size : {Size{1920, 1280, 720}, Size{3840, 1920, 1080}}) {
            for (const Format& format :
                 {Format{"rgba", FOVIX_FORMAT_RGBA}, Format{"planar", FOVIX_FORMAT_YUV420P},
                  Format{"interleaved", FOVIX_FORMAT_NV12}}) {
                const std::string name = std::string("frame/") + type.name + "/" + format.name + "/" +
                                         std::to_string(size.side) + "->" + std::to_string(size.width) + "x" +
                                         std::to_string(size.height);
                const Case c = {type.code, format.code, size.side, size.width, size.height};
                benchmark::RegisterBenchmark(name.c_str(), [c](benchmark::State& state) { frames(state, c); })
                    ->Unit(benchmark::kMillisecond)
                    ->Iterations(40)
                    ->MeasureProcessCPUTime();
            }
        }
    }
}

}  // namespace

int main(int argc, char** argv) {
    return fovix_bench::runBenchmarks(argc, argv, registerCases);
}
