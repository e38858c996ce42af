// SPDX-License-Identifier: MIT
#include "platform/linux/process/linux_agent_instances.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <sstream>
#include <string>
#include <thread>

#include "platform/linux/base/runtime_folder.h"
#include "platform/linux/process/pidfd.h"
#include "platform/linux/process/process_identity.h"
#include "platform/live.h"
#include "platform/log.h"

namespace glintboard {
namespace {

class LinuxAgentInstance : public AgentInstance {
 public:
  LinuxAgentInstance(pid_t id, FileDescriptor process) : id_(id), process_(std::move(process)) {}

  int processIdentifier() const override { return id_; }
  bool terminate() override { return signal(SIGTERM); }
  bool forceTerminate() override { return signal(SIGKILL); }
  bool isTerminated() override {
    pollfd process{process_.get(), POLLIN, 0};
    return ::poll(&process, 1, 0) == 1;
  }

 private:
  bool signal(int number) { return ::pidfd_send_signal(process_.get(), number, nullptr, 0) == 0; }

  pid_t id_;
  FileDescriptor process_;
};

void lock(const FileDescriptor& file) {
  constexpr auto pause = std::chrono::milliseconds(10);
  for (int attempt = 0; attempt < 100; ++attempt) {
    if (::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
      return;
    }
    std::this_thread::sleep_for(pause);
  }
  log::warning("cannot lock the list of running agents");
}

std::vector<ProcessIdentity> readLines(const FileDescriptor& file) {
  std::string content(65536, '\0');  // enough for a thousand instances
  const ssize_t length = ::pread(file.get(), content.data(), content.size(), 0);
  content.resize(static_cast<std::size_t>(std::max<ssize_t>(length, 0)));
  std::vector<ProcessIdentity> identities;
  std::istringstream lines(content);
  for (std::string line; std::getline(lines, line);) {
    std::istringstream fields(line);
    ProcessIdentity identity;
    if (fields >> identity.id >> identity.startTime && identity.id > 0) {
      identities.push_back(identity);
    }
  }
  return identities;
}

void writeLines(const FileDescriptor& file, const std::vector<ProcessIdentity>& identities) {
  std::ostringstream lines;
  for (const ProcessIdentity& identity : identities) {
    lines << identity.id << ' ' << identity.startTime << '\n';
  }
  const std::string_view content = lines.view();
  if (::pwrite(file.get(), content.data(), content.size(), 0) !=
          static_cast<ssize_t>(content.size()) ||
      ::ftruncate(file.get(), static_cast<off_t>(content.size())) != 0) {
    log::warning("cannot write the list of running agents");
  }
}

}  // namespace

std::optional<std::vector<std::unique_ptr<AgentInstance>>> LinuxAgentInstances::claim() {
  std::vector<std::unique_ptr<AgentInstance>> older;
  const auto self = identifyProcess(::getpid());
  if (!folder_ || !self) {
    return older;
  }
  const FileDescriptor file(::open((*folder_ / "glintboard-agents").c_str(),
                                   O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK, 0600));
  if (!file) {
    log::warning("cannot open the list of running agents");
    return older;
  }
  // The sticky bit exempts the file from the clean-up of runtime folders.
  ::fchmod(file.get(), 0600 | S_ISVTX);
  lock(file);
  std::vector<ProcessIdentity> running{*self};
  std::vector<ProcessIdentity> listed = readLines(file);
  std::sort(listed.begin(), listed.end());
  listed.erase(std::unique(listed.begin(), listed.end()), listed.end());
  for (const ProcessIdentity& other : listed) {
    FileDescriptor process = openProcess(other);
    if (!process || other == *self) {
      continue;
    }
    if (other > *self) {
      return std::nullopt;
    }
    running.push_back(other);
    older.push_back(std::make_unique<LinuxAgentInstance>(other.id, std::move(process)));
  }
  writeLines(file, running);
  return older;
}

std::unique_ptr<AgentInstances> liveAgentInstances() {
  return std::make_unique<LinuxAgentInstances>(runtimeFolder());
}

}  // namespace glintboard
