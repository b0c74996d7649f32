#include "gl/GlCheck.h"

#include <GL/glew.h>

#include "base/Diagnostics.h"

namespace fovix {

int reportGlError(const char* source, int line) {
    const GLenum error = glGetError();
    if (error == GL_NO_ERROR) return 1;
    printLine("OpenGLError: %d , %s:%d\n", static_cast<int>(error), source ? source : "", line);
    return 0;
}

}  // namespace fovix
