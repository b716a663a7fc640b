#!/usr/bin/env python3
"""Times `corvane load` and its peers on the benchmark files and tabulates them.

    measure.py --corvane BIN --sets DIR [--repeat N] [--markdown OUT] FILE...

For each file (warmed once with `cat FILE > /dev/null`, caches otherwise left
alone) the tools run as child processes in N rounds, each round every tool
once in turn (A B C A B C ...), so that a slow minute of the machine falls on
all of them: `wc -l` (the floor: one pass over the bytes), `corvane load FILE
--set SET -q --no` (scan and transfer into the host, no output file), pandas
read_csv (C engine), numpy loadtxt and data.table fread on one thread. A
tool's wall time, system time and page faults are the medians of its runs,
process start-up included; its memory is the largest peak resident set
(ru_maxrss from wait4) of its runs. corvane's ratio to a peer is the median
over the rounds of the peer's time over corvane's in that round. N defaults
to 5.

The peers print the number of rows they read and the seconds spent inside
the read call, and corvane's summary line gives the points it loaded; a count
that differs from the file's rows (lines less the header line, as counted by
wc) is flagged in the table.
"""

import argparse
import datetime
import os
import platform
import re
import subprocess
import sys
import tempfile
import time

PYTHON = "/usr/bin/python3"
RSCRIPT = "Rscript"

PANDAS = """
import sys, time
import pandas as pd
path, sep = sys.argv[1], sys.argv[2]
start = time.perf_counter()
frame = pd.read_csv(path, sep=sep, engine="c")
print(len(frame), time.perf_counter() - start)
"""

NUMPY = """
import sys, time
import numpy as np
path, sep = sys.argv[1], sys.argv[2]
start = time.perf_counter()
values = np.loadtxt(path, skiprows=1, delimiter=None if sep == "blank" else sep)
print(values.shape[0], time.perf_counter() - start)
"""

FREAD = """
suppressPackageStartupMessages(library(data.table))
setDTthreads(1)
path <- commandArgs(trailingOnly = TRUE)[1]
start <- Sys.time()
table <- fread(path, nThread = 1)
cat(nrow(table), as.numeric(difftime(Sys.time(), start, units = "secs")), "\\n")
"""


class Run:
    """One timed child process: wall and system seconds, page faults (minor
    and major), peak RSS in bytes, exit status and output."""

    def __init__(self, seconds, rss, status, stdout, stderr, system=0.0, faults=0):
        self.seconds = seconds
        self.rss = rss
        self.status = status
        self.stdout = stdout
        self.stderr = stderr
        self.system = system
        self.faults = faults


def run_once(argv):
    """Runs argv with its output in temporary files and returns a Run.

    wait4 reports the child's own resource use, which includes the peak
    RSS of everything it executed or waited for."""
    with tempfile.TemporaryFile() as out, tempfile.TemporaryFile() as err:
        start = time.perf_counter()
        proc = subprocess.Popen(argv, stdin=subprocess.DEVNULL, stdout=out, stderr=err)
        _, status, usage = os.wait4(proc.pid, 0)
        seconds = time.perf_counter() - start
        proc.returncode = os.waitstatus_to_exitcode(status)
        out.seek(0)
        err.seek(0)
        return Run(seconds, usage.ru_maxrss * 1024, proc.returncode,
                   out.read().decode(errors="replace"), err.read().decode(errors="replace"),
                   usage.ru_stime, usage.ru_minflt + usage.ru_majflt)


def median(values):
    """The median of a non-empty list of numbers."""
    ordered = sorted(values)
    middle = len(ordered) // 2
    return ordered[middle] if len(ordered) % 2 else (ordered[middle - 1] + ordered[middle]) / 2


def tools(path, corvane, sets):
    """Returns (name, argv, prints-rows) for every tool measured on path."""
    comma = path.endswith(".csv")
    instruction_set = os.path.join(sets, "comma.twc" if comma else "whitespace.twc")
    pandas_sep = "," if comma else r"\s+"
    numpy_sep = "," if comma else "blank"
    return [
        ("wc -l", ["wc", "-l", path], False),
        ("corvane", [corvane, "load", path, "--set", instruction_set, "-q", "--no"], False),
        ("pandas read_csv", [PYTHON, "-c", PANDAS, path, pandas_sep], True),
        ("numpy loadtxt", [PYTHON, "-c", NUMPY, path, numpy_sep], True),
        ("fread (1 thread)", [RSCRIPT, "-e", FREAD, path], True),
    ]


