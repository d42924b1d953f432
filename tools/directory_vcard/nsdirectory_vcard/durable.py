"""Files replaced so that after a power cut each is the old one or the new one, whole."""

import contextlib
import os
import stat

from .records import Unusable


def replace_all(files):
    """Replaces the files, pairs of path and bytes, in their order. All are written before the first
    is replaced, so a full disk leaves all as they were."""
    paths = [os.path.realpath(path) for path, _ in files]
    try:
        for path, (_, data) in zip(paths, files):
            write_beside(path, data)
        for path in paths:
            os.replace(beside(path), path)
            sync_folder(os.path.dirname(path))
    except OSError as error:
        raise Unusable(f"{path} cannot be written: {error.strerror}") from None
    finally:
        for path in paths:
            with contextlib.suppress(OSError):
                os.unlink(beside(path))


def beside(path):
    return f"{path}.{os.getpid()}.new"


def write_beside(path, data):
    with open(beside(path), "xb") as file:
        with contextlib.suppress(FileNotFoundError):
            take_over(file.fileno(), os.stat(path))
        file.write(data)
        file.flush()
        os.fsync(file.fileno())


def take_over(descriptor, old):
    """Owner and rights of the file that goes."""
    with contextlib.suppress(PermissionError):
        os.fchown(descriptor, old.st_uid, old.st_gid)
    os.fchmod(descriptor, stat.S_IMODE(old.st_mode))


def sync_folder(path):
    descriptor = os.open(path, os.O_RDONLY | os.O_DIRECTORY)
    try:
        os.fsync(descriptor)
    finally:
        os.close(descriptor)
