#!/usr/bin/python3 -B
"""Runs directory_vcard over the cases in expected/. The first line of each says which files are
there before, and the arguments; the rest is what is printed, the exit status, how the two files
have changed, and the export.

    run.py BUILD-FOLDER     directory_check is in there, and desk_phone if it is built

With UPDATE=1 in the environment all after the first line is written instead.
"""

import contextlib
import difflib
import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest
from unittest import mock

from support import BUILD, FILES, HERE, PROJECT, TOOLS, call, read
from nsdirectory_vcard import data_files
from nsdirectory_vcard.records import Contact, Group

PHONE = BUILD / "examples" / "desk_phone" / "desk_phone"
CARDS = [f"cards/{path.name}" for path in sorted((HERE / "cards").iterdir())]

# What the library has written: of full size, with all bytes that a text can hold, and for a plain
# screen; and what can bring it back byte for byte.
SAMPLE = PROJECT / "examples" / "sample_data"
ROUND_TRIPS = [(SAMPLE, "out.vcf"), (SAMPLE, "out.csv"), (HERE / "plain", "out.vcf"),
               (HERE / "plain", "out.csv"), (HERE / "odd", "out.vcf")]

# Has the library write both files again.
REWRITE = b'ring "All Contacts" ring\nring "All Contacts" ""\nadd "A new one"\nremove "A new one"\n'

# A disk with room for the new group file, but not for the new contact file beside the old ones.
SMALL_DISK = """mount -t tmpfs -o size=16k none folder 2>/dev/null || exit 77
cp "$0"/before/* folder/
"$@" >/dev/null 2>said || echo "status: $?"
cat said
diff -r "$0/before" folder && echo same"""


def write_full(folder):
    """As many of each as a start takes."""
    groups = [Group("All Contacts", "", True), Group("Blacklist", "", True)]
    groups += [Group(f"G{n:02}") for n in range(48)]
    names = [(f"c{n:03}", "G00") for n in range(999)] + [("Olga Ordinary", "G01")]
    names += [(f"x{n:02}", "Blacklist") for n in range(30)]
    contacts = [Contact(name, group_id_name=group) for name, group in names]
    (folder / FILES[0]).write_bytes(data_files.group_file(groups))
    (folder / FILES[1]).write_bytes(data_files.contact_file(contacts, True))


def changes(old, new):
    return b"".join(line for name, data in new.items() for line in difflib.diff_bytes(
        difflib.unified_diff, old.get(name, b"").splitlines(keepends=True),
        data.splitlines(keepends=True), n=0, tofile=name.encode()))


class Tests(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        self.work = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.enterContext(contextlib.chdir(self.work))
        for name in ("cards", "inputs"):
            (self.work / name).symlink_to(HERE / name)
        self.folder = self.work / "folder"

    def start_with(self, before):
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir()
        if before == "full":
            write_full(self.folder)
        elif before != "new":
            shutil.copytree(HERE / before, self.folder, dirs_exist_ok=True)
        return read(self.folder)

    def test_cases(self):
        for expected in sorted((HERE / "expected").iterdir()):
            with self.subTest(expected.name):
                first = expected.read_bytes().splitlines()[0].decode()
                before, _, line = first.partition(": ")
                old = self.start_with(before)
                words = line.replace("FOLDER", "--folder folder").replace("CARDS", " ".join(CARDS))
                status, printed = call(*words.split())
                text = f"{first}\n{printed}status: {status}\n".encode()
                text += changes(old, read(self.folder))
                for out in self.work.glob("OUT.*"):
                    text += out.read_bytes().replace(b"\r\n", b"\n")
                    out.unlink()
                if os.environ.get("UPDATE"):
                    expected.write_bytes(text)
                self.assertEqual(text.decode(), expected.read_bytes().decode())

    def test_round_trips(self):
        for before, out in ROUND_TRIPS:
            with self.subTest(before.name, out=out):
                self.start_with("new")
                self.assertEqual(call("export", "--folder", before, out)[0], 0)
                take = ["import", "--folder", self.folder, out, "--keep-numbers"]
                self.assertEqual(call(*take[:-1], "--dry-run")[0], 0)
                self.assertEqual(read(self.folder), {})
                self.assertEqual(call(*take)[0], 0)
                self.assertEqual(read(self.folder), read(before))
                self.assertEqual(call(*take)[0], 1)
                self.assertEqual(read(self.folder), read(before))

    @unittest.skipUnless(PHONE.exists(), "desk_phone is not built")
    def test_the_library_writes_the_same(self):
        folder = self.work / "config" / "data"
        folder.mkdir(parents=True)
        call("export", "--folder", HERE / "odd", "odd.vcf")
        call("import", "--folder", folder, "odd.vcf")
        call("import", "--folder", folder, *CARDS)
        old, times = read(folder), [(folder / name).stat().st_mtime_ns for name in FILES]
        subprocess.run([PHONE, "--folder", self.work], input=REWRITE, stdout=subprocess.DEVNULL,
                       check=True)
        self.assertEqual(read(folder), old)
        for name, time in zip(FILES, times):
            self.assertNotEqual((folder / name).stat().st_mtime_ns, time, name)

    def test_durable_replacement(self):
        self.start_with("before")
        (self.folder / FILES[1]).chmod(0o640)
        calls = []

        def recorded(name):
            call = getattr(os, name)

            def record(what, *more):
                path = os.readlink(f"/proc/self/fd/{what}") if isinstance(what, int) else what
                calls.append(name + " " + pathlib.Path(path).name.replace(f"{os.getpid()}.", ""))
                return call(what, *more)
            return mock.patch(f"os.{name}", record)

        with recorded("fsync"), recorded("replace"):
            call("import", "--folder", "folder", "inputs/replacing.vcf")
        groups, contacts = (f"{name}.new" for name in FILES)
        self.assertEqual(calls, [f"fsync {groups}", f"fsync {contacts}", f"replace {groups}",
                                 "fsync folder", f"replace {contacts}", "fsync folder"])
        self.assertEqual((self.folder / FILES[1]).stat().st_mode & 0o777, 0o640)

    def test_full_disk(self):
        self.folder.mkdir()
        done = subprocess.run(
            ["unshare", "--map-root-user", "--mount", "sh", "-c", SMALL_DISK, HERE,
             TOOLS / "directory_vcard", "import", "--folder", "folder", *CARDS],
            capture_output=True, text=True, check=False)
        if done.returncode == 77 or "unshare" in done.stderr:
            self.skipTest("no private disk is allowed here")
        self.assertIn("status: 2\n", done.stdout)
        self.assertIn("contact_list.xml cannot be written: No space left on device\nsame\n",
                      done.stdout)


if __name__ == "__main__":
    unittest.main()
