"""Tests of zels-spectrogram."""
import math
import re
from pathlib import Path

from support import Picture, ProgramTest, main, write_wave

LEFT, TOP, WIDTH, HEIGHT = 100, 76, 1320, 600  # the box of the spectrogram in its picture


def sine(frequency, frames, rate, amplitude):
    return [round(amplitude * math.sin(2 * math.pi * frequency * i / rate)) for i in range(frames)]


class Spectrogram(ProgramTest):
    def strongest(self, told):
        found = re.search(r"strongest +(\S+) dB at (\d+) Hz and (\S+) s", told)
        return float(found[1]), float(found[2]), float(found[3])

    def bright(self):
        """The places of the yellow pixels within the box, as fractions of its width and of its height from below."""
        picture = Picture(self.path("out.png"))
        return [((x + 0.5 - LEFT) / WIDTH, (TOP + HEIGHT - y - 0.5) / HEIGHT)
                for x, y in picture.find(lambda r, g, b: g > 150 and b < 210)
                if LEFT <= x < LEFT + WIDTH and TOP <= y < TOP + HEIGHT]

    def test_level_and_frequency(self):
        for size, k, amplitude in ((64, 5, 32767), (256, 1, 16384), (1024, 300, 3277), (4096, 2047, 328), (65536, 7, 20000)):
            rate = 32000
            write_wave(self.path("a.wav"), sine(k * rate / size, 2 * size + 4000, rate, amplitude), rate=rate)
            level, frequency, _ = self.strongest(self.run_well("-o", "out.png", "--size", str(size), "a.wav"))
            self.assertAlmostEqual(level, 20 * math.log10(amplitude / 32768), delta=0.06)
            self.assertAlmostEqual(frequency, k * rate / size, delta=0.51)

    def test_tones_stand_where_they_belong(self):
        # One channel has a low tone in its first half, the other a high one in its last quarter.
        frames, rate = 48000, 24000
        low = sine(1500, frames // 2, rate, 16000) + [0] * (frames // 2)
        high = [0] * (3 * frames // 4) + sine(9000, frames // 4, rate, 16000)
        write_wave(self.path("a.wav"), [x for pair in zip(low, high) for x in pair], 2, rate)
        level, frequency, _ = self.strongest(self.run_well("-o", "out.png", "a.wav"))
        self.assertAlmostEqual(level, 20 * math.log10(16000 / 32768) - 10 * math.log10(2), delta=0.1)
        self.assertIn(round(frequency / 10), (150, 900))
        places = self.bright()
        first, second = [p for p in places if p[1] < 0.5], [p for p in places if p[1] >= 0.5]
        for part, frequency, begin, end in ((first, 1500, 0, 0.5), (second, 9000, 0.75, 1)):
            self.assertAlmostEqual(min(x for x, _ in part), begin, delta=0.02)
            self.assertAlmostEqual(max(x for x, _ in part), end, delta=0.02)
            self.assertTrue(all(abs(y - frequency / 12000) < 0.015 for _, y in part))
        self.run_well("-o", "out.png", "--top", "3000", "a.wav")
        self.assertTrue(all(abs(y - 0.5) < 0.03 for _, y in self.bright()))

    def test_the_lowest_and_the_highest(self):
        for samples, low, high in (([16000] * 4000, 0, 0.08), ([16000, -16000] * 2000, 0.92, 1)):
            write_wave(self.path("a.wav"), samples)
            self.run_well("-o", "out.png", "--size", "64", "a.wav")
            heights = [y for x, y in self.bright() if 0.02 < x < 0.98]
            self.assertTrue(heights and low <= min(heights) and max(heights) <= high)

    def test_short_and_empty(self):
        for frames in (0, 1, 2, 100, 1319, 1321):
            write_wave(self.path("a.wav"), [1000] * frames)
            self.run_well("-o", "out.png", "a.wav")
            self.assertEqual(Picture(self.path("out.png")).height, 740)

    def test_memory_does_not_grow(self):
        self.assert_memory_does_not_grow("-o", "out.png", "RECORDING")

    def test_refusals(self):
        write_wave(self.path("a.wav"), range(100))
        write_wave(self.path("24bit.wav"), bytes(300), form="24")
        Path(self.path("text.txt")).write_text("no sound at all\n" * 20)
        for named, arguments in (("missing.wav", ["missing.wav"]), ("24bit.wav", ["24bit.wav"]),
                                 ("text.txt", ["text.txt"]), ("a.wav", ["-o", "a.wav", "a.wav"]),
                                 ("no/out.png", ["-o", "no/out.png", "a.wav"]),
                                 ("/dev/full", ["-o", "/dev/full", "a.wav"]),
                                 ("100", ["--size", "100", "a.wav"]), ("x", ["--size", "x", "a.wav"]),
                                 ("30000", ["--top", "30000", "a.wav"]), ("0", ["--top", "0", "a.wav"]),
                                 ("nan", ["--range", "nan", "a.wav"]), ("--help", []), ("--help", ["a.wav", "a.wav"])):
            self.assertIn(named, self.run_badly(*arguments))
        self.assertIn("usage: zels-spectrogram", self.run_well("--help"))


if __name__ == "__main__":
    main()
