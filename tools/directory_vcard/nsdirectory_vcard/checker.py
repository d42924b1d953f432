"""directory_check, which judges the files by the directory's own rules."""

import json
import os.path
import pathlib
import shutil
import subprocess
import tempfile

from .data_files import CONTACT_FILE, FIRST_ELEMENT_LINE, GROUP_FILE
from .records import Unusable

PROGRAM = "directory_check"
# Of these the files that are there hold more than can be read from them.
DAMAGE = ("parser-stopped", "no-root")
REFUSED = "refused"
REFUSED_PREFIX = "not taken, and dropped by the next save: "


class Verdict:
    """What a start makes of the two files."""

    def __init__(self, report):
        self.groups = report["groups"]
        files = report["group_file"], report["contact_file"]
        self.contact_count = (report["ordinary_contacts"] + report["blacklisted_contacts"]
                              + files[1]["refused"])
        self.refused_groups, self.refused_contacts = map(refusals, files)
        self.damage = [f"{file['path']}: {finding['text']}" for file in files
                       for finding in file["findings"] if finding["kind"] in DAMAGE]


def refusals(file):
    """The places of refused elements in a file as written here, one to a line, with the reasons."""
    return {finding["line"] - FIRST_ELEMENT_LINE: finding["text"].removeprefix(REFUSED_PREFIX)
            for finding in file["findings"] if finding["kind"] == REFUSED}


class Checker:
    def __init__(self, own_folder):
        beside = os.path.join(own_folder, PROGRAM)
        self.program = beside if os.access(beside, os.X_OK) else shutil.which(PROGRAM)
        if self.program is None:
            raise Unusable(f"{PROGRAM} is neither beside this program nor in the PATH")

    def judge_folder(self, folder):
        done = subprocess.run([self.program, "--json", folder], capture_output=True, check=False)
        try:
            return Verdict(json.loads(done.stdout))
        except (ValueError, KeyError, TypeError) as error:
            said = done.stderr.decode("utf-8", "replace").strip() or repr(error)
            raise Unusable(f"{PROGRAM} gave no verdict: {said}") from None

    def judge(self, group_data, contact_data):
        try:
            with tempfile.TemporaryDirectory(prefix="directory_vcard.") as name:
                folder = pathlib.Path(name)
                (folder / GROUP_FILE).write_bytes(group_data)
                (folder / CONTACT_FILE).write_bytes(contact_data)
                return self.judge_folder(folder)
        except OSError as error:
            raise Unusable(f"no scratch folder can be made: {error.strerror}") from None
