"""A sip_phone to be called by SIPp, on the loopback alone."""

import atexit
import codecs
import pathlib
import random
import re
import select
import shutil
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent
SAMPLE = HERE.parent.parent / "examples" / "sample_data"
STATUS = {"declined": "603", "busy": "486", "gone": "480", "missed": "487"}
PATIENCE = 120  # seconds that nothing takes, on whatever machine

# Logs the ring, and plays it in a process of its own. One that is stubborn stays on SIGTERM.
PLAYER = """#!/bin/sh
echo "$1" >>"$0.log"
[ ! -e "$0.stubborn" ] || trap "" TERM
sleep 1000 & wait
"""


def sample(folder):
    """The sample data, with room for two in the blacklist, and a player."""
    data = folder / "config" / "data"
    data.mkdir(parents=True)
    shutil.copytree(SAMPLE / "rings", folder / "rings")
    shutil.copy(SAMPLE / "contact_group_list.xml", data)
    contacts = (SAMPLE / "contact_list.xml").read_text()
    (data / "contact_list.xml").write_text(
        re.sub('<contact display_name="(Free Cruise Prize|Vacances gratuites)" .*\n', "", contacts))
    (folder / "player").write_text(PLAYER)
    (folder / "player").chmod(0o755)


def own_address():
    """An address of the loopback that nobody else is likely to use at the same time."""
    return "127." + ".".join(str(random.randint(1, 254)) for _ in range(3))


def wait_until(condition, what):
    end = time.monotonic() + PATIENCE
    while not condition():
        if time.monotonic() > end:
            sys.exit(f"This has not come about: {what}")
        time.sleep(0.01)


def succeeded(call):
    report = call.communicate(timeout=PATIENCE)[0].decode()
    if call.returncode != 0:
        sys.exit(f"{' '.join(map(str, call.args))} has ended with {call.returncode}:\n{report}")


def call(telephone, folder, caller, end, *options):
    """Calls once, or as often as the options say, each call with this end (call.xml)."""
    parts = re.split("  <!-- for: (.*) -->\n", (HERE / "call.xml").read_text())
    text = parts[0] + "".join(part for ends, part in zip(parts[1::2], parts[2::2])
                              if {"all", end} & set(ends.split(", ")))
    scenario = folder / (end + ".xml")
    scenario.write_text(text.replace("STATUS", STATUS.get(end, "")))
    address = own_address()
    return subprocess.Popen(
        ["sipp", telephone, "-sf", scenario, "-key", "from", caller, "-i", address, "-ci", address,
         "-m", "1", "-nostdin", "-timeout", f"{PATIENCE}s", "-timeout_error", *options],
        stdout=subprocess.PIPE, stderr=subprocess.STDOUT)


class Telephone:
    """Works on the folder, which is filled if it is not there."""

    def __init__(self, program, folder):
        if not folder.exists():
            sample(folder)
        self.folder, self.player = folder, folder.resolve() / "player"
        self.output, self.seen = "", 0
        self.decoder = codecs.getincrementaldecoder("utf-8")()
        self.process = subprocess.Popen(
            [program, "--listen", own_address() + ":0", "--folder", folder, "--player", self.player],
            stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, bufsize=0)
        atexit.register(self.process.kill)
        self.address = self.shows(r"Calls are taken at (\S+)")[1]

    def read(self, seconds=PATIENCE):
        """False at the end of the output, and if nothing comes."""
        readable = select.select([self.process.stdout], [], [], seconds)[0]
        block = self.process.stdout.read(65536) if readable else b""
        self.output += self.decoder.decode(block)
        return bool(block)

    def shows(self, pattern):
        """Waits for it after what was waited for before."""
        while not (match := re.compile(pattern).search(self.output, self.seen)):
            if not self.read():
                sys.exit(f"{pattern} is not shown:\n{self.output[self.seen:]}")
        self.seen = match.end()
        return match

    def type(self, line):
        self.process.stdin.write(line.encode() + b"\n")

    def call(self, caller, end, *options):
        return call(self.address, self.folder, caller, end, *options)

    def rings(self):
        """The names of the rings that have been played so far."""
        log = pathlib.Path(f"{self.player}.log")
        return [pathlib.Path(ring).name for ring in log.read_text().split()] if log.exists() else []

    def processes(self):
        """Those that the telephone has started."""
        task = f"/proc/{self.process.pid}/task/{self.process.pid}/children"
        return pathlib.Path(task).read_text().split()

    def ends(self, status):
        while self.read():
            pass
        if self.process.wait(PATIENCE) != status:
            sys.exit(f"It ended with {self.process.returncode}:\n{self.output}")
