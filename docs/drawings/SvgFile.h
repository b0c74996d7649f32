// A small SVG writer. Lengths are quarters of a pixel, written as integers and relative steps to keep
// thousands of corners small.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace fovix::drawings {

inline constexpr double kUnitsPerPixel = 4.0;

struct SvgPoint {
    double x, y;  ///< pixels from the top left
};

class SvgFile {
  public:
    /// Sizes in pixels. The background is white, for dark pages too.
    SvgFile(int width, int height);

    /// attributes are those of SVG, e.g. `fill="none" stroke="#333"`.
    void polygon(const std::vector<SvgPoint>& corners, std::string_view attributes);
    void polyline(const std::vector<SvgPoint>& points, std::string_view attributes);
    void circle(SvgPoint centre, double radius, std::string_view attributes);
    void text(SvgPoint middle, std::string_view words);
    void openGroup(std::string_view attributes);
    void closeGroup();

    /// Writes the file; throws std::runtime_error on failure.
    void save(const std::string& path) const;

  private:
    void path(const std::vector<SvgPoint>& corners, bool isClosed, std::string_view attributes);

    std::string _body;
};

}  // namespace fovix::drawings
