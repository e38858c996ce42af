#!/bin/sh
# tools/install-shortcuts in a /usr/bin of its own: SCRIPT PROGRAM
set -eu
if [ -z "${OWN_NAMESPACE-}" ]; then
  OWN_NAMESPACE=1 exec unshare --map-root-user --mount "$0" "$@"
fi
script=$1
program=$2
place=/usr/bin/shortcuts

mount -t tmpfs none /mnt
mkdir /mnt/real /mnt/bin
mount --bind /usr/bin /mnt/real
ln -s /mnt/real/* /mnt/bin/
rm -f /mnt/bin/shortcuts /mnt/bin/dpkg
printf '#!/bin/sh\nexit 1\n' >/mnt/bin/dpkg # no package brought anything
chmod +x /mnt/bin/dpkg
mount --bind /mnt/bin /usr/bin

expect() { # WHAT FILE
  cmp "$2" "$place" || { echo "$1: not what is expected"; exit 1; }
}
"$script" "$program"
expect "nothing was there" "$program"
[ -x "$place" ]
echo "Glintboard Shortcuts, an older one" >"$place"
"$script" "$program"
expect "an older one was there" "$program"
echo "another program" >/mnt/other
cp /mnt/other "$place"
"$script" "$program" 2>/mnt/said
expect "another program was there" /mnt/other
grep -q "another program" /mnt/said
