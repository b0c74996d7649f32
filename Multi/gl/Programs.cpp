#include "gl/Programs.h"

#include <GL/glew.h>

#include <array>
#include <string>

#include "base/Diagnostics.h"
#include "base/ProcessLock.h"
#include "gl/GlCheck.h"
#include "gl/Shaders.h"

namespace fovix {

namespace {

constexpr char kSource[] = "Multi/FovixPrograms";

// Both programs share these indices, so only two attribute arrays are ever enabled.
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

void lookupLocations(Programs& to) {
    const unsigned dewarper = to.dewarperProgram, line = to.lineProgram;
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

}  // namespace

bool loadOpenGL() {
    static bool loaded = false;
    const LockSection section;
    if (loaded && glGetString(GL_VERSION)) return true;
    // Under EGL, glewInit() loads everything but still reports a missing GLX display.
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

void setSamplers(const Programs& programs) {
    const std::array samplers = {programs.dewarperTextureUniform, programs.dewarperYTextureUniform,
                                 programs.dewarperUTextureUniform, programs.dewarperVTextureUniform};
    for (int unit = 0; unit < static_cast<int>(samplers.size()); ++unit) {
        glUniform1i(samplers[static_cast<std::size_t>(unit)], unit);
        glCheck(kSource);
    }
}

Programs createPrograms() {
    Programs programs;
    const unsigned dewarperVertex = loadShader(GL_VERTEX_SHADER, kDewarperVertexShader);
    const unsigned dewarperFragment = loadShader(GL_FRAGMENT_SHADER, kDewarperFragmentShader);
    const unsigned lineVertex = loadShader(GL_VERTEX_SHADER, kLineVertexShader);
    const unsigned lineFragment = loadShader(GL_FRAGMENT_SHADER, kLineFragmentShader);
    programs.lineProgram = linkProgram(lineVertex, lineFragment, "vPosition", nullptr);
    programs.dewarperProgram = linkProgram(dewarperVertex, dewarperFragment, "a_position", "a_textureCoords");
    lookupLocations(programs);
    glUseProgram(programs.dewarperProgram);
    setSamplers(programs);
    return programs;
}

}  // namespace fovix
