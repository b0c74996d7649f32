#include "RenderJob.h"

#include <Fovix.h>

#include <algorithm>
#include <cstdio>
#include <memory>
#include <type_traits>

#include "GlContext.h"
#include "PictureSource.h"
#include "PngWriter.h"

namespace fovix_host {
namespace {

constexpr int sampleSize = 1280;

struct ViewRelease {
    void operator()(VRHANDLE view) const { Fovix_Release(view); }
};
using View = std::unique_ptr<std::remove_pointer_t<VRHANDLE>, ViewRelease>;

std::unique_ptr<PictureSource> openSource(const Options& options) {
    if (options.sample) return openSample(*options.sample, sampleSize, sampleSize);
    return openMedia(options.input);
}

// Needs the GL context current.
View makeView(const Options& options, const PictureSource& source) {
    VRHANDLE handle = nullptr;
    Fovix_Create(&handle);
    if (!handle) throw std::runtime_error("no memory for a view");
    View view(handle);
    Fovix_Prepare(handle);
    Fovix_Init(handle, options.width, options.height);
    Fovix_SetType(handle, options.type);
    Fovix_SetBackground(handle, options.background);
    // A change of type forgets the lens, so it is set last.
    if (const auto lens = options.lens ? options.lens : source.lens())
        Fovix_SetFecParams(handle, lens->xCenter, lens->yCenter, lens->radius, lens->imageWidth,
                           lens->imageHeight);
    return view;
}

std::string sizeText(int width, int height) {
    return std::to_string(width) + "x" + std::to_string(height);
}

void setPicture(VRHANDLE view, const PackedPicture& picture, int maxTextureSize) {
    if (picture.width > maxTextureSize || picture.height > maxTextureSize)
        throw std::runtime_error("the picture of " + sizeText(picture.width, picture.height) +
                                 " pixels is larger than the textures of this GL, " +
                                 sizeText(maxTextureSize, maxTextureSize));
    Fovix_SetTexture(view, picture.pixelFormat, picture.data, picture.size, picture.width, picture.height);
}

// view.png, or view-0001.png and so on where several are written.
std::string fileOf(const Options& options, int frame) {
    if (options.frames == 1) return options.output;
    const std::string number = std::to_string(frame + 1);
    const std::size_t digits = std::max<std::size_t>(4, std::to_string(options.frames).size());
    std::string numbered = options.output.substr(0, options.output.rfind('.')) + '-';
    return numbered.append(digits - number.size(), '0') + number + ".png";
}

void report(const Options& options, const std::string& text) {
    if (options.verbose) std::fprintf(stderr, "fovix-render: %s\n", text.c_str());
}

void noteShortage(const Options& options, int pictures) {
    std::fprintf(stderr, "fovix-render: '%s' has %d pictures; the last one stays for the other %d frames\n",
                 options.input.c_str(), pictures, options.frames - pictures);
}

}  // namespace

void render(const Options& options, OwnOutput& out) {
    const std::unique_ptr<PictureSource> source = openSource(options);
    const GlContext gl(options.width, options.height);
    const int maxTextureSize = gl.maxTextureSize();
    std::optional<PackedPicture> picture = source->next();
    if (!picture) throw std::runtime_error("'" + options.input + "' holds no picture");
    report(options, "drawing with " + gl.description());
    report(options, "pictures of " + sizeText(picture->width, picture->height) + " in format " +
                        std::to_string(picture->pixelFormat));

    const View view = makeView(options, *source);
    for (int frame = 0; frame < options.frames; ++frame) {
        if (picture) setPicture(view.get(), *picture, maxTextureSize);
        Fovix_Drawself(view.get());
        const std::string file = fileOf(options, frame);
        writePng(file, gl.readPixels());
        out.line(file);
        if (picture && frame + 1 < options.frames) {
            picture = source->next();
            // A still picture is meant to stay; a video that ends early is worth a word.
            if (!picture && frame > 0) noteShortage(options, frame + 1);
        }
    }
}

}  // namespace fovix_host
