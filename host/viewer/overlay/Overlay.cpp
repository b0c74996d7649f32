#include "viewer/overlay/Overlay.h"

#include <algorithm>
#include <vector>

#include "viewer/state/Keys.h"

namespace fovix_host {
namespace {

constexpr CanvasColour kGround{0.06f, 0.07f, 0.09f, 0.78f};
constexpr CanvasColour kBright{1, 1, 1, 1};
constexpr CanvasColour kSoft{0.80f, 0.84f, 0.88f, 1};
constexpr CanvasColour kAccent{1.0f, 0.80f, 0.36f, 1};

constexpr double kFades = 0.4;  // seconds, the last ones of a word
constexpr float kWordHeight = 20, kNumbersHeight = 14;

CanvasColour faded(CanvasColour colour, float strength) {
    colour.alpha *= strength;
    return colour;
}

// Sizes in window units at full size; a window too small for the help shows it smaller.
struct HelpLayout {
    float text = 14, row = 19, title = 20, margin = 22, gap = 18;

    void scaleBy(float factor) {
        for (float* part : {&text, &row, &title, &margin, &gap}) *part *= factor;
    }
};

struct HelpColumns {
    float keys = 0, meaning = 0;
};

HelpColumns measure(Canvas& canvas, const std::vector<HelpLine>& lines, float height) {
    HelpColumns columns;
    for (const HelpLine& line : lines) {
        columns.keys = std::max(columns.keys, canvas.textSize(std::string(line.keys), height).width);
        columns.meaning = std::max(columns.meaning, canvas.textSize(std::string(line.meaning), height).width);
    }
    return columns;
}

CanvasSize helpSize(const HelpLayout& layout, const HelpColumns& columns, std::size_t lines) {
    return {columns.keys + layout.gap + columns.meaning + 2 * layout.margin,
            2 * layout.title + static_cast<float>(lines) * layout.row + 2 * layout.margin};
}

}  // namespace

void Overlay::say(const std::string& word, double seconds) {
    _word = word;
    _saidAt = seconds;
}

double Overlay::wordStrength(double seconds) const {
    return std::clamp((_saidAt + kWordSeconds - seconds) / kFades, 0.0, 1.0);
}

void Overlay::draw(const SurfaceScale& scale, const std::optional<Gestures::Band>& band, double seconds) {
    const double strength = wordStrength(seconds);
    if (strength <= 0 && _numbers.empty() && !_help && !band) return;
    _canvas.begin(scale);
    if (band) drawBand(scale, *band);
    if (!_numbers.empty()) drawNumbers();
    if (_help) drawHelp();
    if (strength > 0) drawWord(static_cast<float>(strength));
    _canvas.end();
}

void Overlay::drawWord(float strength) {
    constexpr float kMargin = 14, kAbove = 32;
    const CanvasSize window = _canvas.size();
    float height = kWordHeight;
    CanvasSize size = _canvas.textSize(_word, height);
    if (size.width <= 0) return;
    if (const float room = window.width - 4 * kMargin; size.width > room) {
        height = std::max(height * room / size.width, 8.0f);
        size = _canvas.textSize(_word, height);
    }
    const float x = (window.width - size.width) / 2, y = window.height - size.height - kAbove - kMargin;
    _canvas.panel(x - kMargin, y - kMargin / 2, {size.width + 2 * kMargin, size.height + kMargin}, kMargin,
                  faded(kGround, strength));
    _canvas.text(x, y, _word, height, faded(kBright, strength));
}

void Overlay::drawNumbers() {
    constexpr float kMargin = 8, kPlace = 12;
    const CanvasSize size = _canvas.textSize(_numbers, kNumbersHeight);
    _canvas.panel(kPlace, kPlace, {size.width + 2 * kMargin, size.height + kMargin}, kMargin, kGround);
    _canvas.text(kPlace + kMargin, kPlace + kMargin / 2, _numbers, kNumbersHeight, kSoft);
}

void Overlay::drawHelp() {
    const std::vector<HelpLine> lines = helpLines();
    const CanvasSize window = _canvas.size();
    HelpLayout layout;
    HelpColumns columns = measure(_canvas, lines, layout.text);
    CanvasSize size = helpSize(layout, columns, lines.size());
    const float fit = std::min(0.96f * window.width / size.width, 0.96f * window.height / size.height);
    if (fit < 1) {
        layout.scaleBy(fit);
        columns = measure(_canvas, lines, layout.text);
        size = helpSize(layout, columns, lines.size());
    }
    const float left = (window.width - size.width) / 2, top = (window.height - size.height) / 2;
    _canvas.panel(left, top, size, layout.margin / 2, kGround);
    float y = top + layout.margin;
    _canvas.text(left + layout.margin, y, "Mouse and keys", layout.title, kBright);
    y += 2 * layout.title;
    for (const HelpLine& line : lines) {
        _canvas.text(left + layout.margin, y, std::string(line.keys), layout.text, kAccent);
        _canvas.text(left + layout.margin + columns.keys + layout.gap, y, std::string(line.meaning),
                     layout.text, kSoft);
        y += layout.row;
    }
}

void Overlay::drawBand(const SurfaceScale& scale, const Gestures::Band& band) {
    const auto xUnit = static_cast<float>(scale.xPointer), yUnit = static_cast<float>(scale.yPointer);
    const float left = std::min(band.from.x, band.to.x) / xUnit,
                top = std::min(band.from.y, band.to.y) / yUnit;
    const CanvasSize size{std::max(band.from.x, band.to.x) / xUnit - left,
                          std::max(band.from.y, band.to.y) / yUnit - top};
    _canvas.panel(left, top, size, 0, faded(kAccent, 0.18f));
    _canvas.frame(left, top, size, kAccent);
}

}  // namespace fovix_host
