#!/bin/sh
# SPDX-License-Identifier: MIT
# cmake --install puts every file below the prefix, and the programs run from there.
#   install_test.sh BUILD VERSION
set -eu
prefix=$(mktemp -d)
trap 'rm -rf "$prefix"' EXIT
DESTDIR="" cmake --install "$1" --prefix "$prefix" >"$prefix/log"
if grep '^-- [A-Z][a-z-]*: ' "$prefix/log" | grep -v ": $prefix/"; then
  echo "was installed outside of $prefix" >&2
  exit 1
fi
for program in glintboard-agent glintboard-phone shortcuts; do
  "$prefix/bin/$program" --version | grep -q "$2\$"
  test -s "$prefix/share/man/man1/$program.1.gz"
  test -s "$prefix/share/bash-completion/completions/$program"
done
for file in etc/ufw/applications.d/glintboard-agent etc/xdg/autostart/org.glintboard.Agent.desktop \
  lib/firewalld/services/glintboard-agent.xml share/applications/org.glintboard.Agent.desktop \
  share/icons/hicolor/48x48/apps/org.glintboard.Agent.png \
  share/metainfo/org.glintboard.Agent.metainfo.xml; do
  test -s "$prefix/$file"
done
