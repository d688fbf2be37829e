"""Tests of zels-filter."""
import math
import os
import pty
import random
import re
import signal
import subprocess
from pathlib import Path

from support import Picture, ProgramTest, main, read_wave, write_wave


def ideal(kind, low, high, t):
    """The tap at distance t from the middle of a filter of odd length."""
    up_to = lambda f: 2 * f if t == 0 else math.sin(2 * math.pi * f * t) / (math.pi * t)
    passed = up_to(high) - up_to(low) if "band" in kind else up_to(low)
    return (t == 0) - passed if kind in ("highpass", "bandstop") else passed


def taps_of(kind, low, high, count):
    """A Hamming-windowed filter whose gain is 1 where its kind is measured."""
    middle = (count - 1) / 2
    taps = [(0.54 - 0.46 * math.cos(2 * math.pi * i / (count - 1))) * ideal(kind, low, high, i - middle)
            for i in range(count)]
    at = {"lowpass": 0, "highpass": 0.5, "bandpass": (low + high) / 2, "bandstop": 0}[kind]
    gain = sum(tap * math.cos(2 * math.pi * at * (i - middle)) for i, tap in enumerate(taps))
    return [tap / gain for tap in taps]


def filtered(samples, channels, taps):
    """The recording through the taps, undelayed; only every 37th frame, and those at the ends, as {place: value}."""
    frames, delay, result = len(samples) // channels, (len(taps) - 1) // 2, {}
    for frame in sorted({*range(0, frames, 37), *range(min(frames, 40)), *range(max(0, frames - 40), frames)}):
        for c in range(channels):
            result[frame * channels + c] = sum(
                tap * samples[(frame + delay - k) * channels + c]
                for k, tap in enumerate(taps) if 0 <= frame + delay - k < frames)
    return result


