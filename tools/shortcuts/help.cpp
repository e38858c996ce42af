// SPDX-License-Identifier: MIT
#include "tools/shortcuts/help.h"

namespace glintboard::shortcuts {

const char* helpText() {
  return R"(Glintboard Shortcuts: commands that a key of the phone can run.

Usage: shortcuts COMMAND [OPTION…]

Commands:
  list [--show-identifiers]   show the names of all Shortcuts: your own, and the
                              actions of applications ("Firefox: New Window")
  run ID|NAME                 run one; ID is its identifier
  create NAME --command COMMAND [--icon ICON]
                              create one; /bin/sh runs COMMAND in your home
                              folder
  edit ID|NAME [--name NAME] [--command COMMAND] [--icon ICON]
                              change one of your own; --icon "" removes the icon
  delete ID|NAME              delete one of your own
  show ID|NAME                show all of one
  help, -h, --help            show this text
  --version                   show the version

ICON is the name of an icon of your theme ("firefox") or an image file.
Words after "--" are not options.

Examples:
  shortcuts create "Lock screen" --command "loginctl lock-session"
  shortcuts run "Lock screen"

Exit codes: 0 success, 1 failure, 2 usage error; "run" exits with the command's
exit code, or 128 plus the number of the signal that ended it.

Your Shortcuts are files in $XDG_DATA_HOME/GlintboardAgent/Shortcuts
(~/.local/share/GlintboardAgent/Shortcuts).
)";
}

}  // namespace glintboard::shortcuts
