"""Checks that the documents show what is there, that their links lead somewhere, and that each
claim was tried. With --fix what they show is brought up to date. scripts/check-docs runs this, with
the programs built.

A block is checked where the line above it says where its text comes from:

    <!-- from PATH -->               lines of that file
    <!-- printed by PROGRAM -->      what the program of docs/examples prints
    <!-- made by PROGRAM: FILE -->   a file that it leaves in its data folder

Claims are the rows of tables and the numbered items of docs/*.md, and the paragraphs of the
manager's header that begin with a bold word. docs/claims.txt says how each was tried.
"""

import collections
import functools
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
HEADER = "directory/contact_local_manager.h"
TABLE = re.compile(r"^\|.*\n\|[-:| ]+\|\n((?:\|.*\n)+)", re.MULTILINE)
CODE_BLOCK = re.compile(r"```.*?```", re.DOTALL)
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
        begin, end = (match.span(4)[side] - match.start() for side in (0, 1))
        return match[0][:begin] + wanted + match[0][end:]

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


@functools.cache
def files(*patterns):
    """The project's files of these forms."""
    listed = subprocess.run(["git", "ls-files", "-co", "--exclude-standard", "--", *patterns],
                            cwd=ROOT, check=True, text=True, stdout=subprocess.PIPE)
    return [file for file in listed.stdout.splitlines() if (ROOT / file).exists()]


def texts(*patterns):
    return "".join((ROOT / file).read_text("utf-8") for file in files(*patterns))


def stems(*patterns):
    return {pathlib.Path(file).stem for file in files(*patterns)}


def check_names(document, text):
    """Each source and each function of the library that a document of docs/ names must be there."""
    if document.parts[0] != "docs":
        return []
    sources = ["/" + source for source in files("*.cpp", "*.h")]
    named = re.findall(r"`((?:\w+/)*\w+\.(?:cpp|h))`", text)
    missing = [name for name in named if not any(one.endswith("/" + name) for one in sources)]
    functions = set(re.findall(r"\bMy[A-Z]\w+", text))
    missing += functions - set(re.findall(r"\w+", texts("directory/*.h")))
    return [f"{document}: there is no {name}" for name in missing]


def claims(path):
    """The claims of a document, each as one line of text."""
    text = CODE_BLOCK.sub("", path.read_text("utf-8"))
    if path.suffix == ".h":
        return re.findall(r"^/// \*\*(.*)$", text, re.MULTILINE)
    # A table is its heading, a line of dashes, and its rows.
    rows = [row for table in TABLE.findall(text) for row in table.splitlines()]
    items = re.findall(r"^\d+\. (.*)$", text, re.MULTILINE)
    return [claim.strip("| ") for claim in rows + items]


def known_proofs():
    """What a line may name, by kind."""
    tests = re.findall(r"^TEST\w*\((\w+), (\w+)\)", texts("tests/*.cpp"), re.MULTILINE)
    programs = re.findall(r"add_test\(NAME (\w+)", texts("*CMakeLists.txt"))
    return {
        "test": {".".join(test) for test in tests} | set(programs),
        "scenario": stems("tests/scenarios/*.txt"),
        "example": stems("docs/examples/*.cpp", "examples/hosts/*.cpp"),
        "script": stems("scripts/*"),
    }


def check_line(proof, known):
    listed, _, how = proof.partition("tried: ")
    parts = [part.split() for part in listed.split(";") if part.strip()]
    if not parts and not how:
        return ["nothing says how"]
    return [f"there is no {kind} {name}" for kind, *names in parts for name in names
            if name not in known.get(kind, ())]


def read_lines():
    """Of each document: how the claims were tried, by their first words."""
    lines = collections.defaultdict(dict)
    for line in (ROOT / "docs" / "claims.txt").read_text("utf-8").splitlines():
        begin, arrow, proof = line.partition(" => ")
        if arrow:
            lines[document][begin] = proof
        elif line and not line.startswith("#"):
            document = line
    return lines


def check_claims():
    """Each claim needs a line, each line a claim and things that exist."""
    known, lines, faults = known_proofs(), read_lines(), []
    for document in {*lines, *files("docs/*.md"), HEADER}:
        here = claims(ROOT / document)
        faults += [f"{document}: nothing says how this was tried: {claim[:60]}" for claim in here
                   if not claim.startswith(tuple(lines[document]))]
        for begin, proof in lines[document].items():
            found = any(claim.startswith(begin) for claim in here)
            wrong = check_line(proof, known) + ([] if found else ["there is no such claim"])
            faults += [f"{document}: {begin}: {fault}" for fault in wrong]
    return sorted(faults)


def main():
    fix = sys.argv[1:] == ["--fix"]
    documents = [path.relative_to(ROOT) for path in sorted(ROOT.rglob("*.md"))
                 if path.relative_to(ROOT).parts[0] != "build"]
    faults = []
    for document in documents:
        text = (ROOT / document).read_text("utf-8")
        faults += check_blocks(document, text, fix) + check_links(document, text)
        faults += check_names(document, text)
    faults += check_claims()
    print(*faults or [f"{len(documents)} documents show what is there; each claim has a line."],
          sep="\n")
    return 1 if faults else 0


sys.exit(main())
