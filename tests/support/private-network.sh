#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs a command in private namespaces: a network with only a loopback device, which can multicast, an
# empty /run, its own X displays, host name and processes, which all end with the first. Works for
# root, also in a chroot, and for ordinary users if the system allows them user namespaces.
set -eu
case "${1:-}" in
  --chroot)
    # The root of a chroot is not a mount point, so mounts would be visible outside. Move to a root
    # that is one.
    shift
    mount --make-rprivate /proc
    mount -t tmpfs tmpfs /proc
    mkdir /proc/root
    mount --rbind / /proc/root
    mount --make-rprivate /proc/root
    mount -t proc proc /proc/root/proc
    folder=$PWD
    exec chroot /proc/root sh -c 'cd "$1"; shift; exec "$@"' sh "$folder" "$0" --inside "$@"
    ;;
  --inside)
    shift
    ip link set lo up multicast on
    ip route add 224.0.0.0/4 dev lo
    mount -t tmpfs tmpfs /run
    mkdir -p -m 1777 /tmp/.X11-unix
    mount -t tmpfs tmpfs /tmp/.X11-unix
    export GLINTBOARD_PRIVATE_NETWORK=1
    # No exec: this shell, the first process of the namespace, reaps orphans.
    "$@"
    exit
    ;;
esac
namespaces="--net --mount --uts --pid --fork --kill-child"
# shellcheck disable=SC2086
if [ "$(id -u)" != 0 ]; then
  exec unshare --map-root-user $namespaces --mount-proc -- "$0" --inside "$@"
elif mountpoint -q /; then
  exec unshare $namespaces --mount-proc -- "$0" --inside "$@"
else
  exec unshare $namespaces --propagation unchanged -- "$0" --chroot "$@"
fi
