// The GL check: reads the pending GL error after nearly every GL call, prints it and goes on.
#pragma once

namespace fovix {

/// Prints the pending GL error, if there is one, with the place where it was found. Returns 1 without an
/// error, else 0.
int reportGlError(const char* source, int line);

/// source is the name of the source file as diagnostics show it; the line is the caller's.
inline void glCheck(const char* source, int line = __builtin_LINE()) {
    reportGlError(source, line);
}

}  // namespace fovix
