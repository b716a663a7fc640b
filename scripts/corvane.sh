#!/usr/bin/env bash
# Runs the corvane command line, building it first (with every package it
# needs) when the build is missing or stale. Arguments go to corvane as is.
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
(
  cd "$root"
  scripts/setup.sh
  [ -f build/release/build.ninja ] || cmake --preset release >/dev/null
  cmake --build --preset release --target corvane ordalis >/dev/null
)
exec "$root/build/release/bin/corvane" "$@"
