#include "viewer/overlay/Canvas.h"

#define GL_GLEXT_PROTOTYPES
#include <SDL_opengl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <initializer_list>
#include <numbers>

namespace fovix_host {
namespace {

struct Corner {
    float x, y;
};

void leaveShaders() {
    glUseProgram(0);
    glBindVertexArray(0);
    glBindBuffer(GL_ARRAY_BUFFER, 0);
    GLint arrays = 0;
    glGetIntegerv(GL_MAX_VERTEX_ATTRIBS, &arrays);
    for (GLint i = 0; i < arrays; ++i) glDisableVertexAttribArray(static_cast<GLuint>(i));
    glActiveTexture(GL_TEXTURE0);
    glBindTexture(GL_TEXTURE_2D, 0);
}

unsigned int upload(const RgbaImage& image) {
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_2D, name);
    for (const auto filter : std::initializer_list<GLenum>{GL_TEXTURE_MIN_FILTER, GL_TEXTURE_MAG_FILTER})
        glTexParameteri(GL_TEXTURE_2D, filter, GL_LINEAR);
    for (const auto wrap : std::initializer_list<GLenum>{GL_TEXTURE_WRAP_S, GL_TEXTURE_WRAP_T})
        glTexParameteri(GL_TEXTURE_2D, wrap, GL_CLAMP_TO_EDGE);
    for (const auto skip :
         std::initializer_list<GLenum>{GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS})
        glPixelStorei(skip, 0);
    glPixelStorei(GL_UNPACK_ALIGNMENT, 4);
    glTexImage2D(GL_TEXTURE_2D, 0, GL_RGBA, image.width, image.height, 0, GL_RGBA, GL_UNSIGNED_BYTE,
                 image.pixels.data());
    return name;
}

void setColour(const CanvasColour& colour) {
    glColor4f(colour.red, colour.green, colour.blue, colour.alpha);
}

}  // namespace

Canvas::~Canvas() {
    for (const auto& [key, texture] : _textures) glDeleteTextures(1, &texture.name);
}

void Canvas::begin(const SurfaceScale& scale) {
    leaveShaders();
    _density = scale.ppiZoom * scale.xPointer;
    _size = {static_cast<float>(scale.width / scale.xPointer),
             static_cast<float>(scale.height / scale.yPointer)};
    glViewport(0, 0, scale.pixelWidth(), scale.pixelHeight());
    glDisable(GL_DEPTH_TEST);
    glEnable(GL_BLEND);
    glBlendFunc(GL_SRC_ALPHA, GL_ONE_MINUS_SRC_ALPHA);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0, static_cast<double>(_size.width), static_cast<double>(_size.height), 0, -1, 1);
}

void Canvas::end() {
    for (auto at = _textures.begin(); at != _textures.end();) {
        if (at->second.used) {
            at->second.used = false;
            ++at;
            continue;
        }
        glDeleteTextures(1, &at->second.name);
        at = _textures.erase(at);
    }
}

void Canvas::panel(float x, float y, CanvasSize size, float radius, const CanvasColour& colour) const {
    constexpr int kSteps = 8;  // a quarter of a circle
    const std::array<Corner, 4> centres{{{x + size.width - radius, y + size.height - radius},
                                         {x + radius, y + size.height - radius},
                                         {x + radius, y + radius},
                                         {x + size.width - radius, y + radius}}};
    setColour(colour);
    glBegin(GL_POLYGON);
    for (int corner = 0; corner < 4; ++corner)
        for (int i = 0; i <= kSteps; ++i) {
            const float angle =
                (static_cast<float>(corner) + static_cast<float>(i) / kSteps) * std::numbers::pi_v<float> / 2;
            const Corner& centre = centres[static_cast<std::size_t>(corner)];
            glVertex2f(centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle));
        }
    glEnd();
}

void Canvas::frame(float x, float y, CanvasSize size, const CanvasColour& colour) const {
    setColour(colour);
    glLineWidth(static_cast<float>(1.5 * _density));
    glBegin(GL_LINE_LOOP);
    glVertex2f(x, y);
    glVertex2f(x + size.width, y);
    glVertex2f(x + size.width, y + size.height);
    glVertex2f(x, y + size.height);
    glEnd();
}

Canvas::Texture* Canvas::textureOf(const std::string& text, float height) {
    if (!_font || text.empty()) return nullptr;
    const int pixels = std::max(static_cast<int>(std::lround(height * _density)), 1);
    Texture& texture = _textures[{text, pixels}];
    texture.used = true;
    if (texture.name == 0)
        if (const auto image = _font->draw(text, pixels))
            texture = {upload(*image), image->width, image->height, true};
    return texture.name != 0 ? &texture : nullptr;
}

CanvasSize Canvas::textSize(const std::string& text, float height) {
    const Texture* texture = textureOf(text, height);
    if (!texture) return {};
    return {static_cast<float>(texture->width / _density), static_cast<float>(texture->height / _density)};
}

void Canvas::text(float x, float y, const std::string& text, float height, const CanvasColour& colour) {
    const Texture* texture = textureOf(text, height);
    if (!texture) return;
    // Letters are sharp only on whole pixels.
    const auto snapped = [&](float place) {
        return static_cast<float>(std::round(place * _density) / _density);
    };
    const float left = snapped(x), top = snapped(y);
    const CanvasSize size = textSize(text, height);
    glEnable(GL_TEXTURE_2D);
    glBindTexture(GL_TEXTURE_2D, texture->name);
    glTexEnvi(GL_TEXTURE_ENV, GL_TEXTURE_ENV_MODE, GL_MODULATE);
    setColour(colour);
    glBegin(GL_QUADS);
    glTexCoord2f(0, 0), glVertex2f(left, top);
    glTexCoord2f(1, 0), glVertex2f(left + size.width, top);
    glTexCoord2f(1, 1), glVertex2f(left + size.width, top + size.height);
    glTexCoord2f(0, 1), glVertex2f(left, top + size.height);
    glEnd();
    glDisable(GL_TEXTURE_2D);
}

}  // namespace fovix_host
