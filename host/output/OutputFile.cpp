#include "output/OutputFile.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <random>
#include <stdexcept>
#include <system_error>

#include "output/WriteAll.h"

namespace fovix_host {
namespace {

constexpr mode_t kDefaultMode = 0666;  // reduced by the umask

std::string pathOf(int descriptor) {
    return "/proc/self/fd/" + std::to_string(descriptor);
}

}  // namespace

OutputFile::OutputFile(const std::string& name, Draft draft) : _name(name), _target(name) {
    std::error_code ignored;
    if (const auto target = std::filesystem::canonical(name, ignored); !ignored) _target = target.string();
    _folder = _target.substr(0, _target.rfind('/') + 1);
    struct stat there {};
    const bool exists = stat(_target.c_str(), &there) == 0;
    if (!exists && errno != ENOENT) fail();
    if (exists && !S_ISREG(there.st_mode)) {
        _descriptor = open(_target.c_str(), O_WRONLY | O_CLOEXEC);
        if (_descriptor < 0) fail();
        return;
    }
    if (exists && access(_target.c_str(), W_OK) != 0) fail();
    openDraft(draft);
    if (exists)
        fchmod(_descriptor, there.st_mode & ~mode_t{S_IFMT});  // may fail: some file systems lack modes
}

OutputFile::~OutputFile() {
    if (_descriptor >= 0) close(_descriptor);
    if (!_hidden.empty()) unlink(_hidden.c_str());
}

void OutputFile::fail() const {
    throw std::runtime_error("cannot write '" + _name + "': " + std::strerror(errno));
}

void OutputFile::openDraft(Draft draft) {
    _isDraft = true;
    if (draft == Draft::kHidden || !openUnnamed()) openHidden();
}

bool OutputFile::openUnnamed() {
    const char* folder = _folder.empty() ? "." : _folder.c_str();
    _descriptor = open(folder, O_TMPFILE | O_RDWR | O_CLOEXEC, kDefaultMode);
    // linkat() needs /proc to name the file later.
    if (_descriptor >= 0 && access(pathOf(_descriptor).c_str(), F_OK) == 0) return true;
    if (_descriptor >= 0) close(_descriptor);
    _descriptor = -1;
    return false;
}

void OutputFile::openHidden() {
    const std::string name = freeName();
    _descriptor = open(name.c_str(), O_CREAT | O_EXCL | O_RDWR | O_CLOEXEC, kDefaultMode);
    if (_descriptor < 0) fail();
    _hidden = name;
}

std::string OutputFile::freeName() const {
    std::random_device random;
    return _folder + ".fovix-" + std::to_string(random()) + "-" + std::to_string(random());
}

void OutputFile::write(const void* bytes, std::size_t count) {
    if (!writeAll(_descriptor, bytes, count)) fail();
}

bool OutputFile::isSeekable() const {
    return lseek(_descriptor, 0, SEEK_CUR) >= 0;
}

std::int64_t OutputFile::seek(std::int64_t offset, int whence) {
    const off_t position = lseek(_descriptor, offset, whence);
    if (position < 0) fail();
    return position;
}

// linkat() does not replace an existing file: link to a free name first, which publish() then renames.
void OutputFile::link() {
    const std::string draft = pathOf(_descriptor);
    const auto linkTo = [&](const std::string& name) {
        return linkat(AT_FDCWD, draft.c_str(), AT_FDCWD, name.c_str(), AT_SYMLINK_FOLLOW) == 0;
    };
    if (linkTo(_target)) return;
    const std::string name = freeName();
    if (errno != EEXIST || !linkTo(name)) fail();
    _hidden = name;
}

void OutputFile::publish() {
    if (_isDraft && _hidden.empty()) link();
    // Some file systems report a full disk only here.
    const int closed = close(_descriptor);
    _descriptor = -1;
    if (closed != 0) fail();
    if (_hidden.empty()) return;
    if (std::rename(_hidden.c_str(), _target.c_str()) != 0) fail();
    _hidden.clear();
}

}  // namespace fovix_host
