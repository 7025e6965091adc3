#!/usr/bin/env bash
# The Windows installer under Wine, in a private prefix: a silent install into a
# folder of our choosing, a VBScript that creates the control by its ProgID,
# a silent uninstall, then the class is gone, the files and registry entries
# with it, and the user's own file in that folder stays.
#   windows_installer_test.sh INSTALLER.exe
set -euo pipefail
installer=$(realpath "$1")
export WINEPREFIX=$(mktemp -d) WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml="
wine=/usr/lib/wine/wine64 wineserver=/usr/lib/wine/wineserver
trap '$wineserver -k 2>/dev/null || true; rm -rf "$WINEPREFIX"' EXIT
fail() { echo "$*"; exit 1; }

# The registry as Wine keeps it on disk, flushed once every process has ended.
mentions() {
  $wineserver -w
  grep -ihE 'zelvor|avr_pwm' "$WINEPREFIX/system.reg" "$WINEPREFIX/user.reg" | sort || true
}
create() {
  cat >"$WINEPREFIX/drive_c/create.vbs" <<'EOF'
On Error Resume Next
Set pwm = CreateObject("Zelvor_AVR_PWM.PWM")
If Err.Number <> 0 Then
  WScript.Echo "error " & Err.Number
  WScript.Quit 1
End If
WScript.Echo "created " & TypeName(pwm)
EOF
  $wine cscript //nologo 'C:\create.vbs' | tr -d '\r'
}

$wine wineboot -i >/dev/null 2>&1
before=$(mentions)
folder='C:\IntegratorTools\AVR_PWM'
dir="$WINEPREFIX/drive_c/IntegratorTools/AVR_PWM"

$wine "$installer" /S "/D=$folder"
$wineserver -w
for f in AVR_PWM.ocx AVR_PWM.c help/AVR_PWM.chm Uninstall.exe; do
  [ -f "$dir/$f" ] || fail "not installed: $f"
done
$wine reg query 'HKLM\Software\Microsoft\Windows\CurrentVersion\Uninstall\Zelvor_AVR_PWM' \
  /v UninstallString >/dev/null || fail "no uninstaller entry"
answer=$(create) || fail "CreateObject after install: $answer"
echo "$answer"
echo "the user's notes" >"$dir/notes.txt"

# The uninstaller copies itself to a temporary folder and returns at once;
# wineserver -w waits for the copy.
$wine "$dir/Uninstall.exe" /S
$wineserver -w
answer=$(create) && fail "the class is still registered: $answer"
echo "after uninstall: $answer"
[ "$(cd "$dir" && find . -mindepth 1)" = "./notes.txt" ] || fail "left behind: $(ls -R "$dir")"
after=$(mentions)
[ "$before" = "$after" ] || fail "registry entries left: $(diff <(echo "$before") <(echo "$after"))"
echo "installed, registered, uninstalled; nothing left but the user's file"
