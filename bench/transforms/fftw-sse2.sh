#!/bin/sh
# fftw-sse2.sh DIR: builds FFTW with vectors of 128 bits from Debian's source package into DIR, in both precisions.
# Debian's own build uses wider vectors; this one is the peer of equal width. Without a network it says so and
# succeeds: the benchmark then leaves the peer out.
set -e
out=$1
[ -e "$out/lib/libfftw3f.so" ] && [ -e "$out/lib/libfftw3.so" ] && exit 0
mkdir -p "$out/lists/partial"
cd "$out"
cat /etc/apt/sources.list /etc/apt/sources.list.d/debian.sources 2>/dev/null |
    sed 's/^Types: *deb$/Types: deb-src/' > sources.sources
apt_options="-o Dir::Etc::sourcelist=$out/sources.sources -o Dir::Etc::sourceparts=- -o Dir::State::lists=$out/lists"
if ! { apt-get $apt_options -qq update && apt-get $apt_options -qq --download-only source fftw3; } > fetch.log 2>&1; then
    echo "fftw-sse2: the source package cannot be had here; see $out/fetch.log"
    exit 0
fi
tar xf fftw3_*.orig.tar.*
for precision in --enable-float --disable-float; do
    mkdir -p "build$precision"
    (
        cd "build$precision"
        ../fftw-*/configure -q $precision --enable-sse2 --enable-shared --disable-static --disable-fortran \
            --disable-doc --prefix="$out" > configure.log 2>&1
        make -j2 > make.log 2>&1
        make install > install.log 2>&1
    )
done
