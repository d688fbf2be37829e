"""What the tests of the example programs share: recordings, runs, pictures. Standard library only."""
import array
import os
import pathlib
import random
import struct
import subprocess
import sys
import tempfile
import unittest
import wave
import zlib


def f32(x):
    """x rounded to single precision."""
    return struct.unpack("f", struct.pack("f", x))[0]


def write_wave(path, samples, channels=1, rate=48000, width=2, repeat=1):
    """Writes interleaved 16-bit samples (or raw bytes, for other widths)."""
    data = samples if isinstance(samples, bytes) else array.array("h", samples).tobytes()
    with wave.open(path, "wb") as file:
        file.setparams((channels, width, rate, 0, "NONE", ""))
        for _ in range(repeat):
            file.writeframes(data)


def read_wave(path):
    """(samples, channels, rate) of a 16-bit wave file."""
    with wave.open(path, "rb") as file:
        assert file.getsampwidth() == 2
        return (array.array("h", file.readframes(file.getnframes())), file.getnchannels(), file.getframerate())


class Picture:
    """A PNG file of 8-bit red, green and blue, read with all its checks."""

    def __init__(self, path):
        data = pathlib.Path(path).read_bytes()
        assert data[:8] == b"\x89PNG\r\n\x1a\n", "not a PNG file"
        place, packed, kinds = 8, b"", []
        while place < len(data):
            length, kind = struct.unpack(">I4s", data[place : place + 8])
            body = data[place + 8 : place + 8 + length]
            (crc,) = struct.unpack(">I", data[place + 8 + length : place + 12 + length])
            assert crc == zlib.crc32(kind + body), "bad checksum"
            kinds.append(kind)
            if kind == b"IHDR":
                self.width, self.height, depth, colour, _, _, interlace = struct.unpack(">IIBBBBB", body)
                assert (depth, colour, interlace) == (8, 2, 0)
            if kind == b"IDAT":
                packed += body
            place += 12 + length
        assert kinds[0] == b"IHDR" and kinds[-1] == b"IEND"
        self.lines = zlib.decompress(packed)
        assert len(self.lines) == self.height * (3 * self.width + 1), "not as many pixels as promised"

    def rows(self):
        """Yields each row as bytes, three a pixel."""
        stride, above = 3 * self.width, bytearray(3 * self.width)
        for y in range(self.height):
            kind = self.lines[y * (stride + 1)]
            row = bytearray(self.lines[y * (stride + 1) + 1 : (y + 1) * (stride + 1)])
            for i in range(stride if kind else 0):
                left = row[i - 3] if i >= 3 else 0
                up, corner = above[i], above[i - 3] if i >= 3 else 0
                if kind == 4:
                    guess = left + up - corner
                    distances = abs(guess - left), abs(guess - up), abs(guess - corner)
                    guess = (left, up, corner)[distances.index(min(distances))]
                else:
                    guess = (0, left, up, (left + up) // 2)[kind]
                row[i] = (row[i] + guess) & 255
            above = row
            yield bytes(row)

    def find(self, matches):
        """The places (x, y) of the pixels whose colour `matches`."""
        found, known = [], {}
        for y, row in enumerate(self.rows()):
            for x in range(self.width):
                colour = row[3 * x : 3 * x + 3]
                if colour not in known:
                    known[colour] = matches(*colour)
                if known[colour]:
                    found.append((x, y))
        return found


class ProgramTest(unittest.TestCase):
    """Tests of one program, each in an empty folder of its own."""

    program = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(dir=os.getcwd())
        self.addCleanup(folder.cleanup)
        self.folder = folder.name

    def path(self, name):
        return os.path.join(self.folder, name)

    def run_program(self, *arguments):
        return subprocess.run([self.program, *arguments], cwd=self.folder, capture_output=True, text=True, timeout=120)

    def run_well(self, *arguments):
        result = self.run_program(*arguments)
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        return result.stdout

    def run_badly(self, *arguments):
        """Runs and expects failure, with nothing changed in the folder; returns the message."""
        snapshot = lambda: {name: os.stat(self.path(name)).st_mtime_ns for name in os.listdir(self.folder)}
        before = snapshot()
        result = self.run_program(*arguments)
        self.assertEqual(result.returncode, 1, result.stderr)
        self.assertEqual(snapshot(), before, "files were left behind or changed")
        self.assertNotIn("Traceback", result.stderr)
        return result.stderr

    def assert_memory_does_not_grow(self, *arguments):
        """Runs on stereo recordings of 10 and of 100 MiB, which take the place of RECORDING among the arguments."""
        megabyte = random.Random(3).randbytes(1 << 20)
        for name, length in (("long.wav", 10), ("longer.wav", 100)):
            write_wave(self.path(name), megabyte, channels=2, repeat=length)
        used = [self.peak_memory(*(word.replace("RECORDING", name) for word in arguments))
                for name in ("long.wav", "longer.wav")]
        self.assertLess(used[1], used[0] + (4 << 20))

    def peak_memory(self, *arguments):
        """Runs well and returns the most memory that was resident, in bytes."""
        process = subprocess.Popen([self.program, *arguments], cwd=self.folder, stdout=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(process.returncode, 0)
        return usage.ru_maxrss * 1024


def main():
    """Runs the tests of a file: PROGRAM [TEST...]."""
    ProgramTest.program = os.path.abspath(sys.argv.pop(1))
    unittest.main()
