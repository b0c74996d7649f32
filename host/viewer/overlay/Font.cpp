#include "viewer/overlay/Font.h"

#include <SDL_ttf.h>
#include <fontconfig/fontconfig.h>

#include <cstring>
#include <utility>

namespace fovix_host {
namespace {

struct PatternCloser {
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};
using PatternOwner = std::unique_ptr<FcPattern, PatternCloser>;

struct ConfigCloser {
    void operator()(FcConfig* config) const { FcConfigDestroy(config); }
};

struct SurfaceCloser {
    void operator()(SDL_Surface* surface) const { SDL_FreeSurface(surface); }
};
using SurfaceOwner = std::unique_ptr<SDL_Surface, SurfaceCloser>;

std::string sansSerifFile() {
    const std::unique_ptr<FcConfig, ConfigCloser> config(FcInitLoadConfigAndFonts());
    const PatternOwner wanted(FcNameParse(reinterpret_cast<const FcChar8*>("sans-serif:scalable=true")));
    if (!config || !wanted) return {};
    FcConfigSubstitute(config.get(), wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const PatternOwner found(FcFontMatch(config.get(), wanted.get(), &result));
    FcChar8* file = nullptr;
    if (!found || FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch) return {};
    return reinterpret_cast<const char*>(file);
}

}  // namespace

struct Font::Parts {
    TTF_Font* font = nullptr;
    int size = 0;

    Parts() { TTF_Init(); }
    ~Parts() {
        if (font) TTF_CloseFont(font);
        TTF_Quit();
    }
};

Font::Font(std::unique_ptr<Parts> parts) : _parts(std::move(parts)) {}
Font::~Font() = default;

std::unique_ptr<Font> Font::open() {
    const std::string file = sansSerifFile();
    auto parts = std::make_unique<Parts>();
    constexpr int kAnySize = 16;
    parts->font = file.empty() ? nullptr : TTF_OpenFont(file.c_str(), kAnySize);
    if (!parts->font) return nullptr;
    parts->size = kAnySize;
    return std::unique_ptr<Font>(new Font(std::move(parts)));
}

std::optional<RgbaImage> Font::draw(const std::string& text, int pixels) {
    if (pixels != _parts->size && TTF_SetFontSize(_parts->font, pixels) == 0) _parts->size = pixels;
    const SurfaceOwner drawn(TTF_RenderUTF8_Blended(_parts->font, text.c_str(), {255, 255, 255, 255}));
    if (!drawn) return std::nullopt;
    const SurfaceOwner rgba(SDL_ConvertSurfaceFormat(drawn.get(), SDL_PIXELFORMAT_RGBA32, 0));
    if (!rgba) return std::nullopt;
    RgbaImage image(rgba->w, rgba->h);
    for (int y = 0; y < image.height; ++y)
        std::memcpy(image.at(0, y), static_cast<const char*>(rgba->pixels) + y * rgba->pitch,
                    static_cast<std::size_t>(image.width) * 4);
    return image;
}

}  // namespace fovix_host
