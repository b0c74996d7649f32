// A file that appears under its name when it is whole, and not at all before: it is written without a name in
// the folder where it will be, so that nothing is left of it when the program is killed or the disk is full.
// A file that had the name stays as it was until then.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace fovix_host {

class OutputFile {
  public:
    // How it exists before it is whole; a file system without unnamed files gets a hidden one in any case.
    enum class Draft { kUnnamed, kHidden };

    // What exists and is no regular file, as a device, is written directly. All functions throw
    // std::runtime_error with a sentence that names the file.
    explicit OutputFile(const std::string& name, Draft draft = Draft::kUnnamed);
    ~OutputFile();
    OutputFile(const OutputFile&) = delete;
    OutputFile& operator=(const OutputFile&) = delete;

    void write(const void* bytes, std::size_t count);
    // Whether one can go back in it, as not in a pipe.
    bool isSeekable() const;
    // Where to write next, as lseek() takes it; the new place from the start.
    std::int64_t seek(std::int64_t offset, int whence);
    // Gives it its name.
    void keep();

    const std::string& name() const { return _name; }

  private:
    void openDraft(Draft draft);
    bool openUnnamed();
    void openHidden();
    void link();
    std::string freeName() const;
    [[noreturn]] void fail() const;

    std::string _name;    // as given, for messages
    std::string _target;  // where links lead
    std::string _folder;  // of the target, with its slash
    std::string _hidden;  // the name that the draft has; empty without
    int _descriptor = -1;
    bool _isDraft = false;
};

}  // namespace fovix_host
