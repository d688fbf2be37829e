"""Tests of the demo, on recordings made here; the name of the build folder comes in BUILD_DIR."""
import os
import random

from support import Picture, ProgramTest, main, read_wave, write_wave

NAMES = ("Front_Center Front_Left Front_Right Noise Rear_Center Rear_Left Rear_Right Side_Left Side_Right").split()


class Demo(ProgramTest):
    def setUp(self):
        super().setUp()
        os.environ["ZELS_DEMO_SOUNDS"] = self.folder

    def test_results(self):
        rng = random.Random(1)
        for name in NAMES:
            frames = rng.randrange(30000, 40000)
            write_wave(self.path(name + ".wav"), [rng.randrange(-9000, 9000) for _ in range(frames)])
        told = self.run_well(os.environ["BUILD_DIR"], "results")
        results = sorted(os.listdir(self.path("results")))
        self.assertTrue({"voices.wav", "levels.png", "spectrogram.png", "telephone.wav", "telephone.png"} <= set(results), results)
        self.assertIn("results:\n" + "\n".join(results), told)
        for name in results:
            path = os.path.join(self.path("results"), name)
            if name.endswith(".wav"):
                self.assertGreaterEqual(len(read_wave(path)[0]), 30000)
            else:
                self.assertGreater(Picture(path).width, 1000)

    def test_what_is_missing_is_told(self):
        self.assertIn("alsa-utils", self.run_badly(os.environ["BUILD_DIR"], "results"))
        self.assertIn("zels-examples", self.run_badly(self.folder, "results"))
        self.assertIn("usage", self.run_badly())


if __name__ == "__main__":
    main()
