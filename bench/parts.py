#!/usr/bin/env python3
"""Prints where the instructions of an edit go, from what callgrind_annotate tells of its profile.

    bench/parts.py CALLGRIND_FOLDER ROW...

A row is named by the beginning of its name. The edit is followed from its first call on. What a call
of a WHOLE part costs, with all that it calls, is that part's; other functions of the library are
followed into, and what is their own, with their calls of the C library, is the walk's or the rest's.
"""

import collections
import pathlib
import re
import subprocess
import sys

REST_AIM = 2.0  # per cent

# The first that is found in the name of the function decides.
WHOLE = (
    ("writing", r"CXmlOutput::Save\b"),
    ("document", r"pugi::|CXml|CAttributeReader|Append\w+(Element|Numbers|Group)\b|Read\w+(Element|File)\b"),
    ("records", r"My(Link|Erase|Clear)\w+|Listener::Take|QZList|basic_string|operator (new|delete)|:(malloc|free)\b"),
)
IN_LIBRARY = "NS_DIRECTORY::"
WALK = r"Find|Place|GroupNameForFile|ResolveGroup|ByName|ById|Load|Limits|Save\w+ToXml"
PARTS = ("document", "writing", "records", "walk", "rest")

LINE = re.compile(r"\s*([\d,]+) \([^)]*\)\s+([*>])\s+(.*?)(?: \([\d,]+x\))?(?: \[[^\]]*\])?$")


def call_graph(path):
    """Function -> (its instructions, [(callee, instructions of these calls)])."""
    text = subprocess.run(["callgrind_annotate", "--tree=calling", "--inclusive=yes", "--threshold=100", path],
                          check=True, capture_output=True, text=True).stdout
    graph, calls = {}, []
    for match in filter(None, map(LINE.match, text.splitlines())):
        count, mark, name = int(match[1].replace(",", "")), match[2], match[3]
        if mark == "*":
            calls = []
            graph[name] = (count, calls)
        else:
            calls.append((name, count))
    return graph


def bare(name):
    """Without arguments, which name types of everything."""
    name, left = name.replace("(anonymous namespace)::", ""), ""
    while name != left:
        left, name = name, re.sub(r"\([^()]*\)|<[^<>]*>", "", name)
    return name


def whole_part(name):
    return next((part for part, pattern in WHOLE if re.search(pattern, bare(name))), None)


def parts_of(graph):
    start = max((name for name in graph if IN_LIBRARY in bare(name)), key=lambda name: graph[name][0])
    parts, waiting, seen = collections.Counter(), [start], {start}
    while waiting:
        name = waiting.pop()
        own_part = "walk" if re.search(WALK, bare(name)) else "rest"
        count, calls = graph[name]
        parts[own_part] += count - sum(cost for _, cost in calls)
        for callee, cost in calls:
            part = whole_part(callee)
            if part or IN_LIBRARY not in bare(callee):
                parts[part or own_part] += cost
            elif callee not in seen:
                seen.add(callee)
                waiting.append(callee)
    return graph[start][0], parts


def profile(folder, row):
    mark = re.compile(rf"Client Request: measured\|[^|]*\|{re.escape(row)}")
    return next(path for path in folder.glob("callgrind.out.*") if mark.search(path.read_text()))


def main():
    folder = pathlib.Path(sys.argv[1])
    print()
    print("| An edit by its parts, instructions | all | " + " | ".join(PARTS) + f" | rest below {REST_AIM:g} % |")
    print("|---|" + "---:|" * (len(PARTS) + 1) + "---|")
    for row in sys.argv[2:]:
        total, parts = parts_of(call_graph(profile(folder, row)))
        assert sum(parts.values()) == total, f"{row}: the parts are not the whole"
        shares = [100 * parts[part] / total for part in PARTS]
        print(f"| {row} | {total / 1e6:.3g} M | " + " | ".join(f"{share:.1f} %" for share in shares)
              + f" | {'yes' if shares[-1] < REST_AIM else 'NO'} |")


main()
