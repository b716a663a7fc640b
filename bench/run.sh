#!/usr/bin/env bash
# Load benchmark: corvane against wc -l, pandas, numpy and data.table.
#
#   bench/run.sh [--sizes 100M,1G] [--repeat N] [--corvane PATH]
#
# Installs what is missing, builds the release corvane and libordalis.so,
# writes the data files that are missing into bench/data/ (three shapes per
# size; 4G only when --sizes names it), then times every tool on every file
# in N alternating rounds (N is 5 unless --repeat says otherwise), keeping
# medians. Prints the table and writes it as Markdown to
# bench/out/latest.md. --corvane runs the given executable instead of
# building one (another build, or a stand-in while the loader is unfinished).
set -euo pipefail
root="$(cd "$(dirname "$0")/.." && pwd)"
cd "$root"

sizes="100M,1G"
repeat=""
corvane=""
usage() { sed -n '4p' "$0" | sed 's/^# *//' >&2; exit 2; }
while [ $# -gt 0 ]; do
  case "$1" in
    --sizes) [ $# -ge 2 ] || usage; sizes="$2"; shift 2 ;;
    --repeat) [ $# -ge 2 ] || usage; repeat="$2"; shift 2 ;;
    --corvane) [ $# -ge 2 ] || usage; corvane="$2"; shift 2 ;;
    -h|--help) sed -n '2,12p' "$0" | sed 's/^# \{0,1\}//'; exit 0 ;;
    *) echo "run.sh: unknown argument $1" >&2; usage ;;
  esac
done
case "$repeat" in ""|[1-9]|[1-9][0-9]) ;; *) echo "run.sh: --repeat needs a count from 1 to 99" >&2; exit 2 ;; esac

scripts/setup.sh python3-pandas python3-numpy r-cran-data.table

if [ -z "$corvane" ]; then
  echo "building release corvane and libordalis.so" >&2
  log="$(mktemp)"
  trap 'rm -f "$log"' EXIT
  if ! { cmake --preset release && cmake --build --preset release --target corvane ordalis -j "$(nproc)"; } >"$log" 2>&1; then
    cat "$log" >&2
    echo "run.sh: the release build failed" >&2
    exit 1
  fi
  corvane="$root/build/release/bin/corvane"
fi

mapfile -t files < <(/usr/bin/python3 bench/generate.py --dir bench/data --sizes "$sizes")

/usr/bin/python3 bench/measure.py --corvane "$corvane" --sets bench/sets \
  ${repeat:+--repeat "$repeat"} --markdown bench/out/latest.md "${files[@]}"
