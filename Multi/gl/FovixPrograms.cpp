#include "gl/FovixPrograms.h"

#include <cstdlib>
#include <string>

#include "base/Diagnostics.h"
#include "base/Surface.h"
#include "gl/FovixShaders.h"
#include "gl/GlCheck.h"
#include "handle/FovixHandle.h"

int checkOpenGLError(const char* file, int line) {
    const GLenum error = glGetError();
    if (error == GL_NO_ERROR) return 1;
    fovix::printLine("OpenGLError: %d , %s:%d\n", static_cast<int>(error), file ? file : "", line);
    return 0;
}

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixPrograms";

// The same places in both programs, so that no attribute array but these two is ever enabled.
constexpr unsigned kPositionIndex = 0;
constexpr unsigned kTextureCoordsIndex = 1;

unsigned linkProgram(unsigned vertexShader, unsigned fragmentShader, const char* position,
                     const char* textureCoords) {
    const unsigned program = glCreateProgram();
    glAttachShader(program, vertexShader);
    glAttachShader(program, fragmentShader);
    glBindAttribLocation(program, kPositionIndex, position);
    if (textureCoords) glBindAttribLocation(program, kTextureCoordsIndex, textureCoords);
    glLinkProgram(program);
    return program;
}

int attribLocation(unsigned program, const char* name) {
    const int location = glGetAttribLocation(program, name);
    glCheck(kSource);
    return location;
}

int uniformLocation(unsigned program, const char* name) {
    const int location = glGetUniformLocation(program, name);
    glCheck(kSource);
    return location;
}

void lookupLocations(FovixContext& context) {
    ProgramLocations& to = context.locations;
    const unsigned dewarper = context.dewarperProgram, line = context.lineProgram;
    to.positionAttrib = attribLocation(dewarper, "a_position");
    to.textureCoordsAttrib = attribLocation(dewarper, "a_textureCoords");
    to.mvpMatrixUniform = uniformLocation(dewarper, "u_mvpMatrix");
    to.verticalOffsetUniform = uniformLocation(dewarper, "u_verticalOffset");
    to.dewarperTextureUniform = uniformLocation(dewarper, "u_dewarperTexture");
    to.dewarperYTextureUniform = uniformLocation(dewarper, "u_dewarperYTexture");
    to.dewarperUTextureUniform = uniformLocation(dewarper, "u_dewarperUTexture");
    to.dewarperVTextureUniform = uniformLocation(dewarper, "u_dewarperVTexture");
    to.usingYUVUniform = uniformLocation(dewarper, "u_usingYUV");
    to.yTextureScaleAdjustmentUniform = uniformLocation(dewarper, "u_yTextureScaleAdjustment");
    to.uTextureScaleAdjustmentUniform = uniformLocation(dewarper, "u_uTextureScaleAdjustment");
    to.vTextureScaleAdjustmentUniform = uniformLocation(dewarper, "u_vTextureScaleAdjustment");
    to.aspectRatioUniform = uniformLocation(dewarper, "u_aspectRatio");
    to.textureScaleUniform = uniformLocation(dewarper, "u_textureScale");
    to.linePositionAttrib = attribLocation(line, "vPosition");
    to.lineColorUniform = uniformLocation(line, "vColor");
}

/// What this GL context offers beyond version 2.1; every context may differ.
void readCapabilities(FovixContext& context) {
    const auto* version = reinterpret_cast<const char*>(glGetString(GL_VERSION));
    const bool isVersion3 = version && std::atoi(version) >= 3;
    context.hasVertexArrayObjects = isVersion3 && glBindVertexArray;
    context.hasFramebufferObjects = isVersion3 && glCheckFramebufferStatus;
}

/// The host's buffers and vertex array object would turn addresses of the library's memory into offsets.
void unbindHostArrays(const FovixContext& context) {
    if (context.hasVertexArrayObjects) glBindVertexArray(0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
}

/// Points both attributes into the library's memory.
void pointAttributes(FovixContext& context, const VertexCachePtr& cache) {
    unbindHostArrays(context);
    const auto position = static_cast<GLuint>(context.locations.positionAttrib);
    const auto textureCoords = static_cast<GLuint>(context.locations.textureCoordsAttrib);
    glVertexAttribPointer(position, 3, GL_FLOAT, GL_FALSE, 3 * sizeof(float), cache->positions.data());
    glCheck(kSource);
    glEnableVertexAttribArray(position);
    glCheck(kSource);
    glVertexAttribPointer(textureCoords, 2, GL_FLOAT, GL_FALSE, 2 * sizeof(float),
                          cache->textureCoords.data());
    glCheck(kSource);
    glEnableVertexAttribArray(textureCoords);
    glCheck(kSource);
    context.boundVertices = cache;
}

/// The model's main mesh; null when it has none. One that memory is too short for counts as none, so that the
/// next frame tries again.
VertexCachePtr fetchVertices(const Display& display) {
    try {
        return display.model ? display.model->operations.getVerticesCache(*display.model) : nullptr;
    } catch (const std::exception& exception) {
        reportException(exception);
        return nullptr;
    }
}

}  // namespace

