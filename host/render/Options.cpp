#include "Options.h"

#include <Fovix.h>
#include <CLI/CLI.hpp>

#include <array>
#include <charconv>
#include <string_view>

#include "ViewTypes.h"

namespace fovix_host {
namespace {

// The whole text as a number, or nothing.
template <typename Number>
std::optional<Number> numberIn(std::string_view text, int base = 10) {
    Number number{};
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number, base);
    if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
    return number;
}

[[noreturn]] void refuse(std::string_view option, std::string_view value, std::string_view wanted) {
    throw UsageError(std::string(option) + " cannot be '" + std::string(value) + "'; it wants " +
                     std::string(wanted));
}

SampleScene::Camera parseCamera(const std::string& text) {
    if (text.empty() || text == "ceiling") return SampleScene::Camera::ceiling;
    if (text == "wall") return SampleScene::Camera::wall;
    refuse("--sample", text, "ceiling or wall");
}

int parseType(const std::string& text) {
    if (const auto code = codeOfViewType(text)) return *code;
    const auto number = numberIn<int>(text);
    if (!number || *number < 0) refuse("--type", text, "a number or one of " + viewTypeNames());
    return *number;
}

LensCircle parseLens(const std::string& text) {
    std::array<int, 5> values{};
    std::string_view rest = text;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const std::size_t comma = i + 1 < values.size() ? rest.find(',') : rest.size();
        const auto value = numberIn<int>(rest.substr(0, comma));
        if (comma == rest.npos || !value || *value < 1)
            refuse(
                "--lens", text,
                "five whole numbers above 0 with commas between: centre x, centre y and radius of the lens "
                "circle, width and height of the image they refer to");
        values[i] = *value;
        rest.remove_prefix(std::min(comma + 1, rest.size()));
    }
    return {values[0], values[1], values[2], values[3], values[4]};
}

void parseSize(const std::string& text, Options& options) {
    constexpr int most = 65535;
    const std::size_t cross = text.find('x');
    const auto width = numberIn<int>(std::string_view(text).substr(0, cross));
    const auto height =
        cross == text.npos ? std::nullopt : numberIn<int>(std::string_view(text).substr(cross + 1));
    if (!width || !height || *width < 1 || *height < 1 || *width > most || *height > most)
        refuse("--size", text, "WIDTHxHEIGHT in pixels, each from 1 to 65535, for example 1280x720");
    options.width = *width;
    options.height = *height;
}

int parseFrames(const std::string& text) {
    constexpr int most = 1000000;
    const auto frames = numberIn<int>(text);
    if (!frames || *frames < 1 || *frames > most) refuse("--frames", text, "a number from 1 to 1000000");
    return *frames;
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

void describe(CLI::App& app, Options& options) {
    const auto text = [&app](const char* names, const std::string& meaning, const char* placeholder,
                             auto take) {
        return app.add_option_function<std::string>(names, take, meaning)->type_name(placeholder);
    };
    app.add_option("INPUT", options.input, "a picture or video: PNG, JPEG, MP4, ...")->type_name("");
    text("--sample", "draw a car park instead, camera on ceiling or wall", "[=ceiling|wall]",
         [&](const std::string& value) { options.sample = parseCamera(value); })
        ->expected(0, 1);
    text("-o,--output", "file to write; numbered for several [fovix.png]", "FILE.png",
         [&](const std::string& value) { options.output = parseOutput(value); });
    text("--type", viewTypeNames() + " or a number [original]", "TYPE",
         [&](const std::string& value) { options.type = parseType(value); });
    text("--lens", "lens circle and the image size it refers to", "CX,CY,RADIUS,W,H",
         [&](const std::string& value) { options.lens = parseLens(value); });
    text("--size", "size of the surface to draw on [1280x720]", "WxH",
         [&](const std::string& value) { parseSize(value, options); });
    text("--frames", "frames to draw, a video's pictures in turn [1]", "N",
         [&](const std::string& value) { options.frames = parseFrames(value); });
    text("--background", "colour around the picture [000000]", "RRGGBB",
         [&](const std::string& value) { options.background = parseBackground(value); });
    app.add_flag("--verbose", options.verbose, "show the library's diagnostics (standard error)")
        ->disable_flag_override();
}

[[noreturn]] void refuseCommandLine(const std::string& why) {
    throw UsageError(why + "; fovix-render --help lists the options");
}

}  // namespace

Options parseOptions(int argc, const char* const* argv) {
    Options options;
    CLI::App app("Draws corrected views of fisheye pictures and videos into PNG files.", "fovix-render");
    app.set_help_flag("-h,--help", "show this help");
    app.set_version_flag("--version", std::string("fovix-render with libfovix ") + Fovix_Version())
        ->description("show the version");
    app.get_formatter()->column_width(30);
    app.footer(
        "Examples:\n"
        "  fovix-render --sample -o hall.png\n"
        "  fovix-render in.mp4 --type korvel --lens 960,960,940,1920,1920 --frames 25");
    describe(app, options);
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
    if (options.sample && !options.input.empty())
        throw UsageError("--sample makes the input itself; give either '" + options.input + "' or --sample");
    if (!options.sample && options.input.empty())
        throw UsageError("no input; give a picture or video, or --sample");
    return options;
}

}  // namespace fovix_host
