"""What the other modules hand to each other. Texts that come from the two files may hold bytes that
are no UTF-8: they stand in a str as surrogates, and go back to bytes unchanged."""

import dataclasses
import re
import unicodedata

ALL_CONTACTS = "All Contacts"
BLACKLIST = "Blacklist"
FIXED_GROUPS = (ALL_CONTACTS, BLACKLIST)
NOT_TAKEN = "not-taken"  # a kind of finding
NUMBER_SLOTS = ("office_number", "mobile_number", "other_number")


class Unusable(Exception):
    """The work cannot be done, and nothing has been changed."""


@dataclasses.dataclass
class Group:
    """The fields are the attributes in the group file, in their order."""

    display_name: str
    ring: str = ""
    read_only: bool = False


@dataclasses.dataclass
class Contact:
    """The fields are the attributes in the contact file, in their order."""

    display_name: str = ""
    office_number: str = ""
    mobile_number: str = ""
    other_number: str = ""
    line: int = 0
    ring: str = ""
    group_id_name: str = ALL_CONTACTS
    default_photo: str = ""
    selected_photo: int = 0

    def is_blocked(self):
        return self.group_id_name == BLACKLIST


@dataclasses.dataclass
class Directory:
    groups: list[Group]
    contacts: list[Contact]
    has_photos: bool = True  # as written on a colour screen
    has_group_file: bool = True


@dataclasses.dataclass
class Finding:
    """Something that the user has to know: where the card begins, whose it is, and what it is."""

    file: str
    line: int  # 0 if it has none
    name: str
    kind: str
    reason: str


@dataclasses.dataclass
class Entry:
    """What one card or row says of a contact."""

    file: str
    line: int
    values: dict  # of a Contact, the ones that are stated
    # By preference. Empty if no group is stated, or if the values hold it; then none is made.
    group_names: list[str] = dataclasses.field(default_factory=list)
    remarks: list = dataclasses.field(default_factory=list)  # pairs of kind and reason

    def contact(self):
        """The contact as a new one, in the first of the groups."""
        return Contact(**({"group_id_name": self.group_names[0]} if self.group_names else {})
                       | self.values)

    def finding(self, kind, reason):
        return Finding(self.file, self.line, self.values.get("display_name", ""), kind, reason)


@dataclasses.dataclass
class InputFile:
    """What a file of cards or rows holds."""

    path: str
    entries: list[Entry] = dataclasses.field(default_factory=list)
    groups: list[Group] = dataclasses.field(default_factory=list)  # an export names all it had
    has_photos: bool | None = None  # None: it does not say
    findings: list[Finding] = dataclasses.field(default_factory=list)
    left_out: list[str] = dataclasses.field(default_factory=list)  # what contacts have no place for


def to_bytes(text):
    return text.encode("utf-8", "surrogateescape")


def from_bytes(data):
    return data.decode("utf-8", "surrogateescape")


def name_key(name):
    """Names with the same key are equal to the directory, and sort by it: as strcasecmp does in
    C.UTF-8, by bytes, with ASCII letters in small."""
    return to_bytes(name).lower()


def clean(text):
    """The text on one line, without blanks at its ends, bytes that are no UTF-8, and the control
    characters that XML forbids."""
    text = to_bytes(text).decode("utf-8", "replace")
    text = re.sub(r"[\t\r\n\x85\u2028\u2029]+", " ", text)
    return "".join(c for c in text if unicodedata.category(c) != "Cc").strip()


def leading_number(text):
    """The number that the directory reads from the text: held at the ends of an int."""
    match = re.match(r"[ \t\n\v\f\r]*([+-]?[0-9]+)", text)
    # More digits than any int has would only take time.
    number = int(match[1][:20]) if match else 0
    return max(-(2**31), min(number, 2**31 - 1))
