#!/usr/bin/env bash
# Runs inside the fresh chroot (see clean_machine_test.sh).
set -euo pipefail
deb=$1
apt-get update -qq
step() { echo "== $*"; }

# The first install brings the package's dependencies and what it recommends (the
# AVR toolchain), but nothing that those only recommend; purged again, it leaves
# the system against which the second one is compared.
step "install with apt"
recommends=$(dpkg-deb -f "$deb" Recommends | tr -d ,)
apt-get install -y -qq --no-install-recommends "$deb" $recommends >/tmp/apt.log ||
  { cat /tmp/apt.log; exit 1; }
apt-get purge -y -qq zelvor-avr-pwm >>/tmp/apt.log
useradd --create-home tester
snapshot() {
  find / -xdev \( -path /tmp -o -path /proc -o -path /var/cache/apt -o -path /var/lib/apt \
    -o -path /var/lib/dpkg -o -path /var/log -o -path /var/cache/debconf \) -prune -o -print | sort
}
snapshot >/tmp/before
apt-get install -y -qq --no-install-recommends "$deb" >>/tmp/apt.log

step "the installed host runs every installed example"
work=/tmp/work
mkdir -p $work/out/examples
ln -s /usr/share/zelvor/devices $work/devices
chown -R tester $work
as_tester() { runuser -u tester -- env HOME=$work PATH=/usr/bin:/bin "$@"; }
cd $work
for script in /usr/share/zelvor/examples/*.zsc; do
  as_tester zelvor-host run "$script" >"out/$(basename "$script" .zsc).jsonl" ||
    { echo "failed: $script"; cat "out/$(basename "$script" .zsc).jsonl"; exit 1; }
done
grep -q '"cmd": "program out/examples/macro-SetDuty.c", "ok": true' out/macro-SetDuty.jsonl

step "pwm-measure times the program an example wrote"
as_tester avr-gcc -mmcu=atmega328p -DF_CPU=16000000UL -Os -o pwm.elf out/examples/macro-SetDuty.c
as_tester pwm-measure --mcu atmega328p --freq 16000000 --cycles 400000 --from 200000 pwm.elf >measured.json
cat measured.json
[ "$(grep -c '"period"' measured.json)" -ge 2 ]

step "the desktop starts off screen with the plug-in"
runuser -u tester -- env HOME=$work QT_QPA_PLATFORM=offscreen zelvor-host gui >gui.log 2>&1 &
gui=$!
# The host itself runs under runuser: find it by the plug-in and Qt it mapped.
host=""
for _ in $(seq 100); do
  sleep 0.2
  for maps in /proc/[0-9]*/maps; do
    grep -qs 'zelvor/components/AVR_PWM.so' "$maps" && grep -qs libQt6Widgets "$maps" && host=${maps//[^0-9]/}
  done
  [ -n "$host" ] && break
done
# The desktop runs until it is closed; still running is what it should be.
[ -n "$host" ] && kill "$host"
wait $gui || true
[ -n "$host" ] || { cat gui.log; exit 1; }

step "purge leaves nothing behind"
cd /
apt-get purge -y -qq zelvor-avr-pwm >>/tmp/apt.log
snapshot >/tmp/after
diff /tmp/before /tmp/after
echo "nothing left behind"
