// SPDX-License-Identifier: MIT
// Tells which applications a process belongs to.
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

// Knows the programs of all installed applications. Building it looks for each on the disk: do
// that on a worker. Afterwards it does not change.
class ApplicationMatcher {
 public:
  explicit ApplicationMatcher(std::shared_ptr<const InstalledApplications> installed);

  const std::shared_ptr<const InstalledApplications>& installed() const { return installed_; }

  // The bundle identifiers of the applications that `process` counts for: the one whose systemd
  // unit it lives in, and the one whose program it runs. A program that runs other programs
  // (a shell, Python, …) or that several applications start counts for those alone whose fixed
  // arguments it was given, and of these for the ones that have most.
  std::set<std::string> applicationsOf(const Process& process) const;

 private:
  struct Program {
    std::string bundleId;
    std::vector<std::string> arguments;
  };

  void addProgram(const DesktopEntry& entry);
  void matchUnits(const std::string& controlGroups, std::set<std::string>& found) const;
  void matchProgram(const std::string& file, const std::vector<std::string>& arguments,
                    std::set<std::string>& found) const;

  std::shared_ptr<const InstalledApplications> installed_;
  std::unordered_map<std::string, std::vector<Program>> programs_;
};

// The matcher of what is installed now, built when that has changed.
class CurrentApplicationMatcher {
 public:
  explicit CurrentApplicationMatcher(std::shared_ptr<const ApplicationIndex> index)
      : index_(std::move(index)) {}

  // On a worker.
  std::shared_ptr<const ApplicationMatcher> get();

 private:
  const std::shared_ptr<const ApplicationIndex> index_;
  std::mutex mutex_;
  std::shared_ptr<const ApplicationMatcher> matcher_;
};

}  // namespace glintboard
