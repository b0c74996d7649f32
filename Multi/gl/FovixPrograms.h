// Shader programs and the small GL helpers of a frame. GL thread only.
//
// Vertex data stays in the library's memory: the attributes point straight at a VertexCache, which the
// context keeps alive for as long as they do.
#pragma once

#include <array>

#include "handle/FovixContext.h"

namespace fovix {

/// Loads the GL entry points; false, with one line, when no usable GL context is current.
bool loadOpenGL();

/// Builds both programs, looks up their locations, reads the texture limit and fetches the model's vertices.
void createPrograms(FovixContext& context, const Display& display);

/// A compiled shader, or 0 after printing the compiler's log.
unsigned loadShader(unsigned type, const char* source);

/// The samplers read from texture units 0 to 3; the textured program must be in use.
void setSamplers(const FovixContext& context);

/// Fetches the model's main mesh and points the attributes at it; prints a line and keeps the old pointers
/// when there is none.
void buildVertices(FovixContext& context, const Display& display);

/// Points the attributes at the main mesh that was bound last.
void rebindVertices(FovixContext& context);

/// Points the attributes at overlay mesh number index; prints a line and keeps the old pointers when there is
/// none.
void buildOverlayVertices(FovixContext& context, const Display& display, int index);

/// Draws one closed polyline (x, y, z per vertex, normalised device coordinates) over the whole surface.
void drawLineLoop(FovixContext& context, const float* vertices, int count,
                  const std::array<float, 4>& colour);

}  // namespace fovix
