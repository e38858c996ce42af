// SPDX-License-Identifier: MIT
// Matches processes with applications.
#pragma once

#include <memory>
#include <mutex>
#include <set>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/linux/applications/application_index.h"
#include "platform/linux/process/process_list.h"

namespace glintboard {

// Knows the programs of all installed applications. Immutable: any thread may read it. The
// constructor searches the disk for each program: call it on a worker.
class ApplicationMatcher {
 public:
  explicit ApplicationMatcher(std::shared_ptr<const InstalledApplications> installed);

  const std::shared_ptr<const InstalledApplications>& installed() const { return installed_; }

  // The bundle identifiers of the applications that `process` belongs to: the one whose systemd
  // unit contains it, and those whose program it runs. A program that runs other programs (a shell,
  // Python, …) or that several applications share matches only applications whose fixed arguments
  // are on its command line, and of these the ones with the most such arguments.
  std::set<std::string> applicationsOf(const Process& process) const;

 private:
  struct Program {
    std::string bundleId;
    std::vector<std::string> arguments;
  };

  void addProgram(const DesktopEntry& entry);
  // These add the applications that match to `found`.
  void matchUnits(const std::string& controlGroups, std::set<std::string>& found) const;
  void matchProgram(const std::string& file, const std::vector<std::string>& arguments,
                    std::set<std::string>& found) const;

  std::shared_ptr<const InstalledApplications> installed_;
  std::unordered_map<std::string, std::vector<Program>> programs_;
};

// Caches the matcher until the installed applications change. Thread-safe.
class CurrentApplicationMatcher {
 public:
  explicit CurrentApplicationMatcher(std::shared_ptr<const ApplicationIndex> index)
      : index_(std::move(index)) {}

  // The matcher of the installed applications. May build it: call it on a worker.
  std::shared_ptr<const ApplicationMatcher> get();

 private:
  const std::shared_ptr<const ApplicationIndex> index_;
  std::mutex mutex_;
  std::shared_ptr<const ApplicationMatcher> matcher_;
};

}  // namespace glintboard
