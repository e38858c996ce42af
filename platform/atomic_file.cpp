// SPDX-License-Identifier: MIT
#include "platform/atomic_file.h"

#include <fcntl.h>
#include <stdlib.h>
#include <sys/stat.h>

#include <algorithm>
#include <cerrno>
#include <system_error>

#include "platform/file_descriptor.h"

namespace glintboard {
namespace {

constexpr std::size_t firstBuffer = 16 << 10;

[[noreturn]] void throwErrno(const std::filesystem::path& path) {
  throw std::system_error(errno, std::generic_category(), path.string());
}

void writeAll(int descriptor, std::string_view data, const std::filesystem::path& path) {
  while (!data.empty()) {
    const ssize_t written = ::write(descriptor, data.data(), data.size());
    if (written < 0) {
      if (errno == EINTR) {
        continue;
      }
      throwErrno(path);
    }
    data.remove_prefix(static_cast<std::size_t>(written));
  }
}

// A temporary file beside its target, removed unless it has replaced the target.
class TemporaryFile {
 public:
  // `target` must outlive this. Errors name it.
  explicit TemporaryFile(const std::filesystem::path& target)
      : target_(target), name_(target.string() + ".XXXXXX") {
    descriptor_ = FileDescriptor(::mkostemp(name_.data(), O_CLOEXEC));
    if (!descriptor_) {
      throwErrno(target);
    }
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;
  ~TemporaryFile() {
    if (!name_.empty()) {
      ::unlink(name_.c_str());
    }
  }

  void write(std::string_view data, mode_t mode) {
    writeAll(descriptor_.get(), data, target_);
    if (::fchmod(descriptor_.get(), mode) != 0 || ::fsync(descriptor_.get()) != 0 ||
        !descriptor_.close()) {
      throwErrno(target_);
    }
  }

  void replaceTarget() {
    if (::rename(name_.c_str(), target_.c_str()) != 0) {
      throwErrno(target_);
    }
    name_.clear();
  }

 private:
  const std::filesystem::path& target_;
  std::string name_;
  FileDescriptor descriptor_;
};

}  // namespace

void writeAtomically(const std::filesystem::path& path, std::string_view data, mode_t mode) {
  TemporaryFile temporary(path);
  temporary.write(data, mode);
  temporary.replaceTarget();
  // The new file is already in place. Syncing the folder makes the rename survive a crash.
  const FileDescriptor folder(
      ::open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (folder) {
    ::fsync(folder.get());
  }
}

std::string_view readWholeFile(const std::filesystem::path& path, std::string& buffer,
                               const std::function<bool(std::string_view)>& isWhole) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  if (!file) {
    throwErrno(path);
  }
  std::size_t length = 0;
  for (;;) {
    if (length == buffer.size()) {
      buffer.resize(std::max(2 * length, firstBuffer));
    }
    const ssize_t count = ::read(file.get(), buffer.data() + length, buffer.size() - length);
    if (count < 0) {
      if (errno == EINTR) {
        continue;
      }
      throwErrno(path);
    }
    length += static_cast<std::size_t>(count);
    const auto content = std::string_view(buffer).substr(0, length);
    // A full buffer rarely ends at the end of the file.
    if (count == 0 || (isWhole && length < buffer.size() && isWhole(content))) {
      return content;
    }
  }
}

std::string readWholeFile(const std::filesystem::path& path) {
  std::string content;
  content.resize(readWholeFile(path, content).size());
  return content;
}

}  // namespace glintboard
