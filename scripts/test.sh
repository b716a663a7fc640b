#!/usr/bin/env bash
# The test command: installs what is missing, builds, and runs every test in
# the release build and under AddressSanitizer + UndefinedBehaviorSanitizer,
# then each fuzz harness for a short while.
set -euo pipefail
cd "$(dirname "$0")/.."

scripts/setup.sh
jobs=$(nproc)
status=0
for preset in release asan; do
  echo "== $preset build" >&2
  cmake --preset "$preset" >/dev/null
  cmake --build --preset "$preset" -j "$jobs"
  echo "== $preset tests" >&2
  ASAN_OPTIONS=detect_leaks=1:abort_on_error=0 UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1 \
    ctest --preset "$preset" -j "$jobs" || status=1
done
echo "== fuzz harnesses" >&2
ORDALIS_FUZZ_SEED="${ORDALIS_FUZZ_SEED:-1}" scripts/fuzz.sh "${ORDALIS_FUZZ_SECONDS:-30}" || status=1
exit $status
