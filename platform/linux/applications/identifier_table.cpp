// SPDX-License-Identifier: MIT
#include "platform/linux/applications/identifier_table.h"

#include <algorithm>
#include <iterator>
#include <set>

#include "platform/linux/applications/default_applications.h"

namespace glintboard {
namespace {

struct KnownProgram {
  const char* bundleId;
  // The desktop file ids under which it is packaged, most preferred first.
  std::vector<const char*> desktopIds;
};

const std::vector<KnownProgram>& knownPrograms() {
  static const std::vector<KnownProgram> programs = {
      {"com.obsproject.obs-studio",
       {"com.obsproject.Studio", "obs", "obs-studio", "obs-studio_obs-studio"}},
      {"com.hnc.Discord", {"discord", "com.discordapp.Discord", "discord_discord"}},
      {"com.google.Chrome", {"google-chrome", "google-chrome-stable"}},
      {"com.spotify.client", {"spotify", "com.spotify.Client", "spotify_spotify"}},
      {"com.valvesoftware.steam", {"steam", "com.valvesoftware.Steam", "steam_steam"}},
      {"com.streamlabs.desktop", {"streamlabs-desktop", "streamlabs-obs", "slobs-client"}},
  };
  return programs;
}

// The usual program of a desktop for a role; "" stands for any desktop.
struct RoleProgram {
  const char* desktop;
  const char* desktopId;
};

const std::vector<RoleProgram>& fileManagers() {
  static const std::vector<RoleProgram> programs = {
      {"gnome", "org.gnome.Nautilus"},
      {"kde", "org.kde.dolphin"},
      {"x-cinnamon", "nemo"},
      {"mate", "caja"},
      {"xfce", "thunar"},
      {"lxqt", "pcmanfm-qt"},
      {"pantheon", "io.elementary.files"},
      {"", "org.gnome.Nautilus"},
      {"", "org.kde.dolphin"},
      {"", "nemo"},
      {"", "caja"},
      {"", "thunar"},
      {"", "pcmanfm-qt"},
      {"", "pcmanfm"},
  };
  return programs;
}

const std::vector<RoleProgram>& terminals() {
  static const std::vector<RoleProgram> programs = {
      {"gnome", "org.gnome.Ptyxis"},
      {"gnome", "org.gnome.Console"},
      {"gnome", "org.gnome.Terminal"},
      {"kde", "org.kde.konsole"},
      {"x-cinnamon", "org.gnome.Terminal"},
      {"mate", "mate-terminal"},
      {"xfce", "xfce4-terminal-emulator"},
      {"xfce", "xfce4-terminal"},
      {"lxqt", "qterminal"},
      {"pantheon", "io.elementary.terminal"},
      {"sway", "foot"},
      {"", "org.gnome.Terminal"},
      {"", "org.gnome.Console"},
      {"", "org.gnome.Ptyxis"},
      {"", "org.kde.konsole"},
      {"", "xfce4-terminal"},
      {"", "mate-terminal"},
      {"", "qterminal"},
      {"", "foot"},
      {"", "Alacritty"},
      {"", "kitty"},
      {"", "debian-uxterm"},
      {"", "debian-xterm"},
      {"", "xterm"},
  };
  return programs;
}

const std::vector<RoleProgram>& settings() {
  static const std::vector<RoleProgram> programs = {
      {"gnome", "org.gnome.Settings"},
      {"gnome", "gnome-control-center"},
      {"kde", "systemsettings"},
      {"kde", "kdesystemsettings"},
      {"x-cinnamon", "cinnamon-settings"},
      {"mate", "matecc"},
      {"xfce", "xfce-settings-manager"},
      {"lxqt", "lxqt-config"},
      {"budgie", "org.buddiesofbudgie.ControlCenter"},
      {"pantheon", "io.elementary.settings"},
      {"", "org.gnome.Settings"},
      {"", "gnome-control-center"},
      {"", "systemsettings"},
      {"", "cinnamon-settings"},
      {"", "matecc"},
      {"", "xfce-settings-manager"},
      {"", "lxqt-config"},
  };
  return programs;
}

// Assigns identifiers to installed applications, at most one to each.
class Naming {
 public:
  explicit Naming(const std::vector<DesktopEntry>& installed) {
    for (const auto& entry : installed) {
      installed_.insert(entry.id);
    }
  }

  // Assigns the identifier to the first candidate that is installed and has none yet.
  template <class Ids>
  void give(const std::string& bundleId, const Ids& candidates) {
    if (installed_.contains(bundleId) || known_.contains(bundleId)) {
      return;
    }
    for (const auto& candidate : candidates) {
      if (installed_.contains(candidate) && named_.insert(candidate).second) {
        known_[bundleId] = candidate;
        return;
      }
    }
  }

  KnownApplications take() { return std::move(known_); }

 private:
  std::set<std::string> installed_;
  std::set<std::string> named_;
  KnownApplications known_;
};

// The preferred ones, then those of this desktop, then those of any desktop.
std::vector<std::string> candidates(std::vector<std::string> preferred,
                                    const std::vector<RoleProgram>& programs,
                                    const XdgFolders& folders) {
  const auto desktops = desktopNames(folders);
  for (const auto& [desktop, desktopId] : programs) {
    if (*desktop == '\0' || std::ranges::count(desktops, desktop) != 0) {
      preferred.emplace_back(desktopId);
    }
  }
  return preferred;
}

}  // namespace

KnownApplications knownApplications(const std::vector<DesktopEntry>& installed,
                                    const XdgFolders& folders) {
  Naming naming(installed);
  for (const auto& program : knownPrograms()) {
    naming.give(program.bundleId, program.desktopIds);
  }
  auto openers = applicationsForType(folders, "inode/directory");
  auto managers = candidates(std::move(openers.defaults), fileManagers(), folders);
  // Editors and players can open folders too.
  std::ranges::move(openers.others, std::back_inserter(managers));
  naming.give(fileManagerBundleId, managers);
  naming.give("com.apple.Terminal",
              candidates(preferredTerminals(folders, installed), terminals(), folders));
  naming.give("com.apple.systempreferences", candidates({}, settings(), folders));
  return naming.take();
}

}  // namespace glintboard
