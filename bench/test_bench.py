"""Checks of the benchmark scripts: python3 -m unittest discover -s bench -p 'test_*.py'."""
import math
import tempfile
import unittest

import generate
import measure


def generated(size, shape="comma"):
    with tempfile.TemporaryDirectory() as folder:
        generate.write_file(folder + "/d", size, shape)
        with open(folder + "/d") as data:
            return data.read()


class BenchTest(unittest.TestCase):
    def test_generated_rows_their_size_and_repeatability(self):
        txt, csv, mixed = generated(200000, "aligned"), generated(200000), generated(200000, "mixed")
        rows = [line.split(",") for line in csv.splitlines()]
        self.assertEqual([line.split() for line in txt.splitlines()], rows[:txt.count("\n")])
        self.assertEqual(rows[0] + rows[1][:2], list(generate.NAMES) + ["0.000000", "1.013253e+05"])
        self.assertEqual({len(line) for line in txt.splitlines()[1:]}, {8 * generate.FIELD_WIDTH})
        for text in (txt, csv):  # the size is reached at the end of the last line, not before
            self.assertTrue(len(text) - len(text.splitlines()[-1]) - 1 < 200000 <= len(text))
        self.assertTrue(txt.startswith(generated(5000, "aligned")) and generated(200000) == csv)
        mixed_rows = [line.split(" ") for line in mixed.splitlines()]
        self.assertEqual(mixed_rows[0], list(generate.NAMES))
        self.assertEqual(mixed_rows[1][:3], ["0.000000", "1.0132530418e+05", "2.1462711006e+01"])
        for mixed_row, row in zip(mixed_rows[1:50], rows[1:50]):  # the same values, other digits
            self.assertTrue(all(math.isclose(float(a), float(b), rel_tol=1e-5, abs_tol=1e-6)
                                for a, b in zip(mixed_row, row)), (mixed_row, row))
        self.assertTrue(len({len(line) for line in mixed.splitlines()[1:]}) > 1)
        columns = [[float(v) for v in column] for column in zip(*rows[1:])]
        self.assertTrue(min(columns[0]) >= 0 and all(min(c) < 0 < max(c) for c in columns[3:]))
        magnitudes = [abs(v) for column in columns for v in column if v]
        self.assertTrue(min(magnitudes) < 1e-7 and max(magnitudes) > 1e5)
        self.assertEqual([generate.parse_size(s) for s in ("1M", "2k", "7")], [1 << 20, 2048, 7])

    def test_runs_commands_and_table_rows(self):
        run = measure.run_once(["sh", "-c", "echo 12 0.5; echo oops >&2; exit 3"])
        self.assertEqual((run.status, run.stdout, run.stderr), (3, "12 0.5\n", "oops\n"))
        self.assertTrue(run.faults > 0 and run.system >= 0)
        self.assertEqual([measure.median(v) for v in ([3, 1, 2], [4, 1, 2, 3])], [2, 2.5])
        self.assertEqual(measure.tools("/d/a.csv", "/b/corvane", "/s")[1][1],
                         ["/b/corvane", "load", "/d/a.csv", "--set", "/s/comma.twc", "-q", "--no"])
        self.assertEqual(measure.row_check("3", 866591), "read 3 rows, file has 866591")
        results = [dict(zip(("tool", "seconds", "system", "faults", "rss", "inner", "note", "versus"), row),
                        file="a.csv", bytes=10**8, rows=10**6)
                   for row in (("corvane", 0.5, 0.1, 31000, 128e6, None, "", {"numpy loadtxt": 4.2}),
                               ("numpy loadtxt", 2, 0.04, 9000, 96e6, 1.75, "", {}),
                               ("fread (1 thread)", None, 0, 0, 80 << 20, None, "exit 1: boom", {}))]
        self.assertEqual(measure.table_rows(results), [
            ["corvane", "a.csv", "0.500", "0.10 (20%)", "31000", "200.0", "122.1", "2.00", "4.20x", "",
             "", ""],
            ["numpy loadtxt", "a.csv", "2.000", "0.04 (2%)", "9000", "50.0", "91.6", "1.50", "", "",
             "1.750", ""],
            ["fread (1 thread)", "a.csv", "failed", "", "", "", "80.0", "", "", "", "", "exit 1: boom"]])
