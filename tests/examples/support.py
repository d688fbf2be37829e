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
import zlib


def f32(x):
    """x rounded to single precision."""
    return struct.unpack("f", struct.pack("f", x))[0]


# The samples of wave files: tag and bytes of each.
FORMATS = {"8": (1, 1), "16": (1, 2), "24": (1, 3), "32": (1, 4), "float": (3, 4), "double": (3, 8)}


def write_wave(path, samples, channels=1, rate=48000, form="16", repeat=1):
    """Writes interleaved samples, or their bytes."""
    tag, width = FORMATS[form]
    if not isinstance(samples, bytes):
        codes = {"16": "h", "32": "i", "float": "f", "double": "d"}
        samples = (array.array(codes[form], samples).tobytes() if form in codes else
                   b"".join((x & 0xFFFFFF).to_bytes(3, "little") for x in samples))
    length = len(samples) * repeat
    chunk = struct.pack("<4sIHHIIHH", b"fmt ", 16, tag, channels, rate, rate * channels * width, channels * width,
                        8 * width)
    with open(path, "wb") as file:
        file.write(struct.pack("<4sI4s", b"RIFF", 36 + length + length % 2, b"WAVE") + chunk)
        file.write(struct.pack("<4sI", b"data", length))
        for _ in range(repeat):
            file.write(samples)
        file.write(bytes(length % 2))


def read_wave(path, form="16"):
    """(samples, channels, rate) of a wave file, which has to be of this format."""
    data = pathlib.Path(path).read_bytes()
    assert (data[:4], data[8:12]) == (b"RIFF", b"WAVE")
    chunks, place = {}, 12
    while place < len(data):
        kind, length = struct.unpack_from("<4sI", data, place)
        chunks[kind] = data[place + 8 : place + 8 + length]
        place += 8 + length + length % 2
    tag, channels, rate, _, block, bits = struct.unpack_from("<HHIIHH", chunks[b"fmt "])
    assert (tag, bits, block) == (FORMATS[form][0], 8 * FORMATS[form][1], bits // 8 * channels)
    body = chunks[b"data"]
    if form == "24":
        samples = [int.from_bytes(body[i : i + 3], "little", signed=True) for i in range(0, len(body), 3)]
    else:
        samples = list(array.array({"16": "h", "float": "f"}[form], body))
    return samples, channels, rate


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
