// SPDX-License-Identifier: MIT
#include "tools/shortcuts/commands.h"

#include <algorithm>
#include <iostream>

#include "platform/linux/applications/application_scan.h"
#include "platform/linux/shortcuts/application_shortcuts.h"
#include "platform/linux/shortcuts/shortcut_folder.h"
#include "platform/linux/shortcuts/shortcut_text.h"
#include "tools/shortcuts/arguments.h"
#include "tools/shortcuts/help.h"
#include "tools/shortcuts/run_shortcut.h"

namespace glintboard::shortcuts {

namespace {

enum ExitCode { done = 0, failed = 1, wrongUsage = 2 };

[[noreturn]] void fail(const std::string& message) {
  throw std::runtime_error(message);
}

bool before(const Shortcut& one, const Shortcut& other) {
  return one.name < other.name;
}

class Tool {
 public:
  Tool(std::ostream& out, std::ostream& err) : out_(out), err_(err) {}

  int obey(const Arguments& arguments) {
    const std::string& command = arguments.command;
    if (command == "help") {
      out_ << helpText();
    } else if (command == "version") {
      out_ << "Glintboard Shortcuts " << GLINTBOARD_VERSION << '\n';
    } else if (command == "list") {
      list(arguments.has("show-identifiers"));
    } else if (command == "create") {
      create(arguments);
    } else if (command == "run") {
      return runShortcut(find(arguments.operands[0]), folders_.home);
    } else if (command == "edit") {
      edit(arguments);
    } else if (command == "delete") {
      const auto shortcut = findOwn(arguments.operands[0]);
      folder_.remove(shortcut);
      out_ << "Deleted " << labelled(shortcut) << '\n';
    } else {
      show(find(arguments.operands[0]));
    }
    return done;
  }

 private:
  static std::string labelled(const Shortcut& shortcut) {
    return shortcut.name + " (" + shortcut.identifier + ")";
  }

  std::vector<Shortcut> applicationActions() const {
    return applicationShortcuts(scanApplications(folders_.dataFolders("applications"),
                                                 [](const std::filesystem::path&) {}));
  }

  void list(bool showIdentifiers) {
    auto files = folder_.read();
    auto actions = applicationActions();
    std::ranges::stable_sort(files.shortcuts, before);
    std::ranges::stable_sort(actions, before);
    for (const auto& shortcuts : {files.shortcuts, actions}) {
      for (const auto& shortcut : shortcuts) {
        out_ << (showIdentifiers ? labelled(shortcut) : shortcut.name) << '\n';
      }
    }
    out_.flush();
    for (const auto& [file, reason] : files.skipped) {
      err_ << "Skipped " << file.string() << ": " << reason << '\n';
    }
  }

  // The Shortcut with that identifier in any letter case, else with exactly that name. The user's
  // own precede those of applications.
  Shortcut find(const std::string& asked) const {
    const auto files = folder_.read();
    const auto identifier = upperCase(asked);
    const auto actions = applicationActions();
    for (const auto& shortcuts : {files.shortcuts, actions}) {
      const auto found = std::ranges::find(shortcuts, identifier, &Shortcut::identifier);
      if (found != shortcuts.end()) {
        return *found;
      }
    }
    for (const auto& [file, reason] : files.skipped) {
      if (upperCase(file.stem().string()) == identifier) {
        fail("The Shortcut cannot be used: " + reason + ". Repair " + file.string() + ".");
      }
    }
    for (const auto& shortcuts : {files.shortcuts, actions}) {
      const auto count = std::ranges::count(shortcuts, asked, &Shortcut::name);
      if (count > 1) {
        fail("Several Shortcuts are called \"" + oneLine(asked) +
             "\". Use an identifier; \"shortcuts list --show-identifiers\" shows them.");
      }
      if (count == 1) {
        return *std::ranges::find(shortcuts, asked, &Shortcut::name);
      }
    }
    fail("Shortcut not found: \"" + oneLine(asked) +
         "\". \"shortcuts list\" shows those there are.");
  }

  Shortcut findOwn(const std::string& asked) const {
    auto shortcut = find(asked);
    if (shortcut.action) {
      fail("\"" + shortcut.name +
           "\" belongs to an application and stays as it is. \"shortcuts create\" makes one of "
           "your own.");
    }
    return shortcut;
  }

  static ShortcutChanges changesIn(const Arguments& arguments) {
    const auto option = [&](const char* name) {
      return arguments.has(name) ? std::optional(arguments.options.at(name)) : std::nullopt;
    };
    ShortcutChanges changes{option("name"), option("command"), option("icon")};
    if (changes.name) {
      changes.name = oneLine(*changes.name);
    }
    if (changes.icon && changes.icon->find('/') != std::string::npos) {
      changes.icon = std::filesystem::absolute(*changes.icon).lexically_normal().string();
    }
    return changes;
  }

  void create(const Arguments& arguments) {
    ShortcutChanges content = changesIn(arguments);
    content.name = oneLine(arguments.operands[0]);
    if (!content.command) {
      throw UsageError("Say what the Shortcut runs: --command COMMAND.");
    }
    out_ << labelled(folder_.create(content)) << '\n';
  }

  void edit(const Arguments& arguments) {
    if (arguments.options.empty()) {
      throw UsageError("Say what to change: --name, --command or --icon.");
    }
    const auto shortcut = findOwn(arguments.operands[0]);
    out_ << labelled(folder_.change(shortcut, changesIn(arguments))) << '\n';
  }

  void show(const Shortcut& shortcut) {
    out_ << "Name:       " << shortcut.name << '\n'
         << "Identifier: " << shortcut.identifier << '\n';
    if (!shortcut.icon.empty()) {
      out_ << "Icon:       " << oneLine(shortcut.icon) << '\n';
    }
    if (shortcut.action) {
      out_ << "Action:     " << shortcut.action->id << '\n';
    } else {
      out_ << "Command:    " << shortcut.command << '\n';
    }
    out_ << "File:       " << shortcut.file.string() << '\n';
  }

  const XdgFolders folders_ = xdgFoldersOfEnvironment();
  ShortcutFolder folder_{ShortcutFolder::pathIn(folders_)};
  std::ostream& out_;
  std::ostream& err_;
};

}  // namespace

int runTool(const std::vector<std::string>& words, std::ostream& out, std::ostream& err) {
  try {
    return Tool(out, err).obey(parseArguments(words));
  } catch (const UsageError& error) {
    err << error.what() << " Try \"shortcuts help\".\n";
    return wrongUsage;
  } catch (const ShortcutFileError& error) {
    err << "This does not work: " << error.what() << ".\n";
  } catch (const std::exception& error) {
    err << error.what() << '\n';
  }
  return failed;
}

}  // namespace glintboard::shortcuts
