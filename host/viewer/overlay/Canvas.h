// Draws panels, frames and text over what the library has drawn, in the window's own units from the top left.
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
    // Without a font no text is drawn. The GL context is current for as long as the canvas lives.
    explicit Canvas(std::unique_ptr<Font> font) : _font(std::move(font)) {}
    ~Canvas();
    Canvas(const Canvas&) = delete;
    Canvas& operator=(const Canvas&) = delete;

    // Between these two everything is drawn. A frame of the library leaves state that has to go first, and
    // sets its own anew the next time.
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
        bool used = false;  // in this frame; the others go at its end
    };
    Texture* textureOf(const std::string& text, float height);

    std::unique_ptr<Font> _font;
    std::map<std::pair<std::string, int>, Texture> _textures;
    CanvasSize _size;
    double _density = 1;  // surface pixels per unit
};

}  // namespace fovix_host
