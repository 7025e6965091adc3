#!/usr/bin/env bash
# Installs into a scratch prefix and builds a tiny outside project against it
# with find_package(ZelvorAvrPwm); the project loads the plug-in and asks it
# for its macros.
set -euo pipefail
build=$1 src=$2
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
cmake --install "$build" --prefix "$scratch/prefix" >/dev/null
cmake -S "$src/tests/install/consumer" -B "$scratch/consumer" -G Ninja \
  -DCMAKE_PREFIX_PATH="$scratch/prefix" >/dev/null
cmake --build "$scratch/consumer" >/dev/null
"$scratch/consumer/consumer"
