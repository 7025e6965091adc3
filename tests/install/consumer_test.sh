#!/usr/bin/env bash
# Installs into a scratch prefix and builds a tiny outside project against it
# with find_package(ZelvorAvrPwm) alone; the project loads the plug-in and asks
# it for its macros, and runs every installed example with the installed host.
set -euo pipefail
build=$1 src=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$build" --prefix "$scratch/prefix" >/dev/null
cmake -S "$src/tests/install/consumer" -B "$scratch/consumer" -G Ninja \
  -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
cmake --build "$scratch/consumer" >/dev/null
ls "$scratch"/prefix/share/zelvor/examples/macro-SetDuty.zsc >/dev/null
ctest --test-dir "$scratch/consumer" --output-on-failure | tail -n 3
