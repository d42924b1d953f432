"""Checks that the documents show what is there and that their links lead somewhere. With --fix
what they show is brought up to date. scripts/check-docs runs this, with the programs built.

A block is checked where the line above it says where its text comes from:

    <!-- from PATH -->               lines of that file
    <!-- printed by PROGRAM -->      what the program of docs/examples prints
    <!-- made by PROGRAM: FILE -->   a file that it leaves in its data folder
"""

import pathlib
import re
import subprocess
import sys
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build" / "docs"
BLOCK = re.compile(
    r"<!-- (from|printed by|made by) (\S+?)(?:: (\S+))? -->\n```\w*\n(.*?)```\n", re.DOTALL)
LINK = re.compile(r"\]\(([^)#\s]*)(#[^)\s]*)?\)")
CODE = re.compile(r"```.*?```|`[^`\n]*`", re.DOTALL)


def run(program, made):
    """What the program prints, or the file that it makes, in a fresh folder."""
    with tempfile.TemporaryDirectory() as folder:
        data = pathlib.Path(folder, "config", "data")
        data.mkdir(parents=True)
        printed = subprocess.run([BUILD / program], cwd=folder, check=True, text=True,
                                 stdout=subprocess.PIPE).stdout
        return (data / made).read_text("utf-8") if made else printed


def source_text(kind, name, made, shown):
    """The text that a block should show, as far as that can be told."""
    if kind != "from":
        return run(name, made)
    source = (ROOT / name).read_text("utf-8")
    if shown and shown in source:
        return shown
    # The block begins and ends where the old one did; an empty block shows the whole file.
    lines = shown.splitlines(keepends=True)
    first, last = (lines[0], lines[-1]) if lines else ("", "")
    begin = source.find(first) if first else 0
    end = source.find("\n" + last, begin) + 1 + len(last) if last else len(source)
    return source[begin:end]


def check_blocks(document, text, fix):
    faults = []

    def compare(match):
        kind, name, made, shown = match.groups()
        wanted = source_text(kind, name, made, shown)
        if wanted == shown:
            return match[0]
        if not fix:
            faults.append(f"{document}: the block {kind} {name} shows something else")
        return match[0].replace("\n" + shown + "```", "\n" + wanted + "```")

    fixed = BLOCK.sub(compare, text)
    if fix and fixed != text:
        (ROOT / document).write_text(fixed, "utf-8")
    return faults


def anchors(path):
    headings = re.findall(r"^#+ (.*)$", CODE.sub("", path.read_text("utf-8")), re.MULTILINE)
    return {"#" + re.sub(r"[^\w\- ]", "", h.lower()).replace(" ", "-") for h in headings}


def check_links(document, text):
    faults = []
    for target, anchor in LINK.findall(CODE.sub("", text)):
        if target.startswith("https:"):
            continue
        path = (ROOT / document).parent / target if target else ROOT / document
        if not path.exists():
            faults.append(f"{document}: there is no {target}")
        elif anchor and anchor not in anchors(path):
            faults.append(f"{document}: there is no {target}{anchor}")
    return faults


def main():
    fix = sys.argv[1:] == ["--fix"]
    documents = [path.relative_to(ROOT) for path in sorted(ROOT.rglob("*.md"))
                 if path.relative_to(ROOT).parts[0] != "build"]
    faults = []
    for document in documents:
        text = (ROOT / document).read_text("utf-8")
        faults += check_blocks(document, text, fix) + check_links(document, text)
    print(*faults or [f"{len(documents)} documents show what is there."], sep="\n")
    return 1 if faults else 0


sys.exit(main())
