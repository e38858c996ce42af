// SPDX-License-Identifier: MIT
#include "platform/linux/process/process_list.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <filesystem>
#include <sstream>

#include "platform/file_descriptor.h"

namespace glintboard {

namespace {

namespace fs = std::filesystem;

// The first 64 KiB of a file below /proc, which has no size; empty if it cannot be read.
std::string contentOf(const fs::path& path) {
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_CLOEXEC));
  std::string content;
  std::array<char, 4096> part{};
  constexpr std::size_t enough = 65536;
  while (file && content.size() < enough) {
    const auto length = ::read(file.get(), part.data(), part.size());
    if (length <= 0) {
      break;
    }
    content.append(part.data(), static_cast<std::size_t>(length));
  }
  return content;
}

// The session of a running process, or none.
std::optional<pid_t> sessionOf(const fs::path& folder) {
  const std::string status = contentOf(folder / "stat");
  // The program's name in parentheses may contain any character.
  const auto nameEnd = status.rfind(')');
  if (nameEnd == std::string::npos) {
    return std::nullopt;
  }
  std::istringstream fields(status.substr(nameEnd + 1));
  char state = 0;
  pid_t parent = 0;
  pid_t group = 0;
  pid_t session = 0;
  fields >> state >> parent >> group >> session;
  if (!fields || state == 'Z' || state == 'X') {
    return std::nullopt;
  }
  return session;
}

std::string executableOf(const fs::path& folder) {
  std::error_code error;
  std::string target = fs::read_symlink(folder / "exe", error).string();
  // An update may have deleted the file of the running program.
  constexpr std::string_view deleted = " (deleted)";
  if (target.ends_with(deleted)) {
    target.resize(target.size() - deleted.size());
  }
  return target;
}

std::vector<std::string> argumentsOf(const fs::path& folder) {
  std::istringstream line(contentOf(folder / "cmdline"));
  std::vector<std::string> arguments;
  for (std::string argument; std::getline(line, argument, '\0');) {
    arguments.push_back(argument);
  }
  return arguments;
}

// The process with a folder below /proc; none when it has ended or has no program.
std::optional<Process> processIn(pid_t id, const fs::path& folder) {
  Process process;
  process.id = id;
  process.executable = executableOf(folder);
  const auto session = process.executable.empty() ? std::nullopt : sessionOf(folder);
  if (!session) {
    return std::nullopt;
  }
  process.session = *session;
  process.arguments = argumentsOf(folder);
  process.controlGroups = contentOf(folder / "cgroup");
  return process;
}

// Calls `visit(id, folder)` for every process of this user until it returns false.
template <class Visit>
void visitOwn(Visit visit) {
  const uid_t user = ::geteuid();
  std::error_code error;
  for (fs::directory_iterator entry("/proc", error), end; !error && entry != end;
       entry.increment(error)) {
    const std::string name = entry->path().filename().string();
    pid_t id = 0;
    struct stat status{};
    const auto parsed = std::from_chars(name.data(), name.data() + name.size(), id);
    if (parsed.ptr != name.data() + name.size() || ::stat(entry->path().c_str(), &status) != 0 ||
        status.st_uid != user) {
      continue;
    }
    if (!visit(id, entry->path())) {
      return;
    }
  }
}

}  // namespace

std::optional<Process> ownProcess(pid_t id) {
  const auto folder = fs::path("/proc") / std::to_string(id);
  struct stat status{};
  if (::stat(folder.c_str(), &status) != 0 || status.st_uid != ::geteuid()) {
    return std::nullopt;
  }
  return processIn(id, folder);
}

std::vector<Process> ownProcesses() {
  std::vector<Process> processes;
  visitOwn([&](pid_t id, const fs::path& folder) {
    if (auto process = processIn(id, folder)) {
      processes.push_back(std::move(*process));
    }
    return true;
  });
  return processes;
}

std::optional<pid_t> processOfSession(pid_t session) {
  std::optional<pid_t> found;
  visitOwn([&](pid_t id, const fs::path& folder) {
    if (sessionOf(folder) == session) {
      found = id;
    }
    return !found;
  });
  return found;
}

}  // namespace glintboard