class Exact(ProgramTest):
    def check(self, samples, channels, kind, low, high, count, rate=48000):
        write_wave(self.path("a.wav"), samples, channels, rate)
        edges = [str(low), str(high)] if "band" in kind else [str(low)]
        told = self.run_well("a.wav", "out.wav", "--" + kind, *edges, "--taps", str(count))
        found, found_channels, found_rate = read_wave(self.path("out.wav"))
        self.assertEqual((found_channels, found_rate, len(found)), (channels, rate, len(samples)))
        for place, value in filtered(samples, channels, taps_of(kind, low / rate, high / rate, count)).items():
            self.assertLess(abs(found[place] - max(-32768, min(32767, value))), 0.52, place)
        return told

    def test_kinds_lengths_and_channels(self):
        rng = random.Random(1)
        for channels, frames, kind, count in ((1, 16384, "lowpass", 5), (2, 16385, "highpass", 63),
                                              (3, 5000, "bandpass", 255), (1, 33000, "bandstop", 101),
                                              (6, 300, "lowpass", 1023), (1, 1, "highpass", 9), (2, 100, "bandstop", 255)):
            with self.subTest(kind=kind, frames=frames):
                noise = [rng.randrange(-9000, 9000) for _ in range(frames * channels)]
                self.check(noise, channels, kind, 3000, 9000.5, count, 44100)

    def test_clipping_is_counted(self):
        told = self.check([(-1) ** (i // 40) * 32767 for i in range(4000)], 1, "lowpass", 4000, 0, 101)
        self.assertGreater(int(re.search(r"clipped +(\d+)", told)[1]), 100)
        self.assertRegex(told, r"peak +[01]\.\d dBFS")

    def test_finer_formats(self):
        # What single precision within the filter may lose: units of 24 bits, and of a float of magnitude 3.
        rng = random.Random(2)
        for form, most, lost in (("24", 3 << 20, 3), ("float", 3, 3e-6)):
            noise = [rng.uniform(-most, most) for _ in range(2 * 20000)]
            samples = noise if form == "float" else [round(x) for x in noise]
            write_wave(self.path("a.wav"), samples, 2, form=form)
            told = self.run_well("a.wav", "out.wav", "--bandpass", "2000", "6000", "--taps", "127")
            self.assertEqual("clipped" in told, form == "24")
            found, channels, _ = read_wave(self.path("out.wav"), form)
            self.assertEqual((channels, len(found)), (2, len(samples)))
            for place, value in filtered(samples, 2, taps_of("bandpass", 2000 / 48000, 6000 / 48000, 127)).items():
                self.assertLess(abs(found[place] - value), lost)

    def test_no_samples(self):
        write_wave(self.path("a.wav"), [])
        self.assertIn("0 frames", self.run_well("a.wav", "out.wav", "--lowpass", "100", "--plot", "out.png"))
        self.assertEqual(len(read_wave(self.path("out.wav"))[0]), 0)
        self.assertGreater(Picture(self.path("out.png")).width, 1000)


class Pictures(ProgramTest):
    LEFT, TOP, WIDTH, HEIGHT, HIGH, LOW = 90, 84, 1320, 520, 10, -130

    def curve(self, matches):
        """The highest place of the matching pixels of each column, as {hertz: decibels}."""
        highest = {}
        for x, y in Picture(self.path("out.png")).find(matches):
            if self.LEFT <= x < self.LEFT + self.WIDTH and self.TOP <= y < self.TOP + self.HEIGHT:
                highest[x] = min(y, highest.get(x, y))
        return {20 * (24000 / 20) ** ((x + 0.5 - self.LEFT) / self.WIDTH):
                self.HIGH - (y + 1 - self.TOP) / self.HEIGHT * (self.HIGH - self.LOW) for x, y in highest.items()}

    def test_response_and_spectra(self):
        rng = random.Random(4)
        write_wave(self.path("a.wav"), [rng.randrange(-20000, 20000) for _ in range(100000)])
        self.run_well("a.wav", "out.wav", "--bandpass", "300", "3400", "--plot", "out.png")
        response = self.curve(lambda r, g, b: r > 200 and 110 < g < 170 and b < 80)
        after = self.curve(lambda r, g, b: r < 80 and 90 < g < 140 and b > 150)
        passed = [level for f, level in response.items() if 450 < f < 3200]
        self.assertGreater(len(passed), 300)
        for level in passed:
            self.assertAlmostEqual(level, 0, delta=1)
        stopped = [level for f, level in response.items() if f < 150 or 3700 < f < 20000]
        self.assertGreater(len(stopped), 300)
        self.assertLess(max(stopped), -45)
        inside = [level for f, level in after.items() if 500 < f < 3000]
        outside = [level for f, level in after.items() if 5000 < f < 20000]
        self.assertGreater(len(inside), 100)
        self.assertGreater(min(inside), max(outside, default=self.LOW) + 30)


class Refusals(ProgramTest):
    def test_refusals(self):
        write_wave(self.path("a.wav"), range(100))
        write_wave(self.path("8bit.wav"), bytes(300), form="8")
        Path(self.path("text.txt")).write_text("no sound at all\n" * 20)
        whole = Path(self.path("a.wav")).read_bytes()
        Path(self.path("cut.wav")).write_bytes(whole[:150])
        good = ["a.wav", "out.wav"]
        low = ["--lowpass", "1000"]
        for named, arguments in (
                ("missing.wav", ["missing.wav", "out.wav", *low]), ("8 bit", ["8bit.wav", "out.wav", *low]),
                ("text.txt", ["text.txt", "out.wav", *low]), ("cut.wav", ["cut.wav", "out.wav", *low]),
                ("a.wav", ["a.wav", "./a.wav", *low]), ("a.wav", [*good, *low, "--plot", "a.wav"]),
                ("out.wav", [*good, *low, "--plot", "out.wav"]), ("no/out.wav", ["a.wav", "no/out.wav", *low]),
                ("/dev/full", ["a.wav", "/dev/full", *low]), ("/dev/full", [*good, *low, "--plot", "/dev/full"]),
                ("24000", [*good, "--lowpass", "24000"]), ("30000", [*good, "--bandstop", "100", "30000"]),
                ("0", [*good, "--highpass", "0"]), ("-5", [*good, "--lowpass=-5"]), ("x", [*good, "--lowpass", "x"]),
                ("nan", [*good, "--bandpass", "nan", "100"]), ("below", [*good, "--bandpass", "200", "100"]),
                ("below", [*good, "--bandstop", "200", "200"]), ("two", [*good, "--bandstop", "200"]),
                ("100", [*good, "--highpass", "1000", "--taps", "100"]),
                ("64", [*good, "--bandstop", "100", "1000", "--taps", "64"]), ("4", [*good, *low, "--taps", "4"]),
                ("5.5", [*good, *low, "--taps", "5.5"]), ("65536", [*good, *low, "--taps", "65536"]),
                ("kaiser", [*good, *low, "--window", "kaiser"]), ("one filter", [*good, *low, "--highpass", "9"]),
                ("--help", good), ("--help", ["a.wav", *low]), ("--help", [*good, "b.wav", *low])):
            self.assertIn(named, self.run_badly(*arguments), arguments)
        self.assertIn("usage: zels-filter", self.run_well("--help"))
        self.run_well(*good, *low, "--taps", "100", "--window", "none")


class Long(ProgramTest):
    def test_memory_does_not_grow(self):
        self.assert_memory_does_not_grow("RECORDING", "out.wav", "--lowpass", "1000", "--plot", "out.png")

    def test_progress_and_interrupt(self):
        write_wave(self.path("long.wav"), random.Random(5).randbytes(1 << 20), channels=2, repeat=100)
        result = self.run_program("long.wav", "out.wav", "--bandpass", "100", "200")
        self.assertEqual(re.findall(r"zels-filter: (\d+) %\n", result.stderr), [str(10 * k) for k in range(1, 11)])
        self.assertRegex(result.stdout, r"speed .*, \d+ times faster than real time")
        screen, terminal = pty.openpty()
        subprocess.run([self.program, "long.wav", "out.wav", "--lowpass", "100"], cwd=self.folder,
                       stdout=subprocess.DEVNULL, stderr=terminal, check=True)
        os.close(terminal)
        drawn = os.read(screen, 65536)
        os.close(screen)
        self.assertIn(b"\r", drawn)
        os.remove(self.path("out.wav"))
        process = subprocess.Popen([self.program, "long.wav", "out.wav", "--lowpass", "100", "--taps", "65535"],
                                   cwd=self.folder, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        self.assertIn("10 %", process.stderr.readline())
        process.send_signal(signal.SIGINT)
        self.assertIn("interrupted", process.communicate()[1])
        self.assertEqual((process.returncode, os.listdir(self.folder)), (1, ["long.wav"]))


if __name__ == "__main__":
    main()
