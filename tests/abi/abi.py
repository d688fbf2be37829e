#!/usr/bin/env python3
"""Holds the built libraries against what the project promises of them.

    abi.py declared HEADER...                prints the names that the headers declare
    abi.py symbols LIST SHARED HEADER...     the list, the headers and the library name the same functions
    abi.py sources LIST FOLDER               each name of the list is defined once in the sources, under its full name
    abi.py needed SHARED LIBRARY...          the library needs these libraries and no others
    abi.py imports SHARED COMPANION LIBM     it calls its companion, the mathematics library and memcpy's kin alone
    abi.py data SHARED STATIC                it has no writable data and runs nothing when it is loaded
    abi.py instructions SHARED [GUARDED...]  it holds no instruction newer than SSE4.2 but the guarded ones

Every fault is printed on a line of its own; the exit status is 1 if there is any.
"""
import collections
import pathlib
import re
import subprocess
import sys


def output(*command, text=None):
    return subprocess.run(command, input=text, check=True, capture_output=True, text=True).stdout


def listed(path):
    return pathlib.Path(path).read_text().split()


def defined_symbols(library):
    """Names that a shared library exports."""
    return [line.split()[-1].split("@")[0] for line in output("nm", "-D", "--defined-only", library).splitlines()]


def declarations(headers):
    """Names that headers declare, and how often."""
    names = collections.Counter()
    for header in headers:
        text = re.sub(r"/\*.*?\*/|#define[^\n]*", "", pathlib.Path(header).read_text(), flags=re.S)
        names.update(re.findall(r"\bZEL\w*_API\b[^;{}]*?\b(\w+)\s*\(", text))
    return names


def symbols(list_path, library, *headers):
    """A list of "-" stands for a library without one."""
    declared = declarations(headers)
    exported = defined_symbols(library)
    for name, count in declared.items():
        if count > 1:
            yield f"{name}: declared {count} times"
    for name in sorted(set(declared) - set(exported)):
        yield f"{name}: declared, but not exported by {library}"
    for name in sorted(set(exported) - set(declared)):
        yield f"{name}: exported by {library}, but not declared"
    if list_path == "-":
        return
    names = listed(list_path)
    if names != sorted(set(names)):
        yield f"{list_path}: the names are not sorted, or one is there twice"
    for name in sorted(set(declared) - set(names)):
        yield f"{name}: declared, but not in {list_path}"
    for name in sorted(set(names) - set(declared)):
        yield f"{name}: in {list_path}, but not declared"


def sources(list_path, folder):
    """clang-format puts the result type of a definition at the start of its line, so a plain search finds it."""
    definition = re.compile(r"^(?:const )?\w+\*? (zels\w+)\(", re.M)
    found = collections.Counter()
    for path in pathlib.Path(folder).rglob("*.cpp"):
        found.update(definition.findall(path.read_text()))
    for name in listed(list_path):
        if found[name] != 1:
            yield f"{name}: {found[name]} definitions under its full name in {folder}"


def needed(library, *allowed):
    for name in re.findall(r"\(NEEDED\).*\[(.*)\]", output("readelf", "-dW", library)):
        if name not in allowed:
            yield f"{library} needs {name}"


# What the compiler calls for copies and fills of its own, and what its start files refer to.
COMPILERS_OWN = {"memcpy", "memmove", "memset", "memcmp", "__cxa_finalize", "__gmon_start__",
                 "_ITM_deregisterTMCloneTable", "_ITM_registerTMCloneTable"}


def imports(library, companion, mathematics):
    allowed = COMPILERS_OWN.union(defined_symbols(companion), defined_symbols(mathematics))
    for line in output("nm", "-D", "--undefined-only", library).splitlines():
        name = line.split()[-1].split("@")[0]
        if name not in allowed:
            yield f"{library} calls {name}"


SECTION = re.compile(r"^\s*\[ *\d+\] (\S+)\s+\S+\s+[0-9a-f]+ [0-9a-f]+ ([0-9a-f]+) [0-9a-f]+\s+([A-Z]*)\s", re.M)


def data(shared, static):
    """Constants that hold addresses are written by the dynamic linker alone, which then protects them: .data.rel.ro."""
    member = static
    sections = 0
    for line in output("readelf", "-SW", static).splitlines():
        if line.startswith("File: "):
            member = line[6:]
        if section := SECTION.match(line):
            name, size, flags = section.groups()
            sections += 1
            if "W" in flags and "A" in flags and int(size, 16) > 0 and not name.startswith(".data.rel.ro"):
                yield f"{member}: {int(size, 16)} bytes in {name}"
    if sections == 0:
        yield f"{static}: no sections found"
    for name, size, _ in SECTION.findall(output("readelf", "-SW", shared)):
        # One pointer each is the C run-time's own.
        if name in (".init_array", ".fini_array", ".ctors", ".preinit_array") and int(size, 16) > 8:
            yield f"{shared}: {int(size, 16) // 8} entries in {name}"


# GNU as knows which processor each instruction needs: what it takes for the first one with SSE4.2 may stay.
SSE42_PROCESSOR = "corei7"
# Older processors take these for no operation, and for bsf, which does the same wherever the operand is not zero; the
# compiler writes it only there. The last are the padding between functions.
HARMLESS = re.compile(r"\b(endbr64|tzcnt|nop[wl]?)\b")


def instructions(library, *guarded):
    """Guarded instructions run only after the processor was asked for them."""
    texts = collections.OrderedDict()
    for line in output("objdump", "-d", "--no-show-raw-insn", library).splitlines():
        instruction = re.match(r"\s+[0-9a-f]+:\t(.*)", line)
        if not instruction:
            continue
        text = re.sub(r"\s*(#.*|<.*>)", "", instruction[1]).strip()
        # Numbers do not matter: one of each kind is enough, and addresses stay in reach.
        text = re.sub(r"-?\b0x[0-9a-f]+\b", "0x10", text)
        text = re.sub(r"^((?:notrack |bnd )*(?:j\w+|call|xbegin)) +[0-9a-f]+$", r"\1 .", text)
        if text and text.split()[0] not in guarded and not HARMLESS.search(text):
            texts.setdefault(text, line.strip())
    if not texts:
        yield f"{library}: no instructions found"
    result = subprocess.run(["as", "-march=" + SSE42_PROCESSOR, "-o", "/dev/null", "-"],
                            input="\n".join(texts) + "\n", capture_output=True, text=True)
    lines = list(texts.values())
    complaints = re.findall(r"^\{standard input\}:(\d+): Error: (.*)", result.stderr, re.M)
    for number, complaint in complaints:
        yield f"{lines[int(number) - 1]}\t{complaint}"
    if result.returncode and not complaints:
        yield result.stderr


CHECKS = {check.__name__: check for check in (symbols, sources, needed, imports, data, instructions)}


def main():
    if len(sys.argv) < 3 or sys.argv[1] not in ("declared", *CHECKS):
        sys.exit(__doc__)
    if sys.argv[1] == "declared":
        print("\n".join(sorted(declarations(sys.argv[2:]))))
        return
    faults = list(CHECKS[sys.argv[1]](*sys.argv[2:]))
    print("\n".join(faults[:5000]))
    if faults:
        sys.exit(f"{len(faults)} faults")


main()
