#include "Panels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

#include "base/Angles.h"

namespace fovix::drawings {

namespace {

constexpr char kFrame[] = "fill=\"none\" stroke=\"#333\" stroke-width=\"5\"";
constexpr char kEyeLines[] = "fill=\"none\" stroke=\"#111\" stroke-width=\"6\"";
constexpr char kPatchEdges[] = "stroke=\"#fff\" stroke-width=\"2\"";
constexpr double kSightLength = 0.6;  ///< model units from the eye to its outline, for a curved mesh

using Clip = std::array<double, 4>;
using Place = std::array<double, 3>;

std::vector<SvgPoint> cornersOf(const Box& box) {
    const double right = box.x + box.width, bottom = box.y + box.height;
    return {{box.x, box.y}, {right, box.y}, {right, bottom}, {box.x, bottom}};
}

/// A patch in a panel; farther ones are drawn first.
struct Shape {
    double depth;
    std::vector<SvgPoint> corners;
    const std::string* colour;
};

void drawShapes(SvgFile& svg, std::vector<Shape> shapes, bool isSeeThrough) {
    std::stable_sort(shapes.begin(), shapes.end(),
                     [](const Shape& a, const Shape& b) { return a.depth > b.depth; });
    svg.openGroup(std::string(kPatchEdges) + (isSeeThrough ? " fill-opacity=\".88\"" : ""));
    for (const Shape& shape : shapes) svg.polygon(shape.corners, "fill=\"" + *shape.colour + "\"");
    svg.closeGroup();
}

/// Patches of a flat mesh are drawn in their order.
bool isFlat(const std::vector<Patch>& patches) {
    const double z = patches.front().outline.front()[2];
    return std::all_of(patches.begin(), patches.end(), [z](const Patch& patch) {
        return std::all_of(patch.outline.begin(), patch.outline.end(),
                           [z](const MeshPoint& p) { return p[2] == z; });
    });
}

/// Points are row vectors: point times matrix.
Clip toClip(const Mat4& m, const MeshPoint& p) {
    Clip clip;
    for (std::size_t c = 0; c < 4; ++c) clip[c] = p[0] * m[c] + p[1] * m[4 + c] + p[2] * m[8 + c] + m[12 + c];
    return clip;
}

/// The part of a polygon in front of the eye and within the surface.
std::vector<Clip> clipped(std::vector<Clip> polygon) {
    const auto inside = [](const Clip& p, int plane) {
        switch (plane) {
            case 0:
                return p[2];
            case 1:
                return p[3] - p[0];
            case 2:
                return p[3] + p[0];
            case 3:
                return p[3] - p[1];
            default:
                return p[3] + p[1];
        }
    };
    for (int plane = 0; plane < 5; ++plane) {
        std::vector<Clip> kept;
        for (std::size_t i = 0; i < polygon.size(); ++i) {
            const Clip &a = polygon[i], &b = polygon[(i + 1) % polygon.size()];
            const double da = inside(a, plane), db = inside(b, plane);
            if (da >= 0.0) kept.push_back(a);
            if ((da >= 0.0) == (db >= 0.0)) continue;
            Clip crossing;
            for (std::size_t k = 0; k < 4; ++k) crossing[k] = a[k] + (b[k] - a[k]) * da / (da - db);
            kept.push_back(crossing);
        }
        polygon = std::move(kept);
    }
    return polygon;
}

double determinant(const Place& a, const Place& b, const Place& c) {
    return a[0] * (b[1] * c[2] - b[2] * c[1]) - b[0] * (a[1] * c[2] - a[2] * c[1]) +
           c[0] * (a[1] * b[2] - a[2] * b[1]);
}

/// The point that a matrix maps to x, y and w (Cramer's rule); 0, 0, 0 is the eye itself.
Place placeAt(const Mat4& m, double x, double y, double w) {
    const auto row = [&m](std::size_t r) { return Place{m[4 * r], m[4 * r + 1], m[4 * r + 3]}; };
    const Place right = {x - m[12], y - m[13], w - m[15]};
    const Place a = row(0), b = row(1), c = row(2);
    const double all = determinant(a, b, c);
    return {determinant(right, b, c) / all, determinant(a, right, c) / all, determinant(a, b, right) / all};
}

/// Orthographic projection of space.
class SpaceView {
  public:
    explicit SpaceView(const Outlook& outlook) : _outlook(outlook) {}

