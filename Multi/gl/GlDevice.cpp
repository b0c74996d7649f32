#include "gl/GlDevice.h"

#include <GL/glew.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <memory>

#include "gl/GlCheck.h"

namespace fovix {

namespace {

constexpr char kFrameSource[] = "Multi/FovixFrame";
constexpr char kProgramsSource[] = "Multi/FovixPrograms";
constexpr float kLineWidth = 2.0f;  ///< pixels

GlParams& params(Device& device) {
    return paramsOf<GlParams>(device);
}

/// Frames are opaque: a fragment replaces what is behind it, and the depth decides which one stays.
void setBlendingAndDepth() {
    glEnable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_ONE, GL_ZERO);
}

/// Whether the current context is of version 3 or later; contexts of one process may differ.
bool isVersion3() {
    const auto* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    return version && std::atoi(version) >= 3;
}

bool prepare(Device& device) {
    if (!loadOpenGL()) return false;
    GlParams& p = params(device);
    ++p.textures.prepareCount;
    setBlendingAndDepth();
    const bool version3 = isVersion3();
    p.textures.hasFramebufferObjects = version3 && glCheckFramebufferStatus;
    p.programs = createPrograms();
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &p.textures.maxTextureSize);
    glCheck(kProgramsSource);
    p.vertices.forget({static_cast<unsigned>(p.programs.positionAttrib),
                       static_cast<unsigned>(p.programs.textureCoordsAttrib), version3 && glBindVertexArray});
    return true;
}

void createTextures(Device& device, FrameSlot& slot) {
    createFrameTextures(params(device).textures, slot);
}

void setViewport(Device&, const DeviceRect& rect) {
    glViewport(rect.x, rect.y, rect.width, rect.height);
}

void clear(Device& device, const DeviceRect& surface, const Colour& colour) {
    setViewport(device, surface);
    glClearColor(colour.red, colour.green, colour.blue, colour.alpha);
    glCheck(kFrameSource);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glCheck(kFrameSource);
    setBlendingAndDepth();
}

bool reuseMesh(Device& device, std::uint64_t source) {
    return params(device).vertices.reuse(source);
}

void useMesh(Device& device, const VertexCachePtr& mesh, std::uint64_t source) {
    params(device).vertices.use(mesh, source);
}

void useOverlayMesh(Device& device, const VertexCachePtr& mesh) {
    params(device).vertices.useOverlay(mesh);
}

int refresh(Device& device, FrameSlot& slot, bool force) {
    return refreshTexture(params(device).textures, slot, force);
}

void setUniform(int location, double value) {
    glUniform1f(location, static_cast<float>(value));
    glCheck(kFrameSource);
}

void startMeshes(Device& device, bool usingYUV, double textureScale) {
    const Programs& at = params(device).programs;
    const TextureState& textures = params(device).textures;
    glUseProgram(at.dewarperProgram);
    setSamplers(at);
    setUniform(at.usingYUVUniform, usingYUV ? 1.0 : 0.0);
    setUniform(at.yTextureScaleAdjustmentUniform, usingYUV ? textures.yTextureScaleAdjustment : 1.0);
    setUniform(at.uTextureScaleAdjustmentUniform, usingYUV ? textures.uTextureScaleAdjustment : 1.0);
    setUniform(at.vTextureScaleAdjustmentUniform, usingYUV ? textures.vTextureScaleAdjustment : 1.0);
    setUniform(at.aspectRatioUniform, textures.aspectRatio);
    setUniform(at.textureScaleUniform, textureScale);
}

void showFrame(Device&, const FrameSlot& slot) {
    bindShownTextures(slot);
}

void showCell(Device&, const FrameSlot& slot, int pixelFmt) {
    bindFrameTextures(slot, pixelFmt);
}

void drawMesh(Device& device, const Mat4& matrix, const char* source, int line) {
    if (!std::all_of(matrix.m.begin(), matrix.m.end(), [](double value) { return std::isfinite(value); }))
        return;
    const GlParams& p = params(device);
    const std::array<float, 16> values = Mat4_ToFloats(matrix);
    glUniformMatrix4fv(p.programs.mvpMatrixUniform, 1, GL_FALSE, values.data());
    glCheck(source, line);
    glUniform1f(p.programs.verticalOffsetUniform, 0.0f);
    glCheck(source, line);
    glDrawArrays(GL_TRIANGLES, 0, p.vertices.drawable());
}

void drawLineLoop(Device& device, const DeviceRect& surface, const float* vertices, int count,
                  const Colour& colour) {
    GlParams& p = params(device);
    const std::array components = {colour.red, colour.green, colour.blue, colour.alpha};
    setViewport(device, surface);
    glUseProgram(p.programs.lineProgram);
    glLineWidth(kLineWidth);
    glUniform4fv(p.programs.lineColorUniform, 1, components.data());
    p.vertices.withPositions(static_cast<unsigned>(p.programs.linePositionAttrib), vertices,
                             [count] { glDrawArrays(GL_LINE_LOOP, 0, count); });
}

constexpr DeviceOperations kOperations = {
    .prepare = prepare,
    .createTextures = createTextures,
    .setViewport = setViewport,
    .clear = clear,
    .reuseMesh = reuseMesh,
    .useMesh = useMesh,
    .useOverlayMesh = useOverlayMesh,
    .refreshTexture = refresh,
    .startMeshes = startMeshes,
    .showFrame = showFrame,
    .showCell = showCell,
    .drawMesh = drawMesh,
    .drawLineLoop = drawLineLoop,
};

}  // namespace

DevicePtr GlDevice_Create() {
    auto device = std::make_unique<Device>();
    device->operations = kOperations;
    device->params = std::make_unique<GlParams>();
    return device;
}

}  // namespace fovix