def last_line(text):
    """Returns the last non-empty line of text, shortened for a table cell."""
    lines = [line.strip() for line in text.splitlines() if line.strip()]
    return lines[-1][:80] if lines else ""


def row_check(count, rows):
    """Returns a note when a tool read another number of rows than the file holds."""
    if rows is None or int(count) == rows:
        return ""
    return "read %s rows, file has %d" % (count, rows)


PEERS = ("numpy loadtxt", "fread (1 thread)")


def measure(path, corvane, sets, repeat):
    """Measures every tool on path in repeat alternating rounds; returns one
    result dict per tool."""
    subprocess.run("cat '%s' > /dev/null" % path.replace("'", "'\\''"), shell=True, check=True)
    size = os.path.getsize(path)
    measured = tools(path, corvane, sets)
    runs = {name: [] for name, _, _ in measured}
    for round_number in range(repeat):
        for name, argv, _ in measured:
            run = run_once(argv)
            runs[name].append(run)
            print("  round %d  %-18s %s" % (round_number + 1, name,
                                           "failed" if run.status else "%.3f s" % run.seconds),
                  file=sys.stderr, flush=True)
    rows = None
    results = []
    for name, _, prints_rows in measured:
        done = runs[name]
        result = {"tool": name, "file": os.path.basename(path), "bytes": size,
                  "seconds": median([r.seconds for r in done]),
                  "system": median([r.system for r in done]),
                  "faults": median([r.faults for r in done]),
                  "rss": max(r.rss for r in done), "inner": None, "note": "", "versus": {}}
        failed = [r for r in done if r.status != 0]
        if failed:
            result["note"] = "exit %d: %s" % (failed[0].status, last_line(failed[0].stderr))
            result["seconds"] = None
        elif name == "wc -l":
            rows = int(done[0].stdout.split()[0]) - 1
        elif prints_rows:
            result["inner"] = median([float(r.stdout.split()[1]) for r in done])
            result["note"] = row_check(done[0].stdout.split()[0], rows)
        else:
            # corvane's summary line ends in the number of points loaded.
            points = re.search(r"(\d+) points?\s*$", done[0].stdout)
            if points:
                result["note"] = row_check(points.group(1), rows)
            for peer in PEERS:
                pairs = [(p.seconds, c.seconds) for p, c in zip(runs.get(peer, []), done)
                         if p.status == 0]
                if len(pairs) == len(done):
                    result["versus"][peer] = median([p / c for p, c in pairs])
        results.append(result)
    for result in results:
        result["rows"] = rows
    return results


def throughput(result):
    """MB/s of a result (decimal megabytes of the file per second)."""
    return result["bytes"] / 1e6 / result["seconds"] if result["seconds"] else None


def table_rows(results):
    """Turns results into table cells."""
    cells = []
    for result in results:
        mbps = throughput(result)
        value_bytes = result["rows"] * 8 * 8 if result["rows"] else None
        per_value = ""
        if result["tool"] != "wc -l" and value_bytes and result["seconds"]:
            per_value = "%.2f" % (result["rss"] / value_bytes)
        system = ""
        if result["seconds"]:
            system = "%.2f (%d%%)" % (result["system"], round(100 * result["system"] / result["seconds"]))
        versus = ["%.2fx" % result["versus"][peer] if peer in result.get("versus", {}) else ""
                  for peer in PEERS]
        cells.append([
            result["tool"], result["file"],
            "%.3f" % result["seconds"] if result["seconds"] else "failed",
            system, "%d" % result["faults"] if result["seconds"] else "",
            "%.1f" % mbps if mbps else "",
            "%.1f" % (result["rss"] / (1 << 20)),
            per_value, versus[0], versus[1],
            "%.3f" % result["inner"] if result["inner"] is not None else "",
            result["note"],
        ])
    return cells


HEADERS = ["tool", "file", "seconds", "system s (% of wall)", "page faults", "MB/s",
           "peak RSS MiB", "RSS / 8 B per value", "vs numpy", "vs fread", "read call s", "note"]


