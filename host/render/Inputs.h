// The pictures of one or several inputs on their way into the view: slot by slot for the grid and the
// lenses, and with the lens circle that belongs to them.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "Options.h"
#include "PictureSource.h"

namespace fovix_host {

class Inputs {
  public:
    // Reads the first picture of each. Throws std::runtime_error with a sentence that names the input.
    explicit Inputs(const Options& options);

    // How many there are; none with a script that brings its own pictures.
    int count() const { return static_cast<int>(_sources.size()); }
    ViewOptions::Grid grid() const;
    // The one given, else what fits the pictures and the type.
    std::optional<LensCircle> lens() const;
    const std::optional<PackedPicture>& firstPicture() const { return _pictures.front(); }

    void handIn(VRHANDLE view, int maxTextureSize) const;

    // Reads the next pictures, where there are any; says so once where a video ends after several.
    void advance(int framesDrawn, int framesLeft);

  private:
    void open();
    void setPicture(VRHANDLE view, int slot, const PackedPicture& picture) const;

    const Options& _options;
    std::vector<std::unique_ptr<PictureSource>> _sources;
    std::vector<std::optional<PackedPicture>> _pictures;  // empty where the one before stays
    int _width = 0, _height = 0;                          // of the first one
};

}  // namespace fovix_host
