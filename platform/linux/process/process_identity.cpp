// SPDX-License-Identifier: MIT
#include "platform/linux/process/process_identity.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <array>
#include <sstream>
#include <string>

#include "platform/linux/process/pidfd.h"

namespace glintboard {

std::optional<ProcessIdentity> identifyProcess(pid_t id) {
  const std::string name = "/proc/" + std::to_string(id) + "/stat";
  const FileDescriptor file(::open(name.c_str(), O_RDONLY | O_CLOEXEC));
  struct stat owner{};
  std::array<char, 1024> line;
  if (!file || ::fstat(file.get(), &owner) != 0 || owner.st_uid != ::geteuid()) {
    return std::nullopt;
  }
  const ssize_t length = ::read(file.get(), line.data(), line.size());
  const std::string_view text(line.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
  // The program's name in parentheses may contain any character, including parentheses.
  const std::size_t end = text.rfind(')');
  if (end == std::string_view::npos) {
    return std::nullopt;
  }
  std::istringstream fields{std::string(text.substr(end + 1))};
  std::string state;
  std::string skipped;
  ProcessIdentity identity{0, id};
  fields >> state;
  for (int field = 4; field < 22; ++field) {
    fields >> skipped;
  }
  fields >> identity.startTime;
  if (!fields || state == "Z" || state == "X") {
    return std::nullopt;
  }
  return identity;
}

FileDescriptor openProcess(const ProcessIdentity& identity) {
  FileDescriptor process(::pidfd_open(identity.id, 0));
  // Compared after opening the descriptor, because the id may have been reused before.
  return process && identifyProcess(identity.id) == identity ? std::move(process)
                                                             : FileDescriptor();
}

}  // namespace glintboard
