#include "CallStorm.h"

#include <cmath>
#include <limits>
#include <sstream>

namespace fovix_test {

CallStorm::CallStorm(std::initializer_list<const char*> lines, unsigned seed, double extremes)
    : _dice(seed), _extremes(extremes) {
    for (const char* text : lines) {
        std::istringstream words(text);
        Line& line = _lines.emplace_back();
        words >> line.verb;
        for (std::string word; words >> word;) {
            const std::size_t dots = word.find("..");
            const double low = std::stod(word);
            line.ranges.emplace_back(low, dots == std::string::npos ? low : std::stod(word.substr(dots + 2)));
        }
    }
}

double CallStorm::numberOf(char kind, const std::pair<double, double>& range) {
    using Int = std::numeric_limits<int>;
    const double most = kind == 'd' ? 1e308 : std::numeric_limits<float>::max();
    const double reals[] = {most, -most, 0.0, 1e-45, -1.0},
                 wholes[] = {Int::max(), Int::min(), 0.0, -1.0, 1.0};
    if (_dice.real(0, 1) < _extremes) return (kind == 'i' ? wholes : reals)[_dice.from(0, 4)];
    const double number = _dice.real(range.first, range.second + (kind == 'i'));
    return kind == 'i' ? std::floor(number) : number;
}

void CallStorm::callOnce(VRHANDLE handle) {
    const Line& line = _lines[static_cast<std::size_t>(_dice.from(0, static_cast<int>(_lines.size()) - 1))];
    ScriptCall call = {line.verb, Numbers(line.ranges.size())};
    const ApiCall& api = apiCallOf(call);
    for (std::size_t i = 0; i < line.ranges.size(); ++i)
        call.numbers[i] = numberOf(api.kinds[i], line.ranges[i]);
    Numbers results(_dice.from(0, 1) ? 6 : 0);
    api.make(handle, call.numbers, results, nullptr);
}

CallStorm settings(unsigned seed) {
    return CallStorm(
        {"type 0..3", "type 20..24", "shape -1..11", "mode -1..4", "mount -1..4", "lenses -1..4",
         "SetTwoLensesScreen -1..4", "SetDrawModeCartoon -1..4 -1..4 1 0..9", "background 0..16777215",
         "Multi_SetScreenNumber -1..7 -1..7", "Multi_SetLens 0..10", "Multi_SwitchLens 0..10",
         "SetRotationFor180VR -10..360", "CleanUp", "ResetPosition", "lens -1..100 -1..100 0..80 100 100"},
        seed);
}

CallStorm gestures(unsigned seed, double extremes) {
    return CallStorm({"down -20..180 -20..180",
                      "move -20..180 -20..180",
                      "up -20..180 -20..180",
                      "pinch -20..180 -20..180 -20..180 -20..180",
                      "scale -0.3..3",
                      "fling -800..7200 -800..7200",
                      "adjust",
                      "sense -0.4..3.6 -0.4..3.6",
                      "turn -20..180 -20..180 -20..180",
                      "cruise -5..5",
                      "stop",
                      "ptz -1..6 -20..180 -20..180 40 0 0",
                      "set -20..180 9 0.7 0.1..25",
                      "set180 -20..180 -20..180 0 1..20",
                      "rect 10 10 11..90 11..90 100 100",
                      "target 0..100 0..100 100 100",
                      "logic 1 10 3 1..10",
                      "GetPTZ",
                      "GetPTZFor180VR",
                      "GetRotateZoom_SubScreen -1..6"},
                     seed, extremes);
}

}  // namespace fovix_test
