"""The two files of the directory, in the form in which it writes them itself. No XML library of
Python reads all that it writes: control characters and bytes that are no UTF-8."""

import dataclasses
import re

from .records import Contact, Directory, FIXED_GROUPS, Group, Unusable
from .records import from_bytes, leading_number, to_bytes

GROUP_FILE = "contact_group_list.xml"
CONTACT_FILE = "contact_list.xml"
PHOTO_ATTRIBUTES = ("default_photo", "selected_photo")
FIRST_ELEMENT_LINE = 3  # after the declaration and the root

ESCAPES = {code: f"&#{code:02};" for code in range(32)}
ESCAPES |= {ord("&"): "&amp;", ord("<"): "&lt;", ord('"'): "&quot;"}
ENTITIES = {b"amp": b"&", b"lt": b"<", b"gt": b">", b"quot": b'"', b"apos": b"'"}

LATIN_1 = re.compile(rb"""<\?xml[^>]*encoding\s*=\s*["'](iso-8859-1|latin1)["']""", re.IGNORECASE)
REFERENCE = re.compile(rb"&(?:#([0-9]+)|#x([0-9a-fA-F]+)|(amp|lt|gt|quot|apos));")
ATTRIBUTE = re.compile(rb"""([^\s=/>"']+)\s*=\s*(?:"([^"]*)"|'([^']*)')""")
TOKEN = re.compile(rb"""<!--.*?-->|<!\[CDATA\[.*?\]\]>|<[?].*?[?]>|<![^>]*>
    |<(?P<close>/?)(?P<name>[^\s/>"']+)
     (?P<attributes>(?:\s+[^\s=/>"']+\s*=\s*(?:"[^"]*"|'[^']*'))*)\s*(?P<empty>/?)>""",
                   re.DOTALL | re.VERBOSE)


def elements(data, root_name, element_name):
    """The attributes of each element below the first root of the name, as dictionaries."""
    if LATIN_1.match(data):
        raise Unusable("not in UTF-8")
    depth, root = 0, None
    for token in TOKEN.finditer(data):
        name = token["name"]
        if name is None:
            continue
        if token["close"]:
            depth -= 1
            if depth == 0 and root is not None:
                return
            continue
        if depth == 0 and name == root_name:
            root = token
        elif depth == 1 and root is not None and name == element_name:
            yield attributes(token["attributes"])
        depth += 0 if token["empty"] else 1


def attributes(data):
    found = {}
    for name, in_double, in_single in ATTRIBUTE.findall(data):
        found.setdefault(from_bytes(name), value(in_double or in_single))
    return found


def value(data):
    data = re.sub(rb"\r\n|[\r\n\t]", b" ", data)
    return from_bytes(REFERENCE.sub(referred, data)).partition("\0")[0]


def referred(match):
    decimal, hexadecimal, entity = match.groups()
    if entity:
        return ENTITIES[entity]
    code = int(decimal) if decimal else int(hexadecimal, 16)
    if code > 0x10FFFF:
        raise Unusable(f"{match[0].decode()} is no character")
    return chr(code).encode("utf-8", "surrogatepass")


def read_groups(data):
    return [Group(found.get("display_name", ""), found.get("ring", ""),
                  found.get("read_only") == "1")
            for found in elements(data, b"root_group", b"group")]


def contact_of(found):
    values = {}
    for field in dataclasses.fields(Contact):
        text = found.get(field.name, "")
        values[field.name] = leading_number(text) if field.type is int else text
    return Contact(**values)


def read_contacts(data):
    """The contacts, and whether they have attributes for photos, as on a colour screen."""
    found = list(elements(data, b"root_contact", b"contact"))
    has_photos = not found or any(name in record for record in found for name in PHOTO_ATTRIBUTES)
    return [contact_of(record) for record in found], has_photos


def element(name, record):
    values = "".join(f' {key}="{str(text).translate(ESCAPES)}"' for key, text in record.items())
    return f"\t<{name}{values} />\n"


def file_of(root, lines):
    body = f"<{root}>\n{''.join(lines)}</{root}>\n" if lines else f"<{root} />\n"
    return to_bytes(f'<?xml version="1.0" encoding="utf-8"?>\n{body}')


def group_file(groups):
    return file_of("root_group", [
        element("group", {**vars(group), "read_only": "1" if group.read_only else "0"})
        for group in groups])


def contact_file(contacts, has_photos):
    absent = () if has_photos else PHOTO_ATTRIBUTES
    return file_of("root_contact", [
        element("contact", {key: text for key, text in vars(contact).items() if key not in absent}
                | {"name_index": ""})
        for contact in contacts])


def read_file(path):
    """None if there is no such file."""
    try:
        return path.read_bytes()
    except FileNotFoundError:
        return None


class DataFolder:
    """The folder with the two files, as found."""

    def __init__(self, path):
        if not path.is_dir():
            raise Unusable(f"{path}: no such folder")
        self.path = path
        self.found = self.read()

    def paths(self):
        return self.path / GROUP_FILE, self.path / CONTACT_FILE

    def is_new(self):
        """Neither file was there."""
        return self.found == [None, None]

    def read(self):
        return [read_file(path) for path in self.paths()]

    def directory(self, verdict):
        """What the files hold, and of a missing group file what a start makes."""
        group_data, contact_data = self.found
        try:
            groups = read_groups(group_data or b"")
            contacts, has_photos = read_contacts(contact_data or b"")
        except Unusable as error:
            raise Unusable(f"{self.path}: {error}") from None
        made = verdict.groups if group_data is None else FIXED_GROUPS
        there = {group.display_name for group in groups}
        groups += [Group(name, "", name in FIXED_GROUPS) for name in made if name not in there]
        if len(contacts) != verdict.contact_count:
            raise Unusable(f"{self.path}: cannot be read here as the directory reads it")
        return Directory(groups, contacts, has_photos, group_data is not None)
