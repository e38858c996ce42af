// SPDX-License-Identifier: MIT
#include "platform/linux/applications/application_matcher.h"

#include <algorithm>
#include <charconv>
#include <iterator>
#include <sstream>

namespace glintboard {

namespace {

namespace fs = std::filesystem;

// Whether a program runs other programs, so that its file does not identify an application.
bool runsOthers(const fs::path& program) {
  static const std::set<std::string, std::less<>> names = {
      "ash",    "bash",    "busybox",      "bwrap", "csh",    "dash",        "electron", "env",
      "fish",   "flatpak", "gapplication", "gio",   "gjs",    "gjs-console", "guile",    "java",
      "ksh",    "lua",     "mono",         "node",  "nodejs", "perl",        "php",      "pkexec",
      "python", "ruby",    "sh",           "snap",  "sudo",   "systemd-run", "tclsh",    "tcsh",
      "wine",   "wish",    "xdg-open",     "zsh"};
  // A version may follow the name: python3.11.
  const std::string name = program.filename().string();
  return names.contains(name) || names.contains(name.substr(0, name.find_first_of("0123456789")));
}

// The file with all symbolic links resolved, or empty.
std::string fileBehind(const fs::path& path) {
  std::error_code error;
  return fs::canonical(path, error).string();
}

// Whether `part` is a subsequence of `whole`.
bool containsInOrder(const std::vector<std::string>& whole, const std::vector<std::string>& part) {
  auto next = part.begin();
  for (auto each = whole.begin(); each != whole.end() && next != part.end(); ++each) {
    if (*each == *next) {
      ++next;
    }
  }
  return next == part.end();
}

// Resolves systemd's \xHH.
std::string unescaped(std::string_view name) {
  std::string plain;
  for (std::size_t i = 0; i < name.size(); ++i) {
    unsigned char byte = 0;
    if (name.substr(i, 2) == "\\x" && i + 4 <= name.size() &&
        std::from_chars(&name[i + 2], &name[i + 2] + 2, byte, 16).ptr == &name[i + 2] + 2) {
      plain += static_cast<char>(byte);
      i += 3;
    } else {
      plain += name[i];
    }
  }
  return plain;
}

// The desktop file ids that a unit's name may contain, the most likely first:
// app[-LAUNCHER]-ID-RANDOM.scope, app[-LAUNCHER]-ID[@RANDOM].service, dbus-:BUS-ID@N.service,
// snap.SNAP.APP[.-]UUID.scope, snap.SNAP.APP.service.
std::vector<std::string> idsOfUnit(std::string_view unit) {
  const bool scope = unit.ends_with(".scope");
  if (!scope && !unit.ends_with(".service")) {
    return {};
  }
  unit = unit.substr(0, unit.rfind('.'));
  if (unit.starts_with("snap.")) {
    unit.remove_prefix(5);
    // The names may hold dashes themselves.
    constexpr std::size_t separatorAndUuid = 37;
    std::string id(scope ? unit.substr(0, unit.size() - std::min(separatorAndUuid, unit.size()))
                         : unit);
    std::replace(id.begin(), id.end(), '.', '_');
    return {id};
  }
  if (!unit.starts_with("app-") && !unit.starts_with("dbus-:")) {
    return {};
  }
  unit.remove_prefix(unit.find('-') + 1);
  unit = unit.substr(0, scope ? unit.rfind('-') : unit.find('@'));
  std::vector<std::string> ids{unescaped(unit)};
  if (const auto launcherEnd = unit.find('-'); launcherEnd != std::string_view::npos) {
    ids.push_back(unescaped(unit.substr(launcherEnd + 1)));
  }
  return ids;
}

}  // namespace

ApplicationMatcher::ApplicationMatcher(std::shared_ptr<const InstalledApplications> installed)
    : installed_(std::move(installed)) {
  for (const auto& entry : installed_->all()) {
    addProgram(entry);
  }
}

void ApplicationMatcher::addProgram(const DesktopEntry& entry) {
  auto program = entry.command.begin();
  const auto end = entry.command.end();
  if (program != end && fs::path(*program).filename() == "env") {
    program = std::find_if(program + 1, end, [](const std::string& argument) {
      return argument.find('=') == std::string::npos;
    });
  }
  if (program == end) {
    return;
  }
  const std::string file = fileBehind(findProgram(*program));
  if (!file.empty()) {
    programs_[file].push_back({installed_->bundleIdOf(entry), {program + 1, end}});
  }
}

std::set<std::string> ApplicationMatcher::applicationsOf(const Process& process) const {
  std::set<std::string> found;
  matchUnits(process.controlGroups, found);
  matchProgram(process.executable, process.arguments, found);
  if (runsOthers(process.executable) && process.arguments.size() > 1) {
    const auto script = std::find_if(process.arguments.begin() + 1, process.arguments.end(),
                                     [](const auto& each) { return !each.starts_with('-'); });
    if (script != process.arguments.end() && script->starts_with('/')) {
      matchProgram(fileBehind(*script), {script + 1, process.arguments.end()}, found);
    }
  }
  return found;
}

void ApplicationMatcher::matchUnits(const std::string& controlGroups,
                                    std::set<std::string>& found) const {
  std::string group;
  for (std::istringstream lines(controlGroups); std::getline(lines, group);) {
    for (const auto& unit : fs::path(group)) {
      const auto ids = idsOfUnit(unit.native());
      const auto known = std::find_if(ids.begin(), ids.end(), [this](const std::string& id) {
        return installed_->withBundleId(id) != nullptr;
      });
      if (known != ids.end()) {
        found.insert(installed_->bundleIdOf(*installed_->withBundleId(*known)));
      }
    }
  }
}

void ApplicationMatcher::matchProgram(const std::string& file,
                                      const std::vector<std::string>& arguments,
                                      std::set<std::string>& found) const {
  const auto known = programs_.find(file);
  if (known == programs_.end()) {
    return;
  }
  const auto& programs = known->second;
  const bool needsArguments = runsOthers(file);
  if (programs.size() == 1 && !needsArguments) {
    found.insert(programs.front().bundleId);
    return;
  }
  std::size_t most = needsArguments ? 1 : 0;
  std::set<std::string> best;
  for (const auto& program : programs) {
    if (program.arguments.size() < most || !containsInOrder(arguments, program.arguments)) {
      continue;
    }
    if (program.arguments.size() > most) {
      most = program.arguments.size();
      best.clear();
    }
    best.insert(program.bundleId);
  }
  found.merge(best);
}

std::shared_ptr<const ApplicationMatcher> CurrentApplicationMatcher::get() {
  const std::scoped_lock lock(mutex_);
  const auto installed = index_->current();
  if (!matcher_ || matcher_->installed() != installed) {
    matcher_ = std::make_shared<const ApplicationMatcher>(installed);
  }
  return matcher_;
}

}  // namespace glintboard
