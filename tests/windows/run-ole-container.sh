#!/bin/bash
# Runs the OLE container test on a virtual display of its own: starts Xvfb on a
# free display number, registers the library in the private Wine prefix, runs
# ole_container.exe and atl_container.exe (the system's ATL host), unregisters,
# and stops Wine and Xvfb again. With the Linux build's panel_match, the
# control's drawing is then compared with the Linux panel's. Fails when either
# container or the comparison fails.
# Usage: run-ole-container.sh WINE BUILD_DIR SOURCE_DIR [PANEL_MATCH]
set -u
wine=$1 build=$2 source=$3 match=${4:-}
export WINEPREFIX=$build/wine-prefix WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
server=$(dirname "$(readlink -f "$wine")")/wineserver
[ -x "$server" ] || server=wineserver
command -v Xvfb >/dev/null || { echo "no Xvfb"; exit 1; }

display=
for n in $(seq 91 140); do
  [ -e /tmp/.X$n-lock ] || [ -e /tmp/.X11-unix/X$n ] || { display=$n; break; }
done
[ -n "$display" ] || { echo "no free display number"; exit 1; }
Xvfb ":$display" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
xvfb=$!
cleanup() { "$server" -k 2>/dev/null; kill "$xvfb" 2>/dev/null; wait "$xvfb" 2>/dev/null; }
trap cleanup EXIT
for _ in $(seq 50); do [ -e /tmp/.X11-unix/X$display ] && break; sleep 0.1; done
export DISPLAY=":$display"

winpath() { echo "Z:$(readlink -f "$1" | tr / '\\')"; }
pictures=$build/tests/pictures
mkdir -p "$pictures"
ocx=$(winpath "$build/bin/AVR_PWM.ocx")
"$server" -k 2>/dev/null # a server of a headless run has no display
"$wine" regsvr32 /s "$ocx" || { echo "regsvr32 failed"; exit 1; }
"$wine" "$(winpath "$build/tests/ole_container.exe")" \
  "$(winpath "$source/devices/ATmega328P.zvd")" "$(winpath "$pictures")" 2>&1 | tr -d '\r'
rc=${PIPESTATUS[0]}
echo "--- the ATL host"
"$wine" "$(winpath "$build/tests/atl_container.exe")" "$(winpath "$pictures")" 2>&1 | tr -d '\r'
atl=${PIPESTATUS[0]}
"$wine" regsvr32 /s /u "$ocx"
if [ -n "$match" ]; then
  for name in control-draw control-new; do
    echo "--- $name compared with the Linux panel"
    (cd "$source" && "$match" "tests/windows/$name.zsc" "$pictures/$name-ops.txt" \
      "$pictures/$name.bmp" "$pictures/$name") || rc=1
  done
else
  echo "the drawing is not compared with the Linux panel's: no panel_match given"
fi
[ "$rc" -eq 0 ] && [ "$atl" -eq 0 ]
