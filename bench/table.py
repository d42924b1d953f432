#!/usr/bin/env python3
"""Prints the table of ratios and writes the points of the chart.

    bench/table.py TIMES.json CALLGRIND_FOLDER EMULATOR.log POINTS_FOLDER
"""

import json
import pathlib
import sys

UNITS = ((1.0, "s"), (1e-3, "ms"), (1e-6, "us"), (1e-9, "ns"))


def seconds(value):
    factor, unit = next((u for u in UNITS if value >= u[0]), UNITS[-1])
    return f"{value / factor:.3g} {unit}"


def instructions(value):
    return f"{value / 1e6:.3g} M" if value >= 1e6 else f"{value / 1e3:.3g} k"


def line(name, measured, reference, ratio, aim, form):
    met = "" if aim == 0 else "yes" if ratio <= aim else "NO"
    return (name, form(measured), form(reference), f"{ratio:.2f}", f"{aim:.2f}" if aim else "-", met)


def counts_of_callgrind(folder):
    """Yields titles and counts: callgrind dumped each side under a title of its own."""
    for path in folder.glob("callgrind.out.*"):
        text = path.read_text()
        if "Client Request: " in text:
            yield (text.split("Client Request: ", 1)[1].split("\n", 1)[0],
                   int(text.split("\ntotals: ", 1)[1].split("\n", 1)[0]))


def counts_of_emulator(log):
    for text in log.read_text().splitlines():
        title, count = text.rsplit("|", 1)
        yield title, int(count)


def counted(counts, unit, has_aim=True):
    """Row name -> its line."""
    sides = {}
    for title, count in counts:
        side, aim, name = title.split("|", 2)
        sides.setdefault((name, float(aim) if has_aim else 0), {})[side] = count
    return {
        name: line(f"{name}, {unit}", both["measured"], both["reference"],
                   both["measured"] / both["reference"], aim, instructions)
        for (name, aim), both in sides.items()
    }


def print_table(lines):
    head = ("Work / reference", "measured", "reference", "ratio", "aim", "met")
    print("| " + " | ".join(head) + " |")
    print("|---|---:|---:|---:|---:|---|")
    for entry in lines:
        print("| " + " | ".join(entry) + " |")
    print()
    missed = [entry[0] for entry in lines if entry[-1] == "NO"]
    print(f"{len(missed)} aims missed" + "".join("\n  " + name for name in missed))


def overtaken(points):
    """The number of contacts at which the walk begins to take longer than the index."""
    for (n0, walk0, index0), (n1, walk1, index1) in zip(points, points[1:]):
        if walk0 <= index0 and walk1 > index1:
            share = (index0 - walk0) / ((index0 - walk0) + (walk1 - index1))
            return round(n0 + share * (n1 - n0))
    return None


def share_reference(series, name, other):
    """Puts a series on the reference of the other, which did the same at another moment."""
    references = {n: reference for n, _, reference in series.get(other, [])}
    series[name] = [(n, measured / reference * references[n], references[n])
                    for n, measured, reference in series.get(name, []) if n in references]


def main():
    times, callgrind, emulator, points_folder = map(pathlib.Path, sys.argv[1:])
    rows = json.loads(times.read_text())["benchmarks"]
    by_instructions = (counted(counts_of_callgrind(callgrind), "instructions"),
                       counted(counts_of_emulator(emulator), "instructions on armhf", has_aim=False))
    lines, series = [], {}
    for row in rows:
        name = row["name"].split("/iterations:")[0]
        if row["in_table"]:
            lines.append(line(name, row["measured"], row["reference"], row["ratio"], row["aim"], seconds))
            lines += [named[name] for named in by_instructions if name in named]
        if row.get("label"):
            point = (int(row["contacts"]), row["ratio"] * row["reference"], row["reference"])
            series.setdefault(row["label"], []).append(point)
    print_table(lines)
    if "lookup" in series:
        print(f"The index overtakes the walk at {overtaken(series['lookup'])} contacts.")
    share_reference(series, "load_any_order", "load")
    for name, points in series.items():
        text = "".join(f"{n} {measured} {reference}\n" for n, measured, reference in points)
        (points_folder / f"{name}.points").write_text(text)


main()
