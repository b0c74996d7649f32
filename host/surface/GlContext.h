// An off-screen OpenGL context (compatibility profile) with a surface of fixed size, created through EGL: on
// the surfaceless platform if available, else on the default display.
#pragma once

#include <memory>
#include <string>

#include "image/RgbaImage.h"

namespace fovix_host {

class GlContext {
  public:
    // Makes the context current on the calling thread. Throws std::runtime_error with a message that names
    // what is missing or the maximum size.
    GlContext(int width, int height);
    ~GlContext();
    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    // The current content of the surface, top row first.
    RgbaImage readPixels() const;
    int width() const { return _width; }
    int height() const { return _height; }
    // Restricts drawing to this part of the surface, counted from the bottom left.
    void setDrawnPart(int width, int height) const;
    int maxTextureSize() const;
    // Renderer and version string.
    std::string description() const;

  private:
    struct Handles;
    std::unique_ptr<Handles> _egl;
    int _width;
    int _height;
};

}  // namespace fovix_host
