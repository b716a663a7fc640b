"""Checks of the benchmark scripts: the data they write and the table they print.

    /usr/bin/python3 -m unittest discover -s bench -p 'test_*.py'
"""

import os
import re
import shutil
import sys
import tempfile
import unittest

sys.path.insert(0, os.path.dirname(os.path.abspath(__file__)))
import generate  # noqa: E402
import measure  # noqa: E402

FIXED = re.compile(r"^-?\d+\.\d{6}$")
EXPONENT = re.compile(r"^-?\d\.\d{6}e[+-]\d\d$")


class GenerateTest(unittest.TestCase):
    def setUp(self):
        self.dir = tempfile.mkdtemp()

    def tearDown(self):
        shutil.rmtree(self.dir)

    def generate(self, size):
        path = os.path.join(self.dir, "f" + str(size))
        generate.write_file(path + ".txt", size, delimited=False)
        generate.write_file(path + ".csv", size, delimited=True)
        with open(path + ".txt") as txt, open(path + ".csv") as csv:
            return txt.read(), csv.read()

    def test_files_hold_the_same_rows_in_both_layouts_up_to_a_line_end(self):
        txt, csv = self.generate(20000)
        txt_lines, csv_lines = txt.splitlines(), csv.splitlines()
        self.assertEqual(txt_lines[0].split(), list(generate.NAMES))
        self.assertEqual(csv_lines[0], ",".join(generate.NAMES))
        for blank, comma in zip(txt_lines[1:], csv_lines[1:]):
            fields = blank.split()
            self.assertEqual(fields, comma.split(","))
            self.assertEqual(len(blank), 8 * generate.FIELD_WIDTH)
            for kind, field in zip(generate.KINDS, fields):
                self.assertRegex(field, FIXED if kind == "f" else EXPONENT)
        self.assertEqual(txt_lines[1].split()[:2], ["0.000000", "1.013253e+05"])
        for text in (txt, csv):
            # The size is reached at the end of the last line, not before.
            self.assertTrue(text.endswith("\n"))
            self.assertGreaterEqual(len(text), 20000)
            self.assertLess(len(text) - len(text.splitlines()[-1]) - 1, 20000)
        self.assertEqual(self.generate(20000), (txt, csv))
        self.assertTrue(txt.startswith(self.generate(5000)[0]))

    def test_values_vary_in_sign_and_magnitude(self):
        _, csv = self.generate(200000)
        columns = list(zip(*(line.split(",") for line in csv.splitlines()[1:])))
        values = [[float(v) for v in column] for column in columns]
        self.assertTrue(all(v >= 0 for v in values[0]))
        for column in values[3:]:
            self.assertTrue(any(v < 0 for v in column) and any(v > 0 for v in column))
        magnitudes = [abs(v) for column in values for v in column if v]
        self.assertLess(min(magnitudes), 1e-7)
        self.assertGreater(max(magnitudes), 1e5)

    def test_parse_size_uses_binary_units(self):
        self.assertEqual(generate.parse_size("100M"), 100 << 20)
        self.assertEqual(generate.parse_size("2k"), 2048)
        self.assertEqual(generate.parse_size("1234"), 1234)


class MeasureTest(unittest.TestCase):
    def test_run_once_reports_status_output_and_memory(self):
        run = measure.run_once(["sh", "-c", "echo 12 0.5; echo oops >&2; exit 3"])
        self.assertEqual((run.status, run.stdout, run.stderr), (3, "12 0.5\n", "oops\n"))
        self.assertGreater(run.rss, 0)
        big = measure.run_once([sys.executable, "-c", "b = bytearray(64 << 20); b[::4096] = b'x' * len(b[::4096])"])
        self.assertGreater(big.rss, 64 << 20)

    def test_tools_pick_the_set_and_delimiter_by_extension(self):
        csv = dict((name, argv) for name, argv, _ in measure.tools("/d/a.csv", "/b/corvane", "/s"))
        txt = dict((name, argv) for name, argv, _ in measure.tools("/d/a.txt", "/b/corvane", "/s"))
        self.assertEqual(csv["corvane"], ["/b/corvane", "load", "/d/a.csv", "--set", "/s/comma.twc", "-q", "--no"])
        self.assertEqual(txt["corvane"][4], "/s/whitespace.twc")
        self.assertEqual(csv["pandas read_csv"][-1], ",")
        self.assertEqual(txt["pandas read_csv"][-1], r"\s+")
        self.assertEqual(csv["wc -l"], ["wc", "-l", "/d/a.csv"])

    def test_row_counts_that_differ_from_the_file_are_noted(self):
        self.assertEqual(measure.row_check("866591", 866591), "")
        self.assertEqual(measure.row_check("3", 866591), "read 3 rows, file has 866591")
        self.assertEqual(measure.row_check("3", None), "")

    def test_table_rows_give_throughput_memory_ratio_and_comparisons(self):
        def result(tool, seconds, rss, inner=None, note=""):
            return {"tool": tool, "file": "a.csv", "bytes": 100_000_000, "seconds": seconds,
                    "rss": rss, "inner": inner, "note": note, "rows": 1_000_000}
        cells = measure.table_rows([
            result("wc -l", 0.05, 2 << 20),
            result("corvane", 0.5, 128_000_000),
            result("numpy loadtxt", 2.0, 96_000_000, inner=1.75),
            result("fread (1 thread)", None, 80 << 20, note="exit 1: boom"),
        ])
        self.assertEqual(cells[0], ["wc -l", "a.csv", "0.050", "2000.0", "2.0", "", "", "", "", ""])
        self.assertEqual(cells[1], ["corvane", "a.csv", "0.500", "200.0", "122.1", "2.00", "4.00x", "", "", ""])
        self.assertEqual(cells[2][2:9], ["2.000", "50.0", "91.6", "1.50", "", "", "1.750"])
        self.assertEqual(cells[3][2:], ["failed", "", "80.0", "", "", "", "", "exit 1: boom"])
        markdown = measure.markdown_table([["a|b"] + [""] * 9]).splitlines()
        self.assertEqual(markdown[1], "|---|---|---:|---:|---:|---:|---:|---:|---:|---|")
        self.assertEqual(markdown[2], "| a\\|b |  |  |  |  |  |  |  |  |  |")


if __name__ == "__main__":
    unittest.main()
