// Separates a program's own standard output from the diagnostics that libfovix prints to standard output:
// these are redirected to standard error or discarded.
#pragma once

#include <cstddef>
#include <string>

namespace fovix_host {

enum class Diagnostics { kHidden, kToStandardError };
enum class Lines { kToStandardOutput, kToStandardError };

// Thrown when the reader of standard output has closed it; not an error for the user. Requires that SIGPIPE
// is ignored.
struct ReaderGone {};

class OwnOutput {
  public:
    // Redirects descriptor 1 for the rest of the process.
    explicit OwnOutput(Diagnostics diagnostics, Lines lines = Lines::kToStandardOutput);
    ~OwnOutput();
    OwnOutput(const OwnOutput&) = delete;
    OwnOutput& operator=(const OwnOutput&) = delete;

    // These write to the original standard output; lines go to standard error if the constructor was asked
    // for that. They throw std::runtime_error or ReaderGone.
    void line(const std::string& text);
    void bytes(const void* bytes, std::size_t count);
    bool isTerminal() const;

  private:
    [[noreturn]] static void fail();
    void write(const void* bytes, std::size_t count);

    int _own = -1;  // descriptor of the original standard output; -1 if it was closed
    Lines _lines;
};

}  // namespace fovix_host
