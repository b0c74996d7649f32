// An off-screen OpenGL context of the compatibility profile with a surface of a fixed size, made
// through EGL: on Mesa's surfaceless platform, or on the default display where that is missing.
#pragma once

#include <memory>
#include <string>

#include "image/RgbaImage.h"

namespace fovix_host {

class GlContext {
  public:
    // Makes the context current on the calling thread. Throws std::runtime_error with a sentence that
    // says what is missing or which size would be possible.
    GlContext(int width, int height);
    ~GlContext();
    GlContext(const GlContext&) = delete;
    GlContext& operator=(const GlContext&) = delete;

    // The surface as drawn so far, first row at the top.
    RgbaImage readPixels() const;
    int width() const { return _width; }
    int height() const { return _height; }
    // From now on only this part of the surface is drawn, from the bottom left.
    void setDrawnPart(int width, int height) const;
    int maxTextureSize() const;
    // The GL's own words for itself, for reports.
    std::string description() const;

  private:
    struct Handles;
    std::unique_ptr<Handles> _egl;
    int _width;
    int _height;
};

}  // namespace fovix_host