    /// Right, up and towards the viewer.
    Place turned(const Place& p) const {
        const Place q = upright(p);
        const double turn = toRadians(_outlook.turn), lift = toRadians(_outlook.lift);
        const double x = q[0] * std::cos(turn) + q[2] * std::sin(turn);
        const double z = q[2] * std::cos(turn) - q[0] * std::sin(turn);
        return {x, q[1] * std::cos(lift) - z * std::sin(lift), q[1] * std::sin(lift) + z * std::cos(lift)};
    }

  private:
    Place upright(const Place& p) const {
        if (_outlook.up == UpAxis::Y) return p;
        return _outlook.up == UpAxis::Z ? Place{p[0], p[2], -p[1]} : Place{p[0], -p[2], p[1]};
    }

    Outlook _outlook;
};

/// Fits rotated points into a box.
struct Fit {
    double scale, left, top, lowX, highY;

    Fit(const Box& box, const std::vector<Place>& places) {
        double highX = -1e9, lowY = 1e9;
        lowX = 1e9;
        highY = -1e9;
        for (const Place& p : places) {
            lowX = std::min(lowX, p[0]);
            highX = std::max(highX, p[0]);
            lowY = std::min(lowY, p[1]);
            highY = std::max(highY, p[1]);
        }
        scale = std::min(box.width / (highX - lowX), box.height / (highY - lowY));
        left = box.x + (box.width - (highX - lowX) * scale) / 2.0;
        top = box.y + (box.height - (highY - lowY) * scale) / 2.0;
    }

