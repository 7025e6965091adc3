#!/usr/bin/env bash
# make demo: the demo script through the host, the program through avr-gcc and
# simavr, and the panel's numbers beside the chip's.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p out
exec build/bin/zelvor-demo --host build/bin/zelvor-host --measure build/bin/pwm-measure \
  --script examples/demo.zsc --device devices/ATmega328P.zvd --clock 16000000 --out out
