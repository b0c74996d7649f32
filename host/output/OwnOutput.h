// Keeps a program's own standard output apart from libfovix's diagnostics, which the library prints to
// standard output too: from now on those go to standard error or nowhere.
#pragma once

#include <cstddef>
#include <string>

namespace fovix_host {

enum class Diagnostics { kHidden, kToStandardError };
enum class Lines { kToStandardOutput, kToStandardError };

// Thrown when whoever reads standard output has closed it: not worth a word to the user. Needs SIGPIPE
// ignored.
struct ReaderGone {};

class OwnOutput {
  public:
    // Redirects descriptor 1 for the rest of the process.
    explicit OwnOutput(Diagnostics diagnostics, Lines lines = Lines::kToStandardOutput);
    ~OwnOutput();
    OwnOutput(const OwnOutput&) = delete;
    OwnOutput& operator=(const OwnOutput&) = delete;

    // Both write where standard output was directed at the start, lines only where they go there; they throw
    // std::runtime_error or ReaderGone when that fails.
    void line(const std::string& text);
    void bytes(const void* bytes, std::size_t count);
    bool isTerminal() const;

  private:
    [[noreturn]] static void fail();
    void write(const void* bytes, std::size_t count);

    int _own = -1;  // descriptor of what standard output was at the start; -1 where it was closed
    Lines _lines;
};

}  // namespace fovix_host
