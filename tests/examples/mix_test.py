"""Tests of zels-mix."""
import math
import os
import pty
import random
import re
import signal
import struct
import subprocess
from pathlib import Path

from support import Picture, ProgramTest, f32, main, read_wave, write_wave

BLOCK = 16384  # samples that the program handles at a time


# Units of each format in one of 16 bits; what is finer than 24 bits is mixed as floats.
UNITS = {"16": 1, "24": 2**8, "32": 2**16, "float": 2**-15, "double": 2**-15}


def clamp(x, bits):
    return max(-(1 << bits - 1), min((1 << bits - 1) - 1, x))


def model(sources, channels=1, rate=48000, fade=0.0, form="16"):
    """The mix of [(samples in 16-bit units, gain in decibels)], by the definition, in single precision where the
    program has it, and how many samples are clipped."""
    mixed = [0.0] * max(len(samples) for samples, _ in sources)
    for samples, decibels in sources:
        gain, frames = f32(10 ** (decibels / 20)), len(samples) // channels
        length = min(math.floor(fade * rate + 0.5), frames // 2)
        for i, sample in enumerate(samples):
            part, frame = f32(sample * gain), i // channels
            from_end = min(frame, frames - 1 - frame)
            if from_end < length:
                part = f32(part * f32((from_end + 0.5) * f32(1 / length)))
            mixed[i] = f32(mixed[i] + part)
    if form == "float":
        return [f32(x / 32768) for x in mixed], 0
    rounded = [round(x * UNITS[form]) for x in mixed]
    clipped = [clamp(x, int(form)) for x in rounded]
    return clipped, sum(x != y for x, y in zip(rounded, clipped))


class Exact(ProgramTest):
    def check(self, sources, channels=1, rate=48000, fade=0.0, forms=("16",), asked=None):
        """Mixes [(samples, gain)] of these formats in turn, into the format asked for or the finest of theirs."""
        arguments, units = ["--format", asked] if asked else [], []
        for number, (samples, gain) in enumerate(sources):
            form = forms[number % len(forms)]
            write_wave(self.path(f"{number}.wav"), samples, channels, rate, form)
            arguments.append(f"{number}.wav:{gain!r}")
            units.append(([f32(x / UNITS[form]) for x in samples], gain))
        told = self.run_well("-o", "mix.wav", "--fade", str(fade), *arguments)
        form = asked or ("16" if {*forms} == {"16"} else "24" if {*forms} <= {"16", "24"} else "float")
        self.assertIn("mix.wav, " + (form if form == "float" else form + "-bit"), told)
        mixed, mixed_channels, mixed_rate = read_wave(self.path("mix.wav"), form)
        expected, clipped = model(units, channels, rate, fade, form)
        self.assertEqual((mixed_channels, mixed_rate, len(mixed)), (channels, rate, len(expected)))
        wrong = [i for i in range(len(expected)) if mixed[i] != expected[i]]
        self.assertEqual(wrong[:5], [])
        self.assertEqual(int(re.search(r"clipped +(\d+)", told)[1]), clipped)
        return told

    def test_sum_and_saturation(self):
        told = self.check([([32767, -32768, 32767, -32768, 5, 0, 20000], 0), ([1, -1, 32767, -32768, -7, 0], 0)])
        self.assertIn("peak       6.0 dBFS at 0.000 s", told)
        self.assertIn("clipped    4 samples", told)
        self.assertIn("7 frames", told)

    def test_ties_go_to_even(self):
        half = -6.020599913279624  # a factor of one half in single precision
        self.check([([1, 3, 5, 7, -1, -3, -5, -7, 32767, -32768], half)])
        # 32767.5 rounds out of the range, -32768.5 rounds into it.
        self.check([([32767, -32768, 32766, -32767], 0), ([1, -1, 1, -3], half)])

    def test_lengths_around_the_block(self):
        rng = random.Random(1)
        noise = lambda frames, channels: [rng.randrange(-32768, 32768) for _ in range(frames * channels)]
        for channels in (1, 2, 6):
            block = BLOCK // channels
            for first, second in ((block - 1, block), (block, block + 1), (block + 1, 2 * block + 1), (1, 2)):
                with self.subTest(channels=channels, first=first, second=second):
                    self.check([(noise(first, channels), 0), (noise(second, channels), 0)], channels, 44100)

    def test_gains_and_fades(self):
        rng = random.Random(2)
        for channels, frames, fade in ((1, 40001, 0.4), (2, 9001, 0.01), (6, 25, 0.01), (1, 1, 0.01), (2, 2, 0.01)):
            with self.subTest(channels=channels, frames=frames):
                noise = lambda: [rng.randrange(-32768, 32768) for _ in range(frames * channels)]
                self.check([(noise(), -3.5), (noise(), 4.25), (noise()[:channels], -20)], channels, fade=fade)

    def test_formats(self):
        rng = random.Random(4)
        half = -6.020599913279624
        most = 8388607
        whole = [most, -most - 1, most, -most - 1, 1, 3, -1, -3, 127, 128, 129, -128, 384, most - 127, most - 128]
        self.check([(whole, 0)], forms=["24"])
        self.check([(whole, half), ([1, -1] * 4, 0)], forms=["24"])
        self.check([(whole, 0), (whole, half)], forms=["24"])
        self.check([(whole, 0)], forms=["24"], asked="16")
        self.check([([1, -1, 32767, -32768], 0)], forms=["16"], asked="24")
        parts = [0.5, -0.5, 1.0, -1.0, 1.5, -3.0, 1e-30, 0.75 + 2**-24, 32766.5 / 32768, -32768.5 / 32768, 2**-16]
        for asked in (None, "24", "16"):
            self.check([(parts, 0), (parts[::-1], half)], forms=["float"], asked=asked)
            self.check([(parts, 0), ([100, -200], 0)], forms=["double", "16"], asked=asked)
            self.check([([2**31 - 1, -(2**31), 12345678, 1 << 15], 0), (whole, -3)], forms=["32", "24"], asked=asked)
        noise = lambda count, form: [rng.uniform(-1, 1) if form == "float" else rng.randrange(-most, most)
                                     for _ in range(count)]
        for channels, frames in ((1, BLOCK + 3), (2, BLOCK // 2 - 1), (6, 2 * (BLOCK // 6) + 1)):
            for forms in (["24"], ["float", "24"]):
                with self.subTest(channels=channels, forms=forms):
                    self.check([(noise(frames * channels, forms[0]), -3.5), (noise(frames * channels, forms[-1]), 4)],
                               channels, fade=0.01, forms=forms)

    def test_another_container(self):
        """Of one that has the high byte first."""
        samples = [8388607, -8388608, 1, -2, 100000]
        data = b"".join((x & 0xFFFFFF).to_bytes(3, "big") for x in samples)
        Path(self.path("big.au")).write_bytes(struct.pack(">4s5I", b".snd", 24, len(data), 4, 48000, 1) + data)
        self.run_well("-o", "mix.wav", "--fade", "0", "big.au")
        self.assertEqual(read_wave(self.path("mix.wav"), "24")[0], samples)

    def test_no_samples(self):
        write_wave(self.path("empty.wav"), [])
        write_wave(self.path("one.wav"), [77])
        told = self.run_well("-o", "mix.wav", "--plot", "mix.png", "empty.wav")
        self.assertIn("0 frames", told)
        self.assertEqual(len(read_wave(self.path("mix.wav"))[0]), 0)
        self.assertGreater(Picture(self.path("mix.png")).height, 100)
        self.run_well("-o", "mix.wav", "--fade=0", "empty.wav", "one.wav", "empty.wav")
        self.assertEqual(read_wave(self.path("mix.wav"))[0], [77])


class Names(ProgramTest):
    def test_colons(self):
        for name in ("a:b.wav", "a:-6", "a:-6:-6"):
            write_wave(self.path(name), [1000] * 10)
            for argument, expected in ((name, 1000), (name + ":-20", 100)):
                self.run_well("-o", "mix.wav", "--fade", "0", argument)
                self.assertEqual(read_wave(self.path("mix.wav"))[0], [expected] * 10, argument)

    def test_names_that_are_no_text(self):
        raw = os.fsencode(self.folder) + b"/\xff\xfe\x1b\xc3.wav"
        write_wave(os.fsdecode(raw), [1000] * 10)
        long = "x" * 200 + "\u20ac.wav"
        write_wave(self.path(long), [1000] * 10)
        result = subprocess.run([self.program, "--plot", "mix.png", raw, long], cwd=self.folder, capture_output=True)
        self.assertEqual((result.returncode, result.stderr), (0, b""))
        Picture(self.path("mix.png"))

    def test_outputs_replace(self):
        write_wave(self.path("in.wav"), [5] * 10)
        write_wave(self.path("target.wav"), [9] * 999)
        os.symlink("target.wav", self.path("link.wav"))
        self.run_well("-o", "link.wav", "--fade", "0", "in.wav")
        self.assertTrue(os.path.islink(self.path("link.wav")))
        self.assertEqual(read_wave(self.path("target.wav"))[0], [5] * 10)
        self.run_well("-o", "/dev/null", "in.wav")
        self.assertFalse(os.path.isfile("/dev/null"))

    def test_help(self):
        self.assertIn("usage: zels-mix", self.run_well("--help"))


class Refusals(ProgramTest):
    def setUp(self):
        super().setUp()
        write_wave(self.path("good.wav"), range(-500, 500))
        write_wave(self.path("rate.wav"), range(100), rate=44100)
        write_wave(self.path("stereo.wav"), range(100), channels=2)
        write_wave(self.path("8bit.wav"), bytes(300), form="8")
        for name in ("nan", "inf", "1e7"):
            write_wave(self.path(name + ".wav"), [0.5, float(name)], form="float")
        Path(self.path("text.txt")).write_text("no sound at all\n" * 20)
        Path(self.path("nothing.wav")).touch()
        whole = Path(self.path("good.wav")).read_bytes()
        Path(self.path("header.wav")).write_bytes(whole[:30])
        Path(self.path("cut.wav")).write_bytes(whole[:1000])
        os.mkdir(self.path("folder"))

    def refuse(self, names, *arguments):
        message = self.run_badly(*arguments)
        self.assertTrue(message.startswith("zels-mix: "), message)
        for name in names:
            self.assertIn(name, message)

    def test_recordings(self):
        for name in ("missing.wav", "nan.wav", "inf.wav", "1e7.wav", "8bit.wav", "text.txt", "nothing.wav", "header.wav", "cut.wav",
                     "folder", "missing.wav:-3", "missing:1.wav"):
            for others in ([], ["good.wav"]):
                self.refuse([name.removesuffix(":-3")], "-o", "mix.wav", "--plot", "mix.png", *others, name)
        self.refuse(["8 bit"], "8bit.wav")
        self.refuse(["rate.wav", "44100", "good.wav", "48000"], "good.wav", "rate.wav")
        self.refuse(["stereo.wav", "good.wav", "mono"], "good.wav", "good.wav", "stereo.wav")

    def test_gains(self):
        for gain in ("abc", "", "6dB", "nan", "inf", "--6", "+-6", "1e9", "-121", " 6"):
            self.refuse(["good.wav", gain], "good.wav", "good.wav:" + gain)

    def test_outputs(self):
        os.symlink("good.wav", self.path("alias.wav"))
        os.link(self.path("good.wav"), self.path("twin.wav"))
        for path in ("no/such/folder.wav", "folder", "", "/dev/full"):
            self.refuse([path], "-o", path, "good.wav")
            self.refuse([path], "--plot", path, "good.wav")
        for path in ("good.wav", "./good.wav", "folder/../good.wav", "alias.wav", "twin.wav"):
            self.refuse([path], "-o", path, "good.wav")
            self.refuse([path], "-o", "mix.wav", "--plot", path, "good.wav")
        self.refuse(["mix.out"], "-o", "mix.out", "--plot", "./mix.out", "good.wav")

    def test_a_failure_spares_the_former_output(self):
        self.run_well("-o", "mix.wav", "--plot", "mix.png", "good.wav")
        self.refuse(["cut.wav"], "-o", "mix.wav", "--plot", "mix.png", "good.wav", "cut.wav")
        self.refuse(["/dev/full"], "-o", "mix.wav", "--plot", "/dev/full", "good.wav")

    def test_command_line(self):
        self.refuse(["--help"])
        self.refuse(["--help"], "--unknown", "good.wav")
        self.refuse(["--help"], "good.wav", "-o")
        for seconds in ("x", "-1", "nan", "1e9"):
            self.refuse([seconds], "--fade", seconds, "good.wav")
        for form in ("12", "", "double", "Float"):
            self.refuse(["--format " + form], "--format", form, "good.wav")


class Long(ProgramTest):
    def setUp(self):
        super().setUp()
        rng = random.Random(3)
        write_wave(self.path("short.wav"), [rng.randrange(-9000, 9000) for _ in range(40000)], channels=2)
        write_wave(self.path("long.wav"), rng.randbytes(1 << 20), channels=2, repeat=100)

    def test_memory_does_not_grow(self):
        self.assert_memory_does_not_grow("-o", "mix.wav", "--plot", "mix.png", "RECORDING", "RECORDING:-6")
        self.assertEqual(os.path.getsize(self.path("mix.wav")), os.path.getsize(self.path("longer.wav")))

    def test_progress(self):
        result = self.run_program("-o", "mix.wav", "long.wav")
        self.assertEqual(re.findall(r"zels-mix: (\d+) %\n", result.stderr), [str(10 * k) for k in range(1, 11)])
        self.assertRegex(result.stdout, r"speed .*, \d+ times faster than real time")
        self.assertEqual(self.run_well("-o", "mix.wav", "short.wav").count("%"), 0)
        for name, shown in (("long.wav", True), ("short.wav", False)):
            screen, terminal = pty.openpty()
            subprocess.run([self.program, "-o", "mix.wav", name], cwd=self.folder, stdout=subprocess.DEVNULL,
                           stderr=terminal, check=True)
            os.close(terminal)
            drawn = b""
            try:
                while piece := os.read(screen, 65536):
                    drawn += piece
            except OSError:
                pass
            os.close(screen)
            self.assertEqual(b"\r" in drawn and b"100 %" in drawn, shown)
            self.assertTrue(not shown or drawn.endswith(b"\r\x1b[K"), "the bar is not wiped out in the end")

    def test_an_interrupt_leaves_nothing(self):
        before = sorted(os.listdir(self.folder))
        process = subprocess.Popen([self.program, "-o", "mix.wav", "--plot", "mix.png"] + 8 * ["long.wav"],
                                   cwd=self.folder, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, text=True)
        self.assertIn("10 %", process.stderr.readline())
        process.send_signal(signal.SIGINT)
        message = process.communicate()[1]
        self.assertEqual(process.returncode, 1)
        self.assertIn("interrupted", message)
        self.assertEqual(sorted(os.listdir(self.folder)), before)


class Pictures(ProgramTest):
    def picture(self, *arguments):
        told = self.run_well("-o", "mix.wav", "--plot", "mix.png", "--fade", "0", *arguments)
        picture = Picture(self.path("mix.png"))
        width, height = map(int, re.search(r"picture +mix.png, (\d+) x (\d+)", told).groups())
        self.assertEqual((picture.width, picture.height), (width, height))
        return picture

    def test_waveforms_and_clipping(self):
        # Silence, then a loud square wave; the clipped half-waves are between 75 % and 100 % of the length.
        square = [0] * 4000 + [(-1) ** (i // 5) * 20000 for i in range(4000)]
        write_wave(self.path("a.wav"), square)
        write_wave(self.path("b.wav"), [0] * 6000 + square[6000:])
        is_red = lambda r, g, b: r > 150 and g < 80 and b < 80
        is_ink = lambda r, g, b: max(r, g, b) < 70
        picture = self.picture("a.wav:-1")
        self.assertEqual(picture.find(is_red), [])
        left, width = 80, 1440  # the box that holds the waveforms
        ink = [x for x, y in picture.find(is_ink) if y > picture.height - 200]
        wave = [x for x in set(ink) if ink.count(x) > 40 and left <= x <= left + width]
        self.assertAlmostEqual(min(wave), left + width / 2, delta=3)
        self.assertAlmostEqual(max(wave), left + width, delta=3)
        red = [x for x, _ in self.picture("a.wav", "b.wav").find(is_red)]
        self.assertAlmostEqual(min(red), left + 0.75 * width, delta=4)
        self.assertGreater(max(red), left + 0.99 * width)

    def test_sizes(self):
        write_wave(self.path("a.wav"), range(3))
        heights = [self.picture(*count * ["a.wav"]).height for count in (1, 2, 40, 300)]
        self.assertEqual(heights, sorted(set(heights)))
        self.assertLess(heights[-1], 32768)


if __name__ == "__main__":
    main()
