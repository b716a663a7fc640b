#!/usr/bin/env bash
# Builds the fuzz harnesses (clang with libFuzzer, AddressSanitizer and
# UndefinedBehaviorSanitizer; the "fuzz" preset) and runs each for SECONDS
# (default 60), one after the other, from its seed corpus and the inputs
# that once broke it. New inputs go to build/fuzz/corpus/NAME, an input that
# breaks a harness to build/fuzz/findings/NAME/ (copy it to
# fuzz/regressions/NAME/ so that the ordinary tests replay it).
# ORDALIS_FUZZ_SEED fixes libFuzzer's random seed, so that a run on the same
# machine takes the same path (the test command sets it).
# Exit status 1 when a harness found something.
set -euo pipefail
cd "$(dirname "$0")/.."
seconds="${1:-60}"

scripts/setup.sh clang libclang-rt-14-dev
[ -f build/fuzz/build.ninja ] || cmake --preset fuzz >/dev/null
cmake --build --preset fuzz -j "$(nproc)"

status=0
for name in instructions numlist dataline load script request sniff check; do
  work="build/fuzz/corpus/$name"
  findings="build/fuzz/findings/$name"
  mkdir -p "$work" "$findings"
  options=(-max_total_time="$seconds" -timeout=20 -rss_limit_mb=4096 -print_final_stats=1
           -artifact_prefix="$findings/")
  [ -n "${ORDALIS_FUZZ_SEED:-}" ] && options+=(-seed="$ORDALIS_FUZZ_SEED")
  case "$name" in
    instructions|load|check) options+=(-dict=fuzz/dict/instructions.dict) ;;
    script) options+=(-dict=fuzz/dict/script.dict) ;;
  esac
  inputs=("$work" "fuzz/corpus/$name")
  [ -d "fuzz/regressions/$name" ] && inputs+=("fuzz/regressions/$name")
  echo "== fuzz $name for ${seconds}s" >&2
  if ! build/fuzz/bin/"fuzz_$name" "${options[@]}" "${inputs[@]}" 2>"build/fuzz/$name.log"; then
    tail -n 40 "build/fuzz/$name.log" >&2
    echo "fuzz $name: found an input that breaks it, in $findings/" >&2
    status=1
  else
    grep -E "^stat::number_of_executed_units|^Done" "build/fuzz/$name.log" >&2 || true
  fi
done
exit $status
