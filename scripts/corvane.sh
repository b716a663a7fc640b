#!/usr/bin/env bash
# Runs the corvane command line, building it first (with every package it
# needs) when the build is missing or stale. Arguments go to corvane as is.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
(
  cd "$root"
  scripts/setup.sh
  [ -f build/release/build.ninja ] || cmake --preset release >/dev/null
  # The page of corvane ui too, when the build has it (node and npm found).
  targets=(corvane ordalis)
  cmake --build --preset release --target help | grep -q '^web:' && targets+=(web)
  cmake --build --preset release --target "${targets[@]}" >/dev/null
)
exec "$root/build/release/bin/corvane" "$@"
