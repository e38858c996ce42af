#!/bin/sh
# Runs its arguments in a network and a mount namespace of their own, with nothing but a loopback
# device that can multicast, and an empty /run. Works for root and, where the system lets ordinary
# users have user namespaces, for them.
set -eu
if [ "${1:-}" = --inside ]; then
  shift
  ip link set lo up multicast on
  ip route add 224.0.0.0/4 dev lo
  mount -t tmpfs tmpfs /run
  export GLINTBOARD_PRIVATE_NETWORK=1
  exec "$@"
fi
if [ "$(id -u)" = 0 ]; then
  exec unshare --net --mount -- "$0" --inside "$@"
fi
exec unshare --map-root-user --net --mount -- "$0" --inside "$@"
