// What calls print and return: the scripts in transcripts/, each call after "> ", what it prints, and after
// "=" what it returns and writes. To store what has changed, run FOVIX_UPDATE=1 build/PRESET/tests/gl/gl_test
// --gtest_filter='Transcripts.*', and look at what git shows.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "ApiCalls.h"
#include "HeadlessGl.h"

namespace fovix_test {
namespace {

constexpr double kUnwritten = -777;

/// No two runs have the same.
void hideAddresses(std::string& text) {
    for (std::size_t at = text.find("0x"); at != text.npos; at = text.find("0x", at + 2)) {
        const std::size_t end = std::min(text.find_first_not_of("0123456789abcdef", at + 2), text.size());
        text.replace(at + 2, end - at - 2, "...");
    }
}

class Transcript {
  public:
    ~Transcript() { release(); }

    /// One call, what it printed, and its results.
    std::string of(const std::string& line) {
        const ScriptCall call = callsIn(line).at(0);
        std::ostringstream results;
        std::string printed = printedBy([&] {
            const auto verb = _verbs.find(call.verb);
            if (verb == _verbs.end())
                make(call, results);
            else
                verb->second(call.numbers);
        });
        hideAddresses(printed);
        if (!printed.empty() && printed.back() != '\n') printed += "\\\n";
        const std::string found = results.str();
        return "> " + line + "\n" + printed + (found.empty() ? "" : "=" + found + "\n");
    }

  private:
    void make(const ScriptCall& call, std::ostringstream& results) {
        const ApiCall& api = apiCallOf(call);
        Numbers written(4, kUnwritten);
        const double returned = api.make(_handle, call.numbers, written, _data);
        if (api.returns) results << ' ' << returned;
        for (std::size_t i = 0,
                         n = static_cast<std::size_t>(std::count(api.kinds.begin(), api.kinds.end(), 'r'));
             i < n; ++i) {
            if (written[i] == kUnwritten)
                results << " -";
            else
                results << ' ' << written[i];
        }
    }

    void create(void (*creation)(VRHANDLE*)) {
        release();
        creation(&_handle);
        _isLive = true;
    }
    void release() {
        if (_isLive) Fovix_Release(_handle);
        _isLive = false;
    }

    void printPixel(const Numbers& place) const {
        const Rgba colour = _gl.readPixels().at(static_cast<int>(place.at(0)), static_cast<int>(place.at(1)));
        std::printf("= %d %d %d\n", colour[0], colour[1], colour[2]);
    }

    const HeadlessGl _gl{80, 60};
    VRHANDLE _handle = nullptr;
    bool _isLive = false;  ///< else a call meets a handle that was released, or none
    Bytes _bytes = Bytes(40000);
    const unsigned char* _data = _bytes.data();
    const Verbs _verbs = {
        {"create", [&](const Numbers&) { create(Fovix_Create); }},
        {"create-without-touch", [&](const Numbers&) { create(Fovix_CreateNoTouchEvent); }},
        {"release", [&](const Numbers&) { release(); }},
        {"bytes",
         [&](const Numbers& n) {
             _bytes.assign(40000, static_cast<std::uint8_t>(n.at(0))), _data = _bytes.data();
         }},
        {"no-bytes", [&](const Numbers&) { _data = nullptr; }},
        {"draw",
         [&](const Numbers& n) {
             for (int frame = 0; frame < n.at(0); ++frame) Fovix_Drawself(_handle);
         }},
        {"pixel", [&](const Numbers& n) { printPixel(n); }},
    };
};

TEST(Transcripts, AreAsStored) {
    int count = 0;
    for (const auto& file : std::filesystem::directory_iterator(FOVIX_TRANSCRIPTS)) {
        Transcript transcript;
        std::ifstream in(file.path());
        std::string stored, actual;
        for (std::string line; std::getline(in, line); stored += line + "\n") {
            if (line.starts_with("> ")) actual += transcript.of(line.substr(2)), ++count;
            if (line.starts_with("#")) actual += line + "\n";
        }
        if (std::getenv("FOVIX_UPDATE"))
            std::ofstream(file.path()) << actual;
        else
            EXPECT_EQ(stored, actual) << file.path();
    }
    EXPECT_GT(count, 300);
}

}  // namespace
}  // namespace fovix_test
