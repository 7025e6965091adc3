#!/usr/bin/env bash
# Builds the Debian packages and checks them as Debian's tools do: lintian finds
# no error, the dependencies come from the binaries, the binaries are stripped
# with their debug information in the dbgsym package, libraries sit in the
# multiarch folder, headers only in the -dev package; then the unpacked host
# answers every example script as the build tree's does.
set -euo pipefail
build=$1 src=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
(cd "$build" && cpack -B "$scratch/pkg" >/dev/null)
pkg=$scratch/pkg
runtime=$(ls "$pkg"/zelvor-avr-pwm_*.deb) dev=$(ls "$pkg"/zelvor-avr-pwm-dev_*.deb)
dbgsym=$(ls "$pkg"/zelvor-avr-pwm-dbgsym_*.ddeb)
fail() { echo "$*"; exit 1; }

lintian --fail-on error,warning "$runtime" "$dev" "$dbgsym" || fail "lintian reports errors or warnings"

depends=$(dpkg-deb -f "$runtime" Depends) recommends=$(dpkg-deb -f "$runtime" Recommends)
for want in libsimavr2 libqt6widgets6 libc6; do
  [[ $depends == *$want* ]] || fail "Depends lacks $want: $depends"
done
[[ $recommends == *gcc-avr* && $recommends == *avr-libc* ]] || fail "Recommends: $recommends"

root=$scratch/root lib=usr/lib/$(dpkg-architecture -qDEB_HOST_MULTIARCH)
dpkg-deb -x "$runtime" "$root"
listing() { dpkg-deb -c "$1" | awk '{print $6}'; }
[[ $(listing "$runtime") != *./usr/include* ]] || fail "headers in the runtime package"
[ -z "$(listing "$dev" | grep '\.h$' | grep -v '^\./usr/include/zelvor/')" ] || fail "headers outside include/zelvor"
for f in usr/bin/zelvor-host "$lib"/zelvor/libzelvor-platform.so.4 "$lib"/zelvor/components/AVR_PWM.so; do
  [ -f "$root/$f" ] || fail "missing $f"
  readelf -S "$root/$f" | grep -q '\.debug_info' && fail "not stripped: $f"
done
[[ $(listing "$dbgsym") == *./usr/lib/debug/.build-id/*.debug* ]] || fail "no debug information"
for f in AVR_PWM.c help/AVR_PWM.chm; do
  [ -f "$root/$lib/zelvor/components/$f" ] || fail "missing $f"
done
for f in copyright changelog.gz script-reference.md; do
  [ -f "$root/usr/share/doc/zelvor-avr-pwm/$f" ] || fail "missing doc $f"
done

status=0
for script in "$src"/examples/*.zsc; do
  case "$(basename "$script")" in demo.zsc) continue ;; esac
  # The plug-in's folder differs between the two trees; everything else must not.
  want=$("$build/bin/zelvor-host" run "$script" 2>&1 | sed "s#$build/lib#PLUGIN#g" || true)
  got=$("$root/usr/bin/zelvor-host" run "$script" 2>&1 |
    sed "s#$root/$lib/zelvor/components#PLUGIN#g" || true)
  if [ "$want" != "$got" ]; then
    echo "differs: $(basename "$script")"
    diff <(echo "$want") <(echo "$got") | head -20
    status=1
  fi
done
exit $status
