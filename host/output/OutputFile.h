// A file that is published atomically when complete. Until then it is an unnamed file in the target folder,
// so nothing is left behind if the program is killed or the disk is full, and an existing file stays as it
// was.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace fovix_host {

class OutputFile {
  public:
    // The form of the incomplete file; file systems without unnamed files always use a hidden one.
    enum class Draft { kUnnamed, kHidden };

    // A target that exists and is not a regular file, such as a device, is written directly. All functions
    // throw std::runtime_error with a message that names the file.
    explicit OutputFile(const std::string& name, Draft draft = Draft::kUnnamed);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(const void* bytes, std::size_t count);
    bool isSeekable() const;
    // Like lseek(): returns the new position.
    std::int64_t seek(std::int64_t offset, int whence);
    // Publishes the file under its name.
    void publish();

    const std::string& name() const { return _name; }

  private:
    void openDraft(Draft draft);
    bool openUnnamed();
    void openHidden();
    void link();
    std::string freeName() const;
    [[noreturn]] void fail() const;

    std::string _name;    // as given, for messages
    std::string _target;  // resolved path
    std::string _folder;  // directory of the target, with trailing slash
    std::string _hidden;  // name of the draft; empty if it has none
    int _descriptor = -1;
    bool _isDraft = false;
};

}  // namespace fovix_host
