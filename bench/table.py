#!/usr/bin/env python3
"""Prints the table of ratios and writes the points of the chart.

    bench/table.py TIMES.json CALLGRIND_FOLDER POINTS_FOLDER
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


def counted(folder):
    """Row name -> its line: callgrind dumped each side under a title of its own."""
    sides = {}
    for path in folder.glob("callgrind.out.*"):
        text = path.read_text()
        if "Client Request: " not in text:
            continue
        title = text.split("Client Request: ", 1)[1].split("\n", 1)[0]
        side, aim, name = title.split("|", 2)
        total = int(text.split("\ntotals: ", 1)[1].split("\n", 1)[0])
        sides.setdefault((name, float(aim)), {})[side] = total
    return {
        name: line(name + ", instructions", both["measured"], both["reference"],
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


def main():
    times, callgrind, points_folder = map(pathlib.Path, sys.argv[1:])
    rows = json.loads(times.read_text())["benchmarks"]
    instruction_lines = counted(callgrind)
    lines, series = [], {}
    for row in rows:
        name = row["name"].split("/iterations:")[0]
        if row["in_table"]:
            lines.append(line(name, row["measured"], row["reference"], row["ratio"], row["aim"], seconds))
            lines += filter(None, [instruction_lines.get(name)])
        if row.get("label"):
            point = (int(row["contacts"]), row["measured"], row["reference"])
            series.setdefault(row["label"], []).append(point)
    print_table(lines)
    if 'lookup' in series:
        print(f"The index overtakes the walk at {overtaken(series['lookup'])} contacts.")
    for name, points in series.items():
        text = "".join(f"{n} {measured} {reference}\n" for n, measured, reference in points)
        (points_folder / f"{name}.points").write_text(text)


main()
