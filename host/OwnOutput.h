// Keeps a program's own standard output apart from libfovix's diagnostics, which the library prints to
// standard output too: from now on those go to standard error or nowhere.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace fovix_host {

enum class Diagnostics { hidden, toStandardError };

class OwnOutput {
  public:
    // Redirects descriptor 1 for the rest of the process.
    explicit OwnOutput(Diagnostics diagnostics);

    // Writes a line where standard output was directed at the start; throws std::runtime_error when
    // that fails.
    void line(const std::string& text);

  private:
    struct Closer {
        void operator()(std::FILE* file) const { std::fclose(file); }
    };
    std::unique_ptr<std::FILE, Closer> _file;
};

}  // namespace fovix_host
