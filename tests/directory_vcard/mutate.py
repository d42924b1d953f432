#!/usr/bin/python3 -B
"""Imports cards and rows that are damaged at random, between whole ones. Shows that each import
ends in order, that a start takes what it leaves, that what was there before is there afterwards,
that the whole cards are taken, and that no other one is lost without a word.

    mutate.py BUILD-FOLDER COUNT [SEED]
"""

import json
import os
import pathlib
import random
import shutil
import sys
import tempfile

from support import HERE, call, read
from nsdirectory_vcard import data_files

CARD = "BEGIN:VCARD\r\nVERSION:3.0\r\nFN:{}\r\nTEL;TYPE=CELL:{}\r\nEND:VCARD\r\n"
ROW = "contact,{},,{},,0,,,,0,\r\n"
FIRST, LAST = ("First of all", "5551"), ("Last of all", "5552")
OPTIONS = ([], ["--replace"], ["--keep-numbers"], ["--group", "Choir"])
PIECES = [b"\r\n", b"\n", b"\r", b"=", b"=\r\n", b" ", b"\t", b'"', b";", b",", b":", b"\\", b"\0",
          b"\xff", b"\xc3", b"\xef\xbb\xbf", b"BEGIN:VCARD\r\n", b"END:VCARD\r\n", b"AGENT:\r\n",
          b"VERSION:2.1\r\n", b"CATEGORIES:Blacklist\r\n", b";ENCODING=QUOTED-PRINTABLE",
          b";CHARSET=utf-7", b"PREF=", b"%00"]


def mutated(data, chance):
    for _ in range(chance.randint(1, 12)):
        start = chance.randrange(len(data) + 1)
        end = min(len(data), start + chance.choice((0, 0, 1, 1, 2, 40)))
        new = chance.choice((b"", chance.randbytes(1), chance.choice(PIECES), data[start:end] * 2,
                             data[chance.randrange(len(data) + 1):][:40]))
        data = data[:start] + new + data[end:]
    return data


def sources():
    """Form, and what stands before, in and after the damage."""
    for name in ("before.vcf", "before.csv"):
        call("export", "--folder", HERE / "before", name)
    header, _, rows = pathlib.Path("before.csv").read_bytes().partition(b"\r\n")
    first, last = (ROW.format(*contact).encode() for contact in (FIRST, LAST))
    yield "csv", header + b"\r\n" + first, rows, b"\r\n" + last
    first, last = (CARD.format(*contact).encode() for contact in (FIRST, LAST))
    for path in (pathlib.Path("before.vcf"), *sorted((HERE / "cards").iterdir())):
        yield "vcf", first, path.read_bytes(), b"\r\n" + last


def contacts_in(folder):
    data = read(pathlib.Path(folder))["contact_list.xml"]
    return {contact.display_name: contact for contact in data_files.read_contacts(data)[0]}


def check(source, chance):
    form, before, data, after = source
    shutil.rmtree("folder", ignore_errors=True)
    shutil.copytree(HERE / "before", "folder")
    data = before + mutated(data, chance) + after
    pathlib.Path("in").write_bytes(data)
    options = ["--json", "--format", form, *chance.choice(OPTIONS)]
    status, printed = call("import", "--folder", "folder", *options, "in")
    assert status in (0, 1), printed
    begins = sum(line.strip().upper() == b"BEGIN:VCARD" for line in data.splitlines())
    if form == "vcf" and b"AGENT" not in data.upper():
        assert json.loads(printed)["cards"] >= begins - 1, printed  # one may hold groups only
    taken, old = contacts_in("folder"), contacts_in(HERE / "before")
    assert all(taken[name].mobile_number == number for name, number in (FIRST, LAST)), taken
    assert {name.lower() for name in old} <= {name.lower() for name in taken}
    assert "--replace" in options or old.items() <= taken.items()


def main():
    count = int(sys.argv[1])
    seed = int(sys.argv[2]) if len(sys.argv) > 2 else random.randrange(10**6)
    print(f"{count} damaged files, seed {seed}")
    with tempfile.TemporaryDirectory() as folder:
        os.chdir(folder)
        prepared = list(sources())
        for number in range(count):
            chance = random.Random(f"{seed} {number}")
            try:
                check(chance.choice(prepared), chance)
            except Exception:
                shutil.copy("in", f"/tmp/damaged.{seed}.{number}")
                raise


if __name__ == "__main__":
    main()