    SvgPoint operator()(const Place& p) const {
        return {left + (p[0] - lowX) * scale, top + (highY - p[1]) * scale};
    }
};

/// Distance from the eye to the outline of its view: that of a flat mesh, or a fixed one in front of a curved
/// mesh.
double sightLength(const Pass& pass) {
    const MeshPoint& first = pass.patches->front().outline.front();
    for (const Patch& patch : *pass.patches) {
        for (const MeshPoint& p : patch.outline) {
            if (p[2] != first[2]) return kSightLength;
        }
    }
    return toClip(pass.matrix, first)[3];
}

/// The eye and the four corners of its outline.
std::vector<Place> sightOf(const Pass& pass) {
    const double d = sightLength(pass);
    const Mat4& matrix = pass.matrix;
    return {placeAt(matrix, 0, 0, 0), placeAt(matrix, -d, d, d), placeAt(matrix, d, d, d),
            placeAt(matrix, d, -d, d), placeAt(matrix, -d, -d, d)};
}

/// Every mesh once, even if several passes draw it.
std::vector<const std::vector<Patch>*> meshesOf(const std::vector<Pass>& passes) {
    std::vector<const std::vector<Patch>*> meshes;
    for (const Pass& pass : passes) {
        if (meshes.empty() || meshes.back() != pass.patches) meshes.push_back(pass.patches);
    }
    return meshes;
}

void drawSight(SvgFile& svg, const std::vector<SvgPoint>& sight) {
    svg.polygon({sight[1], sight[2], sight[3], sight[4]}, kEyeLines);
    for (std::size_t corner = 1; corner < sight.size(); ++corner)
        svg.polyline({sight[0], sight[corner]}, kEyeLines);
    svg.circle(sight[0], 3.5, "fill=\"#111\"");
}

}  // namespace

void drawPicturePanel(SvgFile& svg, const Box& box, const Picture& picture, const std::vector<Pass>& passes) {
    const double scale = std::min(box.width / picture.width, box.height / picture.height);
    const Box frame = {box.x + (box.width - picture.width * scale) / 2.0,
                       box.y + (box.height - picture.height * scale) / 2.0, picture.width * scale,
                       picture.height * scale};
    const auto place = [&frame](double u, double v) {
        return SvgPoint{frame.x + u * frame.width, frame.y + v * frame.height};
    };
    svg.polygon(cornersOf(frame), "fill=\"#222\"");
    std::vector<Shape> shapes;
    for (const std::vector<Patch>* patches : meshesOf(passes)) {
        for (const Patch& patch : *patches) {
            Shape shape = {0.0, {}, &patch.colour};
            for (const MeshPoint& p : patch.outline)
                shape.corners.push_back(place(std::clamp(p[3], 0.0, 1.0), std::clamp(p[4], 0.0, 1.0)));
            shapes.push_back(std::move(shape));
        }
    }
    drawShapes(svg, std::move(shapes), false);
    for (const LensDisc& disc : picture.discs) {
        svg.circle(place(disc.u, disc.v), disc.radiusU * frame.width,
                   "fill=\"none\" stroke=\"#fff\" stroke-width=\"7\" stroke-dasharray=\"16 12\"");
    }
    svg.polygon(cornersOf(frame), kFrame);
}

void drawSpacePanel(SvgFile& svg, const Box& box, const Outlook& outlook, const std::vector<Pass>& passes) {
    const SpaceView view(outlook);
    std::vector<Place> all;
    std::vector<std::vector<Place>> sights;
    for (const Pass& pass : passes) {
        for (const Patch& patch : *pass.patches) {
            for (const MeshPoint& p : patch.outline) all.push_back(view.turned({p[0], p[1], p[2]}));
        }
        if (!pass.showsEye) continue;
        std::vector<Place>& sight = sights.emplace_back();
        for (const Place& p : sightOf(pass)) sight.push_back(view.turned(p));
        all.insert(all.end(), sight.begin(), sight.end());
    }
    const Fit fit(box, all);
    std::vector<Shape> shapes;
    for (const std::vector<Patch>* patches : meshesOf(passes)) {
        const bool flat = isFlat(*patches);
        for (const Patch& patch : *patches) {
            Shape shape = {0.0, {}, &patch.colour};
            for (const MeshPoint& p : patch.outline) {
                const Place turned = view.turned({p[0], p[1], p[2]});
                if (!flat) shape.depth -= turned[2] / static_cast<double>(patch.outline.size());
                shape.corners.push_back(fit(turned));
            }
            shapes.push_back(std::move(shape));
        }
    }
    drawShapes(svg, std::move(shapes), true);
    for (const std::vector<Place>& sight : sights) {
        std::vector<SvgPoint> lines;
        for (const Place& p : sight) lines.push_back(fit(p));
        drawSight(svg, lines);
    }
}

void drawScreenPanel(SvgFile& svg, const Box& box, const std::vector<Pass>& passes) {
    svg.polygon(cornersOf(box), "fill=\"#222\"");
    for (const Pass& pass : passes) {
        const Box part = {box.x + pass.part.x * box.width, box.y + pass.part.y * box.height,
                          pass.part.width * box.width, pass.part.height * box.height};
        const bool flat = isFlat(*pass.patches);
        std::vector<Shape> shapes;
        for (const Patch& patch : *pass.patches) {
            std::vector<Clip> outline;
            for (const MeshPoint& p : patch.outline) outline.push_back(toClip(pass.matrix, p));
            Shape shape = {0.0, {}, &patch.colour};
            for (const Clip& p : clipped(std::move(outline))) {
                shape.depth += p[2] / p[3];
                shape.corners.push_back({part.x + (p[0] / p[3] + 1.0) / 2.0 * part.width,
                                         part.y + (1.0 - p[1] / p[3]) / 2.0 * part.height});
            }
            if (shape.corners.size() < 3) continue;
            shape.depth = flat ? 0.0 : shape.depth / static_cast<double>(shape.corners.size());
            shapes.push_back(std::move(shape));
        }
        drawShapes(svg, std::move(shapes), false);
    }
    svg.polygon(cornersOf(box), kFrame);
}

}  // namespace fovix::drawings
