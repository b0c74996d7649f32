// Draws panels, frames and text over the view, in window units from the top left.
#pragma once

#include <map>
#include <memory>
#include <string>

#include "viewer/overlay/Font.h"
#include "viewer/window/SurfaceScale.h"

namespace fovix_host {

struct CanvasColour {
    float red = 1, green = 1, blue = 1, alpha = 1;
};

struct CanvasSize {
    float width = 0, height = 0;
};

class Canvas {
  public:
    // Draws no text without a font. Requires a current GL context until the canvas is destroyed.
    explicit Canvas(std::unique_ptr<Font> font) : _font(std::move(font)) {}
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // Everything is drawn between these two calls. begin() resets the GL state that the library leaves; the
    // library sets its own state again in its next frame.
    void begin(const SurfaceScale& scale);
    void end();

    CanvasSize size() const { return _size; }
    void panel(float x, float y, CanvasSize size, float radius, const CanvasColour& colour) const;
    void frame(float x, float y, CanvasSize size, const CanvasColour& colour) const;
    CanvasSize textSize(const std::string& text, float height);
    void text(float x, float y, const std::string& text, float height, const CanvasColour& colour);

  private:
    struct Texture {
        unsigned int name = 0;
        int width = 0, height = 0;
        bool used = false;  // in this frame; unused textures are deleted at its end
    };
    Texture* textureOf(const std::string& text, float height);

    std::unique_ptr<Font> _font;
    std::map<std::pair<std::string, int>, Texture> _textures;
    CanvasSize _size;
    double _density = 1;  // surface pixels per unit
};

}  // namespace fovix_host
