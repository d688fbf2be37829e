"""Tests of zels-stat."""
import math
import os
import random
import re
from fractions import Fraction
from pathlib import Path

from support import Picture, ProgramTest, main, write_wave

BLOCK = 16384  # samples that the program handles at a time


def reports(text):
    """{file name: {row: [the value of each channel]}}"""
    files = {}
    for line in text.splitlines():
        if found := re.match(r"  (\S+(?: \S+)*)  +(\S.*)", line):
            rows[found[1]] = found[2].replace(" dBFS", "").split()
        else:
            rows = files.setdefault(line.split(": ")[0], {})
    return files


class Values(ProgramTest):
    def check_channel(self, rows, c, samples, rate):
        n, total, squares = len(samples), sum(samples), sum(x * x for x in samples)
        # The mean and the deviation pass through single precision, once a block.
        self.assertAlmostEqual(float(rows["mean"][c]), total / n, delta=6e-4 + 1e-7 * abs(total / n))
        deviation = math.sqrt(Fraction(squares * n - total * total, n * (n - 1))) if n > 1 else 0
        self.assertAlmostEqual(float(rows["deviation"][c]), deviation, delta=6e-4 + 2e-7 * deviation)
        peak = max(map(abs, samples))
        self.assertEqual(int(rows["peak"][c]), peak)
        at = [abs(x) for x in samples].index(peak)
        self.assertEqual(rows["peak at frame"][c], str(at) if peak else "-")
        crossings = sum((a < 0) != (b < 0) for a, b in zip(samples, samples[1:]))
        self.assertEqual(int(rows["zero crossings"][c]), crossings)
        if peak:
            self.assertAlmostEqual(float(rows["level"][c]), 10 * math.log10(squares / n) - 20 * math.log10(32768), delta=0.051)
            self.assertAlmostEqual(float(rows["peak level"][c]), 20 * math.log10(peak / 32768), delta=0.051)
        else:
            self.assertEqual((rows["level"][c], rows["peak level"][c]), ("-inf", "-inf"))

    def check(self, samples, channels=1, rate=48000):
        write_wave(self.path("a.wav"), samples, channels, rate)
        rows = reports(self.run_well("a.wav"))["a.wav"]
        for c in range(channels):
            self.check_channel(rows, c, samples[c::channels], rate)

    def test_noise_around_the_block(self):
        rng = random.Random(1)
        for channels in (1, 2, 6):
            for frames in (1, 2, 3, BLOCK // channels - 1, BLOCK // channels, BLOCK // channels + 1, 50000 // channels):
                with self.subTest(channels=channels, frames=frames):
                    self.check([rng.randrange(-32768, 32768) for _ in range(frames * channels)], channels, 44100)

    def test_borders(self):
        # A crossing, an exact zero and a new peak on the border of two blocks; ties go to the earliest.
        for here, there in ((5, -5), (-5, 5), (-5, 0), (0, -5), (5, 0), (-7, -7), (-32768, 32767)):
            samples = [3] * (BLOCK - 1) + [here, there] + [-3] * BLOCK
            self.check(samples)

    def test_means_that_differ_from_block_to_block(self):
        rng = random.Random(2)
        self.check([20000 + (i // BLOCK) * 3000 + rng.randrange(-3, 4) for i in range(4 * BLOCK + 77)])
        self.check([31000 + rng.randrange(-1, 2) for i in range(3 * BLOCK + 1)])

    def test_silence(self):
        self.check([0] * 40000)
        self.check([-32768] * 40000)
        write_wave(self.path("empty.wav"), [], 2)
        rows = reports(self.run_well("--plot", "levels.png", "empty.wav"))["empty.wav"]
        self.assertEqual(rows["mean"], ["-", "-"])
        Picture(self.path("levels.png"))

    def test_memory_does_not_grow(self):
        self.assert_memory_does_not_grow("--plot", "levels.png", "RECORDING")


class Files(ProgramTest):
    def setUp(self):
        super().setUp()
        for name, length in (("one.wav", 20000), ("two.wav", 7)):
            write_wave(self.path(name), range(length))
        write_wave(self.path("24bit.wav"), bytes(300), form="24")
        Path(self.path("text.txt")).write_text("no sound at all\n" * 20)
        Path(self.path("cut.wav")).write_bytes(Path(self.path("one.wav")).read_bytes()[:1000])

    def test_bad_files_spare_the_others(self):
        for bad in ("missing.wav", "24bit.wav", "text.txt", "cut.wav", "."):
            result = self.run_program("one.wav", bad, "two.wav")
            self.assertEqual(result.returncode, 1)
            self.assertEqual(list(reports(result.stdout)), ["one.wav", "two.wav"])
            self.assertRegex(result.stderr, rf"\Azels-stat: {re.escape(bad)}: .+\n\Z")
        result = self.run_program("--plot", "levels.png", "missing.wav", "one.wav")
        self.assertEqual(result.returncode, 1)
        Picture(self.path("levels.png"))

    def test_refusals(self):
        for named, arguments in (("missing.wav", ["--plot", "levels.png", "missing.wav"]),
                                 ("one.wav", ["--plot", "./one.wav", "two.wav", "one.wav"]),
                                 ("no/folder.png", ["--plot", "no/folder.png", "one.wav"]),
                                 ("/dev/full", ["--plot", "/dev/full", "one.wav"]),
                                 ("--help", []), ("--help", ["--unknown"])):
            self.assertIn(named, self.run_badly(*arguments))
        self.assertIn("usage: zels-stat", self.run_well("--help"))

    def test_picture(self):
        # Loud, then quiet: the filled area is high in the first half and low in the second.
        loud, quiet = [20000, -20000] * 12000, [20, -20] * 12000
        write_wave(self.path("a.wav"), loud + quiet)
        told = self.run_well("--plot", "levels.png", "a.wav")
        picture = Picture(self.path("levels.png"))
        self.assertIn(f"picture: levels.png, {picture.width} x {picture.height}", told)
        filled = picture.find(lambda r, g, b: b - r > 70)
        left, top, width, height = 80, 76, 1440, 150
        for place, level in ((0.25, 20000), (0.75, 20)):
            highest = min(y for x, y in filled if x == left + int(place * width) and y >= top)
            self.assertAlmostEqual(highest, top + height * 20 * math.log10(level / 32768) / -80, delta=2)
        for count in (2, 300):
            self.run_well("--plot", "levels.png", *count * ["two.wav"])
            Picture(self.path("levels.png"))


if __name__ == "__main__":
    main()
