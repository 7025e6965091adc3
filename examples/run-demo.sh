#!/usr/bin/env bash
# make demo: the demo script through the host, its program built with avr-gcc
# and run on simavr by the host's verify, and the panel's numbers beside the chip's.
set -euo pipefail
cd "$(dirname "$0")/.."
mkdir -p out
exec build/bin/zelvor-demo --host build/bin/zelvor-host --script examples/demo.zsc --out out
