// SPDX-License-Identifier: MIT
#include "platform/linux/applications/application_scan.h"

#include <sys/stat.h>

#include <map>
#include <optional>
#include <set>

namespace glintboard {

namespace {

// Reads applications folders in order of precedence.
class Scanner {
 public:
  explicit Scanner(const FolderVisitor& visit) : visit_(visit) {}

  void readFolder(const std::filesystem::path& folder, const std::string& prefix = "") {
    visit_(folder);
    struct stat status{};
    // Symbolic links may form a cycle.
    if (::stat(folder.c_str(), &status) != 0 ||
        !seenFolders_.emplace(status.st_dev, status.st_ino).second) {
      return;
    }
    std::set<std::filesystem::path> subfolders;
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end;
         entry.increment(error)) {
      std::error_code ignored;
      if (entry->path().extension() == ".desktop") {
        readEntry(entry->path(), prefix + entry->path().stem().string());
      } else if (entry->is_directory(ignored)) {
        subfolders.insert(entry->path());
      }
    }
    for (const auto& subfolder : subfolders) {
      readFolder(subfolder, prefix + subfolder.filename().string() + "-");
    }
  }

  std::vector<DesktopEntry> installed() {
    std::vector<DesktopEntry> entries;
    for (auto& [id, entry] : entries_) {
      if (entry && !entry->hidden &&
          (entry->tryExec.empty() || !findProgram(entry->tryExec).empty())) {
        entries.push_back(std::move(*entry));
      }
    }
    return entries;
  }

 private:
  // The first file with an id wins, even if it cannot be used.
  void readEntry(const std::filesystem::path& path, const std::string& id) {
    if (!entries_.contains(id)) {
      entries_.emplace(id, readDesktopEntry(path, id));
    }
  }

  const FolderVisitor& visit_;
  std::set<std::pair<dev_t, ino_t>> seenFolders_;
  std::map<std::string, std::optional<DesktopEntry>> entries_;
};

}  // namespace

std::vector<DesktopEntry> scanApplications(const std::vector<std::filesystem::path>& folders,
                                           const FolderVisitor& visit) {
  Scanner scanner(visit);
  for (const auto& folder : folders) {
    scanner.readFolder(folder);
  }
  return scanner.installed();
}

}  // namespace glintboard