def text_table(cells):
    """Formats cells as an aligned plain-text table."""
    widths = [max(len(row[i]) for row in [HEADERS] + cells) for i in range(len(HEADERS))]
    lines = []
    for row in [HEADERS] + cells:
        lines.append("  ".join(c.ljust(w) if i < 2 or i == len(row) - 1 else c.rjust(w)
                               for i, (c, w) in enumerate(zip(row, widths))).rstrip())
    lines.insert(1, "  ".join("-" * w for w in widths))
    return "\n".join(lines)


def markdown_table(cells):
    """Formats cells as a Markdown table with numeric columns right-aligned."""
    align = ["---", "---"] + ["---:"] * (len(HEADERS) - 3) + ["---"]
    out = ["| " + " | ".join(HEADERS) + " |", "|" + "|".join(align) + "|"]
    out += ["| " + " | ".join(c.replace("|", "\\|") for c in row) + " |" for row in cells]
    return "\n".join(out)


def command_output(argv):
    """Returns the first output line of argv, or "?" when it cannot run."""
    try:
        done = subprocess.run(argv, capture_output=True, text=True, timeout=60)
        return (done.stdout or done.stderr).strip().splitlines()[0]
    except (OSError, IndexError, subprocess.SubprocessError):
        return "?"


def environment(corvane):
    """Returns lines describing the machine and the tool versions."""
    cpu = "?"
    try:
        with open("/proc/cpuinfo") as info:
            cpu = next(line.split(":", 1)[1].strip() for line in info if line.startswith("model name"))
    except (OSError, StopIteration):
        pass
    root = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
    return [
        "- date: " + datetime.datetime.now().strftime("%Y-%m-%d %H:%M"),
        "- machine: %s, %d cores, %s" % (cpu, os.cpu_count() or 0, platform.platform()),
        "- corvane: %s (commit %s)" % (corvane, command_output(["git", "-C", root, "rev-parse", "--short", "HEAD"])),
        "- pandas %s, numpy %s, data.table %s" % (
            command_output([PYTHON, "-c", "import pandas; print(pandas.__version__)"]),
            command_output([PYTHON, "-c", "import numpy; print(numpy.__version__)"]),
            command_output([RSCRIPT, "-e", "cat(as.character(packageVersion('data.table')))"])),
    ]


def main():
    parser = argparse.ArgumentParser(description=__doc__.split("\n")[0])
    parser.add_argument("--corvane", required=True, help="the corvane executable")
    parser.add_argument("--sets", required=True, help="folder of whitespace.twc and comma.twc")
    parser.add_argument("--repeat", type=int, default=5, help="alternating rounds (medians are kept)")
    parser.add_argument("--markdown", help="also write the table as Markdown here")
    parser.add_argument("files", nargs="+")
    args = parser.parse_args()

    corvane = os.path.abspath(args.corvane)
    sets = os.path.abspath(args.sets)
    results = []
    for path in args.files:
        path = os.path.abspath(path)
        print("%s (%d MB, %d rounds)" % (os.path.basename(path), os.path.getsize(path) // 1000000,
                                         args.repeat), file=sys.stderr, flush=True)
        results += measure(path, corvane, sets, args.repeat)

    cells = table_rows(results)
    print(text_table(cells))
    if args.markdown:
        os.makedirs(os.path.dirname(os.path.abspath(args.markdown)), exist_ok=True)
        with open(args.markdown, "w") as out:
            out.write("# Load benchmark: latest run\n\n")
            out.write("\n".join(environment(corvane)) + "\n\n")
            out.write(markdown_table(cells) + "\n\n")
            out.write("Runs in alternating rounds (each tool once per round). Seconds, system s, "
                      "page faults: medians of the runs, process start-up included. "
                      "MB/s: file bytes / 1e6 / seconds. Peak RSS: largest ru_maxrss of the runs. "
                      "RSS / 8 B per value: peak RSS over rows x 8 columns x 8 bytes. "
                      "vs numpy, vs fread: median over the rounds of the peer's time over "
                      "corvane's. Read call s: the peer's own timing of its read call alone "
                      "(median).\n")
        print("written " + args.markdown, file=sys.stderr)


if __name__ == "__main__":
    main()
