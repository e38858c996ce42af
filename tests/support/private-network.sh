#!/bin/sh
# SPDX-License-Identifier: MIT
# Runs its arguments in namespaces of their own: a network with nothing but a loopback device that
# can multicast, an empty /run, X displays, a host name, and a list of processes that all end with
# the first. Works for root, in a chroot too, and for ordinary users where the system lets them have
# user namespaces.
set -eu
case "${1:-}" in
  --chroot)
    # The root of a chroot is no mount point, so what is mounted here would be seen outside, unless
    # this moves to one that is.
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
    # Not with exec: this shell, the first process of the namespace, reaps what others leave behind.
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
