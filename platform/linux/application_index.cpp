#include "platform/linux/application_index.h"

#include <sys/stat.h>

#include <map>
#include <set>

#include "platform/run_on.h"
#include "platform/spawn.h"

namespace glintboard {

namespace {

// Reads applications folders in order of precedence.
class Scanner {
 public:
  explicit Scanner(DirectoryWatcher& watcher) : watcher_(watcher) {}

  void readFolder(const std::filesystem::path& folder, const std::string& prefix = "") {
    watcher_.watch(folder);
    struct stat status{};
    // Symbolic links may lead back to a folder above.
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
  // The first folder that holds an id decides, even when its file cannot be used.
  void readEntry(const std::filesystem::path& path, const std::string& id) {
    if (!entries_.contains(id)) {
      entries_.emplace(id, readDesktopEntry(path, id));
    }
  }

  DirectoryWatcher& watcher_;
  std::set<std::pair<dev_t, ino_t>> seenFolders_;
  std::map<std::string, std::optional<DesktopEntry>> entries_;
};

}  // namespace

std::shared_ptr<ApplicationIndex> ApplicationIndex::open(Executors& executors,
                                                         const XdgFolders& folders) {
  std::shared_ptr<ApplicationIndex> index(new ApplicationIndex(executors, folders));
  index->scan();
  spawn(index->service_, follow(index), "installed applications");
  return index;
}

ApplicationIndex::ApplicationIndex(Executors& executors, const XdgFolders& folders)
    : service_(executors.service()),
      workers_(executors.workers()),
      folders_(folders),
      watcher_(service_) {}

std::shared_ptr<const InstalledApplications> ApplicationIndex::current() const {
  const std::scoped_lock lock(mutex_);
  return current_;
}

void ApplicationIndex::stop() {
  asio::post(service_, [self = shared_from_this()] { self->watcher_.stop(); });
}

Awaitable<> ApplicationIndex::follow(std::shared_ptr<ApplicationIndex> self) {
  while (!self->watcher_.stopped()) {
    const bool changed = co_await self->watcher_.changed();
    if (!changed) {
      co_return;
    }
    // An installation changes many files at once.
    co_await sleepFor(std::chrono::milliseconds(100));
    self->watcher_.drain();
    auto scanned = runOn(self->workers_, [self] { self->scan(); });
    co_await std::move(scanned);
  }
}

void ApplicationIndex::scan() {
  Scanner scanner(watcher_);
  for (const auto& folder : folders_.dataFolders("applications")) {
    scanner.readFolder(folder);
  }
  watcher_.forgetOthers();
  auto entries = scanner.installed();
  auto known = knownApplications(entries, folders_);
  auto scanned =
      std::make_shared<const InstalledApplications>(std::move(entries), std::move(known));
  const std::scoped_lock lock(mutex_);
  current_.swap(scanned);
}

}  // namespace glintboard
