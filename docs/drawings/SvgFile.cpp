#include "SvgFile.h"

#include <cmath>
#include <fstream>
#include <stdexcept>

namespace fovix::drawings {

namespace {

long units(double pixels) {
    return std::lround(pixels * kUnitsPerPixel);
}

std::string number(double pixels) {
    return std::to_string(units(pixels));
}

/// Drops corners within half a unit of the line between their neighbours.
std::vector<SvgPoint> withoutStraightCorners(const std::vector<SvgPoint>& points) {
    std::vector<SvgPoint> kept;
    for (std::size_t i = 0; i < points.size(); ++i) {
        const bool isEnd = i == 0 || i + 1 == points.size();
        if (!isEnd) {
            const SvgPoint &a = kept.back(), &b = points[i], &c = points[i + 1];
            const double length = std::hypot(c.x - a.x, c.y - a.y);
            const double aside = (c.x - a.x) * (b.y - a.y) - (c.y - a.y) * (b.x - a.x);
            if (length > 0.0 && std::abs(aside) / length < 0.5 / kUnitsPerPixel) continue;
        }
        kept.push_back(points[i]);
    }
    return kept;
}

/// Separates two numbers by a blank unless a minus sign does.
void append(std::string& text, long value, bool first) {
    if (!first && value >= 0) text += ' ';
    text += std::to_string(value);
}

}  // namespace

SvgFile::SvgFile(int width, int height) {
    const std::string size = "width=\"" + std::to_string(width) + "\" height=\"" + std::to_string(height) +
                             "\" viewBox=\"0 0 " + number(width) + " " + number(height) + "\"";
    _body = "<svg xmlns=\"http://www.w3.org/2000/svg\" " + size +
            " stroke-linejoin=\"round\" font-family=\"sans-serif\" font-size=\"56\">\n"
            "<rect width=\"100%\" height=\"100%\" rx=\"32\" fill=\"#fff\"/>\n";
}

void SvgFile::path(const std::vector<SvgPoint>& corners, bool isClosed, std::string_view attributes) {
    if (corners.size() < 2) return;
    const std::vector<SvgPoint> points = withoutStraightCorners(corners);
    long x = units(points[0].x), y = units(points[0].y);
    std::string steps;
    for (std::size_t i = 1; i < points.size(); ++i) {
        const long nextX = units(points[i].x), nextY = units(points[i].y);
        if (nextX == x && nextY == y) continue;
        append(steps, nextX - x, steps.empty());
        append(steps, nextY - y, false);
        x = nextX;
        y = nextY;
    }
    if (steps.empty()) return;
    _body += "<path d=\"M" + number(points[0].x) + ' ' + number(points[0].y) + 'l' + steps;
    _body += isClosed ? "z\"" : "\"";
    if (!attributes.empty()) _body += ' ';
    _body += attributes;
    _body += "/>\n";
}

void SvgFile::polygon(const std::vector<SvgPoint>& corners, std::string_view attributes) {
    path(corners, true, attributes);
}

void SvgFile::polyline(const std::vector<SvgPoint>& points, std::string_view attributes) {
    path(points, false, attributes);
}

void SvgFile::circle(SvgPoint centre, double radius, std::string_view attributes) {
    _body += "<circle cx=\"" + number(centre.x) + "\" cy=\"" + number(centre.y) + "\" r=\"" + number(radius) +
             "\" ";
    _body += attributes;
    _body += "/>\n";
}

void SvgFile::text(SvgPoint middle, std::string_view words) {
    _body += "<text x=\"" + number(middle.x) + "\" y=\"" + number(middle.y) +
             "\" text-anchor=\"middle\" fill=\"#333\">";
    _body += words;
    _body += "</text>\n";
}

void SvgFile::openGroup(std::string_view attributes) {
    _body += "<g ";
    _body += attributes;
    _body += ">\n";
}

void SvgFile::closeGroup() {
    _body += "</g>\n";
}

void SvgFile::save(const std::string& path) const {
    std::ofstream file(path, std::ios::binary);
    file << _body << "</svg>\n";
    file.close();
    if (!file) throw std::runtime_error(path + " cannot be written; the folder must exist and be writable");
}

}  // namespace fovix::drawings
