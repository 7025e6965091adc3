#!/usr/bin/env bash
# Builds the Debian package, unpacks it into a scratch root, and checks that its
# zelvor-host answers every example script as the build tree's does.
set -euo pipefail
build=$1 src=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
(cd "$build" && cpack -G DEB -B "$scratch/pkg" >/dev/null)
deb=$(ls "$scratch"/pkg/*.deb)
dpkg-deb -x "$deb" "$scratch/root"
host="$scratch/root/usr/bin/zelvor-host"
test -x "$host"
test -f "$scratch/root/usr/lib/zelvor/components/AVR_PWM.so"
test -f "$scratch/root/usr/lib/zelvor/components/AVR_PWM.c"
test -f "$scratch/root/usr/lib/zelvor/components/help/AVR_PWM.chm"
test -d "$scratch/root/usr/share/zelvor/devices"
test -f "$scratch/root/usr/share/zelvor/help/index.html"
status=0
for script in "$src"/examples/*.zsc; do
  case "$(basename "$script")" in demo.zsc) continue ;; esac
  # The plug-in's folder differs between the two trees; everything else must not.
  want=$("$build/bin/zelvor-host" run "$script" 2>&1 | sed "s#$build/lib#PLUGIN#g" || true)
  got=$(LD_LIBRARY_PATH="$scratch/root/usr/lib" "$host" run "$script" 2>&1 |
        sed "s#$scratch/root/usr/lib/zelvor/components#PLUGIN#g" || true)
  if [ "$want" != "$got" ]; then
    echo "differs: $(basename "$script")"
    diff <(echo "$want") <(echo "$got") | head -20
    status=1
  fi
done
exit $status
