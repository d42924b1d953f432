"""directory_vcard called in this process. The first argument of a program that imports this is the
build folder; directory_check is in there."""

import contextlib
import io
import pathlib
import sys

HERE = pathlib.Path(__file__).resolve().parent
PROJECT = HERE.parents[1]
BUILD = pathlib.Path(sys.argv.pop(1)).resolve()
TOOLS = BUILD / "tools" / "directory_check"
FILES = ("contact_group_list.xml", "contact_list.xml")
sys.path.insert(0, str(PROJECT / "tools" / "directory_vcard"))

from nsdirectory_vcard import main as tool  # noqa: E402 its folder is known from here on


def call(*arguments):
    """The exit status, and all that is printed."""
    printed = io.TextIOWrapper(io.BytesIO(), "utf-8")
    with contextlib.redirect_stdout(printed), contextlib.redirect_stderr(printed):
        status = tool.main(TOOLS, list(map(str, arguments)))
    printed.flush()
    return status, printed.buffer.getvalue().decode()


def read(folder):
    return {name: (folder / name).read_bytes() for name in FILES if (folder / name).exists()}
