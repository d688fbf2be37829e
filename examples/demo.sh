#!/usr/bin/env bash
# Mixes, measures, draws and filters recordings of spoken words, and tells where the results lie.
#
#   examples/demo.sh BUILD_DIR [OUT_DIR]
#
# BUILD_DIR holds the built programs (target zels-examples); the results go to OUT_DIR (without: demo); the recordings
# come with the package alsa-utils.
set -euo pipefail

if [[ $# -lt 1 || $# -gt 2 ]]; then
    echo "usage: $0 BUILD_DIR [OUT_DIR]" >&2
    exit 1
fi
programs=$1/examples
out=${2:-demo}
sounds=${ZELS_DEMO_SOUNDS:-/usr/share/sounds/alsa}

for program in zels-mix zels-stat zels-spectrogram zels-filter; do
    if [[ ! -x $programs/$program ]]; then
        echo "$0: $programs/$program is not built: cmake --build $1 --target zels-examples" >&2
        exit 1
    fi
done
if [[ ! -r $sounds/Front_Center.wav ]]; then
    echo "$0: no recordings in $sounds: install the package alsa-utils" >&2
    exit 1
fi
mkdir -p "$out"

echo "== Three voices over noise"
"$programs/zels-mix" -o "$out/voices.wav" --plot "$out/voices.png" \
    "$sounds/Front_Center.wav:1.5" "$sounds/Side_Left.wav:-1" "$sounds/Rear_Right.wav" "$sounds/Noise.wav:-6"
echo
echo "== Seven voices, too loud: the samples that do not fit are counted, and red in the picture"
"$programs/zels-mix" -o "$out/too-loud.wav" --plot "$out/too-loud.png" \
    "$sounds"/{Front_Left,Front_Right,Front_Center,Rear_Left,Rear_Right,Side_Left,Side_Right}.wav
echo
echo "== Their levels"
"$programs/zels-stat" --plot "$out/levels.png" "$sounds"/{Front_Center,Side_Left,Noise}.wav
echo
echo "== What sounds when"
"$programs/zels-spectrogram" -o "$out/spectrogram.png" --top 12000 "$sounds/Front_Center.wav"
echo
echo "== A voice as a telephone would have it"
"$programs/zels-filter" "$sounds/Front_Center.wav" "$out/telephone.wav" --bandpass 300 3400 \
    --plot "$out/telephone.png"
echo
echo "The results lie in $out:"
ls -1 "$out"