bool loadOpenGL() {
    static SharedLock lock;
    static bool loaded = false;
    const LockSection section(lock);
    if (loaded && glGetString(GL_VERSION)) return true;
    // Under EGL, GLEW loads every entry point and then misses a GLX display, which the library has no use
    // for.
    const GLenum result = glewInit();
    loaded = (result == GLEW_OK || result == GLEW_ERROR_NO_GLX_DISPLAY) && glCreateShader;
    if (!loaded) printLine("Fovix Error : no OpenGL 2.0 context is current\n");
    return loaded;
}

unsigned loadShader(unsigned type, const char* source) {
    const GLuint shader = glCreateShader(type);
    if (shader == 0) return 0;
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    GLint compiled = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &compiled);
    if (compiled) return shader;
    GLint length = 0;
    glGetShaderiv(shader, GL_INFO_LOG_LENGTH, &length);
    if (length > 0) {
        std::string log(static_cast<std::size_t>(length), '\0');
        glGetShaderInfoLog(shader, length, nullptr, log.data());
        printLine("Could not compile shader %d:\n%s\n", static_cast<int>(type), log.c_str());
    }
    glDeleteShader(shader);
    return 0;
}

void setSamplers(const FovixContext& context) {
    const ProgramLocations& at = context.locations;
    const std::array samplers = {at.dewarperTextureUniform, at.dewarperYTextureUniform,
                                 at.dewarperUTextureUniform, at.dewarperVTextureUniform};
    for (int unit = 0; unit < static_cast<int>(samplers.size()); ++unit) {
        glUniform1i(samplers[static_cast<std::size_t>(unit)], unit);
        glCheck(kSource);
    }
}

void createPrograms(FovixContext& context, const Display& display) {
    readCapabilities(context);
    const unsigned dewarperVertex = loadShader(GL_VERTEX_SHADER, kDewarperVertexShader);
    const unsigned dewarperFragment = loadShader(GL_FRAGMENT_SHADER, kDewarperFragmentShader);
    const unsigned lineVertex = loadShader(GL_VERTEX_SHADER, kLineVertexShader);
    const unsigned lineFragment = loadShader(GL_FRAGMENT_SHADER, kLineFragmentShader);
    context.lineProgram = linkProgram(lineVertex, lineFragment, "vPosition", nullptr);
    context.dewarperProgram = linkProgram(dewarperVertex, dewarperFragment, "a_position", "a_textureCoords");
    lookupLocations(context);
    glUseProgram(context.dewarperProgram);
    setSamplers(context);
    glGetIntegerv(GL_MAX_TEXTURE_SIZE, &context.maxTextureSize);
    glCheck(kSource);
    // In a new GL context no attribute points anywhere: what was bound before does not count any more.
    context.boundVertices = nullptr;
    context.configChanged = 1;
    if (isTextureUsable(context.fishEye)) buildVertices(context, display);
    if (display.model) display.model->operations.resetPosition(*display.model);
}

void buildVertices(FovixContext& context, const Display& display) {
    const LockSection section(context.lock);
    // Taken before the fetch: a change that arrives meanwhile is fetched by the next frame.
    context.configChanged.exchange(0);
    const VertexCachePtr cache = fetchVertices(display);
    if (!cache) {
        context.configChanged = 1;
        printLine("buildVertices failed, Vertices is empty!\n");
        // Since the last frame the host or another handle may have pointed the attributes elsewhere.
        if (context.boundVertices) pointAttributes(context, context.boundVertices);
        return;
    }
    pointAttributes(context, cache);
    context.verticesCache = cache;
    context.verticesSerial = display.serial;
}

void rebindVertices(FovixContext& context) {
    if (!context.verticesCache) return;
    const LockSection section(context.lock);
    pointAttributes(context, context.verticesCache);
}

void buildOverlayVertices(FovixContext& context, const Display& display, int index) {
    const FovixModelOperations& model = display.model->operations;
    const LockSection section(context.lock);
    const VertexCachePtr cache =
        model.getOverlayVerticesCache ? model.getOverlayVerticesCache(*display.model, index) : nullptr;
    if (!cache) return printLine("buildVertices failed, Vertices is empty!\n");
    pointAttributes(context, cache);
}

void drawLineLoop(FovixContext& context, const float* vertices, int count,
                  const std::array<float, 4>& colour) {
    setViewport({0, 0, context.viewWidth, context.viewHeight});
    glUseProgram(context.lineProgram);
    glLineWidth(2.0f);
    glUniform4fv(context.locations.lineColorUniform, 1, colour.data());
    unbindHostArrays(context);
    // No array but the loop's may be enabled, since others can be shorter than the loop.
    glDisableVertexAttribArray(static_cast<GLuint>(context.locations.textureCoordsAttrib));
    const auto position = static_cast<GLuint>(context.locations.linePositionAttrib);
    glEnableVertexAttribArray(position);
    glVertexAttribPointer(position, 3, GL_FLOAT, GL_FALSE, 0, vertices);
    glDrawArrays(GL_LINE_LOOP, 0, count);
    // The loop's vertices are the caller's: no attribute keeps pointing at them.
    if (context.boundVertices) {
        pointAttributes(context, context.boundVertices);
    } else {
        glDisableVertexAttribArray(position);
    }
}

}  // namespace fovix
