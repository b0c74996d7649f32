// The GL check: reads the pending GL error after nearly every GL call, prints it and goes on.
#pragma once

#include <GL/glew.h>

#include "Fovix.h"

namespace fovix {

/// source is the name of the source file as diagnostics show it; the line is the caller's.
inline void glCheck(const char* source, int line = __builtin_LINE()) {
    checkOpenGLError(source, line);
}

}  // namespace fovix
