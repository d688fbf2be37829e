#!/usr/bin/env bash
# Installs the build in folder $1, moves the result to folder $2, and builds and runs programs of an outside user against
# it: in C99 and in C++, with CMake and with pkg-config, with the shared libraries and with the static ones.
set -euo pipefail
here=$(cd "$(dirname "${BASH_SOURCE[0]}")" && pwd)
build=$1 work=$2
prefix=$work/moved
c99=(-std=c99 -pedantic -Wall -Wextra -Werror)
cxx=(-std=c++11 -pedantic -Wall -Wextra -Werror)

rm -rf "$work"
cmake --install "$build" --prefix "$work/installed" >/dev/null
mv "$work/installed" "$prefix"
export PKG_CONFIG_PATH PKG_CONFIG_LIBDIR=$prefix/none
PKG_CONFIG_PATH=$(dirname "$(find "$prefix" -name zels.pc)")
libdir=$(dirname "$PKG_CONFIG_PATH")

# run WHAT PROGRAM: the program says what it computed.
run() {
    local said
    said=$("$2")
    echo "$1: $said"
    [[ $said == "2.5 6.5 12.5, released, status -8 of a null pointer" ]]
}

# without LIBRARY PROGRAM
without() {
    if readelf -d "$2" | grep "NEEDED.*$1"; then
        echo "$2 needs $1" >&2
        return 1
    fi
}

# A program that names every exported function, as a C compiler sees it.
mkdir -p "$work/generated"
{
    echo '#include <zels.h>'
    echo 'typedef void (*Function)(void);'
    echo 'extern const Function all[];'
    echo 'const Function all[] = {'
    sed 's/.*/    (Function)&,/' "$here/../../abi/zels.symbols"
    echo '    0};'
    echo 'int main(void) { int n = 0; while (all[n]) n++; return n < 2; }'
} >"$work/generated/all.c"

echo "Each header by itself, in C99"
(cd "$prefix/include" && find . -name '*.h' -printf '%P\n') | while read -r header; do
    echo "#include <$header>" | "$CC" "${c99[@]}" -I"$prefix/include" -fsyntax-only -x c -
done

echo "pkg-config"
read -ra flags <<<"$(pkg-config --cflags zels)"
read -ra shared <<<"$(pkg-config --libs zels) -Wl,-rpath,$libdir"
read -ra static <<<"$(pkg-config --libs --static zels)"
"$CC" "${c99[@]}" "${flags[@]}" "$here/outside/program.c" "${shared[@]}" -o "$work/c"
"$CXX" "${cxx[@]}" "${flags[@]}" "$here/outside/program.cpp" "${shared[@]}" -o "$work/c++"
"$CC" "${c99[@]}" "${flags[@]}" -static "$here/outside/program.c" "${static[@]}" -o "$work/c-static"
"$CC" "${c99[@]}" "${flags[@]}" "$work/generated/all.c" "${shared[@]}" -o "$work/all"
"$CC" "${c99[@]}" "${flags[@]}" -static "$work/generated/all.c" "${static[@]}" -o "$work/all-static"
run "C, shared" "$work/c"
run "C++, shared" "$work/c++"
run "C, static" "$work/c-static"
"$work/all"
"$work/all-static"
[[ $(pkg-config --modversion zelcore) == "$(pkg-config --modversion zels)" ]]

echo "The program in README.md"
awk 'on && /^```/ {exit} on {print} /^```c$/ {on = 1}' "$here/../../README.md" >"$work/readme.c"
"$CC" "${c99[@]}" "${flags[@]}" "$work/readme.c" "${shared[@]}" -o "$work/readme"
expected=$(sed -n 's@.*printf.*/\* \(.*\) \*/@\1@p' "$work/readme.c")
[[ $expected ]]
said=$("$work/readme")
echo "README: $said"
[[ $said == "$expected" ]]

echo "CMake"
for language in C CXX; do
    cmake -G Ninja -S "$here/outside" -B "$work/$language" -DLANGUAGE=$language -DCMAKE_PREFIX_PATH="$prefix" >/dev/null
    cmake --build "$work/$language" >/dev/null
    for form in shared static; do
        run "$language, $form" "$work/$language/$form"
    done
    # The static program is static indeed.
    without libzel "$work/$language/static"
done
"$work/C/companion"
without libstdc "$work/C/shared"
without libstdc "$work/C/static"
