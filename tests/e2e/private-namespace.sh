#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs a command with its own port 9847, process list and /usr/bin, so that it disturbs no other agent
# and can run in parallel with itself. Needs no special rights.
#   private-namespace.sh COMMAND [ARGUMENT…]
# GLINTBOARD_E2E_FOLDER names a folder that is removed afterwards, and /usr/bin/shortcuts links to the
# file "shortcuts" in it.
set -eu
if [ "${GLINTBOARD_E2E_FOLDER:-}" = "" ]; then
  GLINTBOARD_E2E_FOLDER=$(mktemp -d)
  export GLINTBOARD_E2E_FOLDER
  trap 'rmdir "$GLINTBOARD_E2E_FOLDER"' EXIT
  "$(dirname "$0")/../support/private-network.sh" "$0" "$@"
  exit
fi
mount -t tmpfs tmpfs "$GLINTBOARD_E2E_FOLDER"
mkdir "$GLINTBOARD_E2E_FOLDER/upper" "$GLINTBOARD_E2E_FOLDER/work"
ln -s "$GLINTBOARD_E2E_FOLDER/shortcuts" "$GLINTBOARD_E2E_FOLDER/upper/shortcuts"
mount -t overlay overlay /usr/bin \
  -o "lowerdir=/usr/bin,upperdir=$GLINTBOARD_E2E_FOLDER/upper,workdir=$GLINTBOARD_E2E_FOLDER/work"
exec "$@"
