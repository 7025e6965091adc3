#!/bin/bash
# Registers the Windows library in a private Wine prefix under the build
# folder, runs the C++ client against it (early- and late-bound), unregisters
# it and checks that the registry holds nothing of ours. Leaves no Wine
# process behind.
# Usage: run-under-wine.sh WINE BUILD_DIR SOURCE_DIR
set -u
wine=$1 build=$2 source=$3
export WINEPREFIX=$build/wine-prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
unset DISPLAY
server=$(dirname "$(readlink -f "$wine")")/wineserver
[ -x "$server" ] || server=wineserver
[ -x "$wine" ] || { echo "no Wine at $wine"; exit 1; }
trap '"$server" -k 2>/dev/null' EXIT

winpath() { echo "Z:$(readlink -f "$1" | tr / '\\')"; }
ocx=$(winpath "$build/bin/AVR_PWM.ocx")
failed=0
step() { # step NAME COMMAND...: runs it, shows its output, counts a failure
  local name=$1; shift
  echo "== $name"
  "$@" 2>&1 | tr -d '\r'
  local rc=${PIPESTATUS[0]}
  [ "$rc" = 0 ] || { echo "== $name failed ($rc)"; failed=1; }
}
ours() { # what the registry holds of ours
  "$wine" reg export HKCR "$WINEPREFIX/classes.reg" /y >/dev/null 2>&1
  iconv -f UTF-16LE -t UTF-8 "$WINEPREFIX/classes.reg" | grep -i -e '6A1E53C0-3F2B-4C8E-9D1A' -e 'Zelvor_AVR_PWM'
}

step "regsvr32" "$wine" regsvr32 /s "$ocx"
step "C++ client" "$wine" "$(winpath "$build/tests/com_client.exe")" "$(winpath "$source/devices")"
step "regsvr32 /u" "$wine" regsvr32 /s /u "$ocx"
echo "== registry after unregistration"
if left=$(ours); then
  echo "$left" | head -20
  echo "== the registry still holds keys of ours"
  failed=1
fi
"$server" -w
exit $failed
