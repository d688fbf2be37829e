#!/bin/sh
# fftw-sse2.sh DIR: builds FFTW with vectors of 128 bits into DIR, in both precisions, from the source in Debian's archive.
# Debian's own build uses wider vectors; this one is the peer of equal width. Where the source cannot be had, as
# without a network, this says so and succeeds: the benchmark then has the packaged build alone.
set -eu
out=$1
name=fftw3_3.3.10.orig.tar.gz
source=debian/pool/main/f/fftw3/$name
checksum=56c932549852cddcfafdab3820b0200c7742675be92179e59e6215b340e26467

[ -e "$out/lib/libfftw3f.so" ] && [ -e "$out/lib/libfftw3.so" ] && exit 0
mkdir -p "$out"
cd "$out"

for mirror in http://deb.debian.org http://ftp.debian.org; do
    echo "$checksum  $name" | sha256sum --check --status 2>/dev/null && break
    python3 -c 'import sys, urllib.request as u; open(sys.argv[2], "wb").write(u.urlopen(sys.argv[1], timeout=30).read())' \
        "$mirror/$source" "$name" || true
done 2> fetch.log
if ! echo "$checksum  $name" | sha256sum --check --status 2>/dev/null; then
    echo "fftw-sse2: the source of FFTW cannot be had here; see $out/fetch.log"
    exit 0
fi

tar xof "$name"
for precision in --enable-float --disable-float; do
    rm -rf build && mkdir build && cd build
    if ! { ../fftw-*/configure -q $precision --enable-sse2 --enable-shared --disable-static --disable-fortran \
        --disable-doc --prefix="$out" && make -j "$(nproc)" && make install; } > "../build$precision.log" 2>&1; then
        echo "fftw-sse2: FFTW does not build here; see $out/build$precision.log"
        exit 0
    fi
    cd .. && rm -r build
done
