#include "Options.h"

#include <Fovix.h>
#include <CLI/CLI.hpp>

#include <algorithm>
#include <memory>
#include <string_view>

#include "OptionValues.h"
#include "ScriptVerbs.h"
#include "ViewTypes.h"

namespace fovix_host {
namespace {

SampleScene::Camera parseCamera(const std::string& text) {
    if (text.empty() || text == "ceiling") return SampleScene::Camera::ceiling;
    if (text == "wall") return SampleScene::Camera::wall;
    refuse("--sample", text, "ceiling or wall");
}

LensCircle parseLens(const std::string& text) {
    const auto n = numbersIn<int>(text);
    if (!n || n->size() != 5 || *std::min_element(n->begin(), n->end()) < 1)
        refuse("--lens", text,
               "five whole numbers above 0 with commas between: centre x, centre y and radius of the lens "
               "circle, width and height of the image they refer to");
    return {n->at(0), n->at(1), n->at(2), n->at(3), n->at(4)};
}

void parseSize(const std::string& text, Options& options) {
    constexpr int most = 65535;
    const auto size = numbersIn<int>(text, 'x');
    if (!size || size->size() != 2 || *std::min_element(size->begin(), size->end()) < 1 ||
        *std::max_element(size->begin(), size->end()) > most)
        refuse("--size", text, "WIDTHxHEIGHT in pixels, each from 1 to 65535, for example 1280x720");
    options.width = size->front();
    options.height = size->back();
}

int parseFrames(const std::string& text) {
    constexpr int most = 1000000;
    const auto frames = numberIn<int>(text);
    if (!frames || *frames < 1 || *frames > most) refuse("--frames", text, "a number from 1 to 1000000");
    return *frames;
}

int parseEvery(const std::string& text) {
    if (text == "last") return 0;
    const auto every = numberIn<int>(text);
    if (!every || *every < 1) refuse("--every", text, "a number from 1 on, or last");
    return *every;
}

unsigned int parseBackground(const std::string& text) {
    const auto colour = numberIn<unsigned int>(text, 16);
    if (!colour || text.size() != 6)
        refuse("--background", text, "six hexadecimal digits RRGGBB, for example 202830");
    return *colour;
}

std::string parseOutput(const std::string& text) {
    constexpr std::string_view ending = ".png";
    if (text.size() <= ending.size() || !text.ends_with(ending))
        refuse("--output", text, "a name that ends in .png");
    return text;
}

template <typename Take>
CLI::Option* addText(CLI::App& app, const char* names, const char* placeholder, const char* meaning,
                     Take take) {
    return app.add_option_function<std::string>(names, take, meaning)->type_name(placeholder);
}

void describeInput(CLI::App& app, Options& options) {
    app.add_option("INPUT", options.inputs)->type_name("");
    addText(app, "--sample", "[=ceiling|wall]", "draw a car park instead, seen from there",
            [&](const std::string& value) {
                options.sample = parseCamera(value);
                options.samplesDiffer = value.empty();
            })
        ->expected(0, 1);
    addText(app, "--lens", "CX,CY,RADIUS,W,H", "lens circle and the image size it refers to",
            [&](const std::string& value) { options.lens = parseLens(value); });
}

void describeView(CLI::App& app, ViewTexts& texts) {
    const auto one = [&app](const char* name, const char* placeholder, const char* meaning,
                            std::string& text) {
        app.add_option(name, text, meaning)->type_name(placeholder)->check([](const std::string& value) {
            return std::string(value.empty() ? "wants a value" : "");
        });
    };
    const auto repeated = [&app](const char* name, const char* placeholder, const char* meaning,
                                 std::vector<std::string>& list) {
        app.add_option(name, list, meaning)->type_name(placeholder)->allow_extra_args(false);
    };
    one("--type", "TYPE", "360, 180, original, korvel, grid, ... [original]", texts.type);
    one("--mount", "MOUNT", "360: ceiling, wall, wall-inverted, floor", texts.mount);
    one("--shape", "SHAPE", "360, 180: layout, such as four-screens", texts.shape);
    one("--draw-mode", "MODE", "180: projection; pip: plain or inset", texts.drawMode);
    one("--two-lenses", "MODE[,SCREEN]", "by-zoom, both, upper, lower", texts.twoLenses);
    one("--logic-zoom", "MIN,MAX,DIV,Z", "two lenses: limits, threshold and zoom", texts.logicZoom);
    repeated("--ptz", "VIEW", "360: SCREEN:PAN,TILT,ZOOM[,ROLL]; repeatable", texts.ptz);
    repeated("--rotate-zoom", "VIEW", "other types: SCREEN:X,Y,Z,ZOOM; repeatable", texts.rotateZoom);
    repeated("--select", "X,Y", "360: tap this pixel of the surface; repeatable", texts.select);
    one("--grid", "RxC", "rows and columns of the grid [as few as do]", texts.grid);
    one("--show-lens", "N", "lenses: the input to show, from 0 on [0]", texts.showLens);
}

void describeOutput(CLI::App& app, Options& options) {
    addText(app, "-o,--output", "FILE.png", "numbered where several are written [fovix.png]",
            [&](const std::string& value) { options.output = parseOutput(value); });
    addText(app, "--size", "WxH", "size of the surface to draw on [1280x720]",
            [&](const std::string& value) { parseSize(value, options); });
    addText(app, "--frames", "N", "draw N, animations too [1, when they have ended]",
            [&](const std::string& value) { options.frames = parseFrames(value); });
    addText(app, "--every", "N|last", "write every Nth frame, or only the last one [1]",
            [&](const std::string& value) { options.every = parseEvery(value); });
    addText(app, "--background", "RRGGBB", "colour around the picture [000000]",
            [&](const std::string& value) { options.background = parseBackground(value); });
    app.add_option("--script", options.script, "make the calls of a timeline while drawing")
        ->type_name("FILE");
    app.add_flag_callback(
        "--list", [] { throw TextWanted{namesToList()}; }, "list types, mounts, shapes and draw modes");
    app.add_flag_callback(
        "--list-verbs", [] { throw TextWanted{scriptVerbList()}; }, "explain scripts and list their verbs");
    app.add_flag("--verbose", options.verbose, "show the library's diagnostics (standard error)")
        ->disable_flag_override();
}

void checkInputs(const Options& options) {
    const auto& inputs = options.inputs;
    if (options.sample && !inputs.empty())
        throw UsageError("--sample makes the input itself; give either '" + inputs.front() + "' or --sample");
    if (!options.sample && inputs.empty() && options.script.empty())
        throw UsageError("no input; give a picture or video, or --sample");
    const ViewOptions& view = options.view;
    const int count = static_cast<int>(inputs.size());
    const int most = view.grid ? view.grid->rows * view.grid->columns : mostInputs;
    if (count > 1 && !view.takesSeveralInputs())
        throw UsageError("'" + inputs[1] + "' is one input too many for --type " + viewTypeName(view.type) +
                         "; grid and lenses take several");
    if (count > most)
        throw UsageError(std::to_string(count) + " inputs are too many; there is room for " +
                         std::to_string(most));
    if (count > 0 && view.lensShown.value_or(0) >= count)
        throw UsageError("--show-lens cannot be " + std::to_string(*view.lensShown) +
                         "; the inputs are 0 to " + std::to_string(count - 1));
    if (!options.script.empty() && view.setsViews())
        throw UsageError(
            "--ptz, --rotate-zoom and --logic-zoom do not last with --script; make these calls in the "
            "script");
}

// The inputs stand in the usage line already.
struct BriefFormatter : CLI::Formatter {
    std::string make_positionals(const CLI::App*) const override { return {}; }
};

[[noreturn]] void refuseCommandLine(const std::string& why) {
    throw UsageError(why + "; fovix-render --help lists the options");
}

}  // namespace

Options parseOptions(int argc, const char* const* argv) {
    Options options;
    ViewTexts texts;
    CLI::App app("Draws corrected views of fisheye pictures and videos (PNG, JPEG, MP4...) as PNG.",
                 "fovix-render");
    app.set_help_flag("-h,--help", "show this help");
    app.set_version_flag("--version", std::string("fovix-render with libfovix ") + Fovix_Version())
        ->description("show the version");
    app.formatter(std::make_shared<BriefFormatter>());
    app.get_formatter()->column_width(31);
    app.footer(
        "Examples:\n"
        "  fovix-render --sample -o hall.png\n"
        "  fovix-render in.mp4 --type 360 --shape strip --lens 960,960,940,1920,1920");
    describeInput(app, options);
    describeView(app, texts);
    describeOutput(app, options);
    try {
        app.parse(argc, argv);
    } catch (const CLI::CallForHelp&) {
        throw TextWanted{app.help()};
    } catch (const CLI::CallForVersion& version) {
        throw TextWanted{std::string(version.what()) + "\n"};
    } catch (const CLI::ExtrasError&) {
        refuseCommandLine("'" + app.remaining().front() + "' is not understood");
    } catch (const CLI::ArgumentMismatch& error) {
        const std::string what = error.what();
        refuseCommandLine(what.substr(0, what.find(':')) + " is given twice or lacks its value");
    } catch (const CLI::ParseError& error) {
        refuseCommandLine(error.what());
    }
    options.view = readViewOptions(texts);
    checkInputs(options);
    return options;
}

}  // namespace fovix_host
