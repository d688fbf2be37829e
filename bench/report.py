#!/usr/bin/env python3
"""Merges the results of benchmark programs into docs/performance.md, a section for each family.

    bench/report.py [-o docs/performance.md] [--command TEXT] RESULTS.json...

A family that is measured again replaces its section; all others stay. Of several runs of a program the quickest time
and the median ratio are taken: on short vectors a run's luck with the places of code in memory is worth some per cent.
TEXT stands in the document as the command that made the figures, in place of the programs' own command lines.
"""
import argparse
import json
import math
import pathlib
import re
import statistics
import sys

SLOWER = 0.97  # below, a ratio is no longer noise

HEAD = """# Performance

Each function is measured beside what a user would take instead: in the same run, in turns of a tenth of a millisecond.
The first line of a function is its own time; the lines of its peers are ratios, the peer's time over that of zels,
so that above 1 zels is faster. **Bold** ratios are below 0.97 against a peer of the same vector width. Lengths are in
elements. Ratios are to be trusted to about 1 per cent from 1,024 elements on, and to some per cent on shorter vectors;
times drift with the machine. The section of a function beside itself shows what noise there was; in that of special
values the ratios are what these cost, the time on them over that on ordinary numbers.

"-O3 loop" is the same loop as the compiler makes it at `-O3 -msse4.2`, without `restrict`. zels uses 128-bit vectors; a
peer that uses wider ones is named so. `-` means that there is no such peer. Arrays lie in the nearest cache that holds
them.
"""


def length_text(n):
    return f"{n >> 20} Mi" if n >= 1 << 20 and n % (1 << 20) == 0 else f"{n:,}"


def figure(x):
    return f"{x:.3g}" if x < 100 else f"{x:.0f}"


def table(functions, lengths):
    """Lines for functions that were measured at the same lengths."""
    yield "| Function | | " + " | ".join(length_text(n) for n in lengths) + " |"
    yield "|---|---|" + "--:|" * len(lengths)
    for function, rows in functions.items():
        own = {n: row["results"][0]["ns"] for n, row in rows.items()}
        lines = [("ns/element", {n: figure(own[n] / n) for n in own})]
        for key, unit in (("bytes", "GB/s"), ("flops", "GFLOP/s")):
            if any(row[key] for row in rows.values()):
                lines.append((unit, {n: figure(rows[n][key] * n / own[n]) for n in own}))
        peers = dict.fromkeys(r["name"] for row in rows.values() for r in row["results"][1:])
        for peer in peers:
            ratios = {n: r["ratio"] for n, row in rows.items() for r in row["results"][1:] if r["name"] == peer}
            mark = "**" if "wider" not in peer else ""
            lines.append((peer, {n: f"{mark}{ratio:.2f}{mark}" if ratio < SLOWER else f"{ratio:.2f}"
                                 for n, ratio in ratios.items()}))
        for k, (label, cells) in enumerate(lines):
            name = f"`{function}`" if k == 0 else ""
            yield f"| {name} | {label} | " + " | ".join(cells.get(n, "-") for n in lengths) + " |"


def is_wide(functions, lengths):
    """Whether functions that were measured at one length, beside the same peers, fill a table with a line each."""
    rows = [row for by_length in functions.values() for row in by_length.values()]
    return (len(lengths) == 1 and not any(row["bytes"] or row["flops"] for row in rows)
            and len({tuple(r["name"] for r in row["results"]) for row in rows}) == 1)


def wide_table(functions, length):
    """A line for each function, its peers beside each other."""
    rows = {function: by_length[length]["results"] for function, by_length in functions.items()}
    peers = [r["name"] for r in next(iter(rows.values()))[1:]]
    yield f"| {length_text(length)} elements | ns/element | " + " | ".join(peers) + " |"
    yield "|---|--:|" + "--:|" * len(peers)
    for function, (own, *others) in rows.items():
        cells = [figure(own["ns"] / length), *(f"{r['ratio']:.2f}" for r in others)]
        yield f"| `{function}` | " + " | ".join(cells) + " |"


def merged(runs):
    """The rows of several runs as those of one."""
    rows = {}
    for row in (row for run in runs for row in run):
        rows.setdefault((row["function"], row["length"]), []).append(row)
    for same in rows.values():
        results = {}
        for result in (result for row in same for result in row["results"]):
            results.setdefault(result["name"], []).append(result)
        yield {**same[0], "results": [{"name": name, "ns": min(r["ns"] for r in found),
                                       "ratio": statistics.median(r["ratio"] for r in found)}
                                      for name, found in results.items()]}


def section(rows):
    functions = {}
    for row in rows:
        functions.setdefault(row["function"], {})[row["length"]] = row
    groups = {}
    for function, by_length in functions.items():
        groups.setdefault(tuple(by_length), {})[function] = by_length
    for lengths, group in groups.items():
        yield from wide_table(group, lengths[0]) if is_wide(group, lengths) else table(group, lengths)
        yield ""
    for peer in dict.fromkeys(r["name"] for row in rows for r in row["results"][1:]):
        ratios = [r["ratio"] for row in rows for r in row["results"][1:] if r["name"] == peer]
        mean = math.exp(sum(map(math.log, ratios)) / len(ratios))
        below = sum(ratio < SLOWER for ratio in ratios)
        yield (f"- Against {peer}: geometric mean {mean:.2f}, lowest {min(ratios):.2f}, "
               f"highest {max(ratios):.2f}, {below} of {len(ratios)} below {SLOWER}")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("-o", "--output", type=pathlib.Path,
                        default=pathlib.Path(__file__).resolve().parent.parent / "docs" / "performance.md")
    parser.add_argument("--command")
    parser.add_argument("results", nargs="+", type=pathlib.Path)
    options = parser.parse_args()

    sections = {}
    if options.output.exists():
        for part in re.split(r"^(?=## )", options.output.read_text(), flags=re.M)[1:]:
            sections[part.split("\n", 1)[0]] = part.rstrip() + "\n"
    runs = {}
    for path in options.results:
        data = json.loads(path.read_text())
        for family in dict.fromkeys(row["family"] for row in data["rows"]):
            rows = [row for row in data["rows"] if row["family"] == family]
            runs.setdefault(f"## {data['subsystem']}: {family}", []).append((data, rows))
    for heading, found in runs.items():
        data = found[-1][0]
        origin = (f"{data['date']}, {data['processor']} ({data['caches']}), peers by {data['compiler']}, "
                  f"`{options.command or data['command']}`")
        lines = section(list(merged(rows for _, rows in found)))
        sections[heading] = "\n".join([heading, "", origin, "", *lines]) + "\n"
    options.output.parent.mkdir(parents=True, exist_ok=True)
    options.output.write_text("\n".join([HEAD, *(sections[heading] for heading in sorted(sections))]))
    return 0


if __name__ == "__main__":
    sys.exit(main())
