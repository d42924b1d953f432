"""vCard files: bytes to cards of properties, and back. Cards are split, and lines unfolded, on
bytes: a fold may lie inside a letter, and nothing in one card may cost another one."""

import binascii
import dataclasses
import itertools
import re

import vobject.base
import vobject.icalendar
import vobject.vcard

BOM = b"\xef\xbb\xbf"
MARK = re.compile(rb"(BEGIN|END)[ \t]*:[ \t]*VCARD[ \t]*", re.IGNORECASE)
# Whatever does not match this is no property. vobject must not see it: its own pattern takes time
# that doubles with each "=" in such a line.
HEAD = re.compile(rb"""(?:[A-Z0-9_-]+\.)?([A-Z0-9_-]+)[ \t]*
    (?:;[ \t]*(?:[A-Z0-9_-]+[ \t]*(?:=(?:"[^"]*"|[^";:,]*)(?:,(?:"[^"]*"|[^";:,]*))*)?)?)*:""",
                  re.IGNORECASE | re.VERBOSE)
AGENT = re.compile(rb"AGENT[^:]*:\s*", re.IGNORECASE)
SOFT_BREAK = re.compile(rb"=[ \t]*$")
QUOTED_PRINTABLE = re.compile(rb";(?:ENCODING=)?QUOTED-PRINTABLE(?=[;:])", re.IGNORECASE)
BASE64 = re.compile(rb";(?:ENCODING=)?(?:BASE64|B)(?=[;:])", re.IGNORECASE)
BASE64_LINE = re.compile(rb"[A-Z0-9+/=]+", re.IGNORECASE)
CHARSET = re.compile(rb';CHARSET="?([^";:,]+)', re.IGNORECASE)
IGNORED_OUTSIDE = b" \t\0\x1a"
FOLD_AT = 75  # bytes


@dataclasses.dataclass
class Property:
    name: str  # in capitals
    parameters: dict  # name in capitals: values; words without a name are of TYPE, as in 2.1
    value: str  # with its escapes

    def text(self):
        return vobject.icalendar.stringToTextValues(self.closed_value(), listSeparator=None)[0]

    def texts(self):
        return vobject.icalendar.stringToTextValues(self.closed_value())

    def fields(self):
        """The parts of a structured value, each with its own values joined."""
        return [part if isinstance(part, str) else " ".join(part)
                for part in vobject.vcard.splitFields(self.closed_value())]

    def closed_value(self):
        """A backslash at the very end is itself."""
        count = len(self.value) - len(self.value.rstrip("\\"))
        return self.value + "\\" * (count % 2)

    def types(self):
        values = ",".join(self.parameters.get("TYPE", []))
        return {word.strip().upper() for word in values.split(",")}


@dataclasses.dataclass
class Card:
    line: int  # of its BEGIN
    lines: list = dataclasses.field(default_factory=list)  # as read, without line ends
    has_end: bool = False
    broken_lines: int = 0
    properties: list[Property] = dataclasses.field(default_factory=list)

    def all_of(self, name):
        return [prop for prop in self.properties if prop.name == name]


def read_cards(data, wanted):
    """The cards, the names of properties that are not wanted, and how many lines lie outside."""
    cards, outside = split_cards(data)
    unwanted = []
    for card in cards:
        for line in filter(bytes.strip, logical_lines(card.lines)):
            head = HEAD.match(line)
            name = head[1].decode().upper().replace("_", "-") if head else None
            if name is None:
                card.broken_lines += 1
            elif name in wanted:
                card.properties.append(property_of(name, line[:head.end()], line[head.end():]))
            else:
                unwanted.append(name)
    return cards, unwanted, outside


def split_cards(data):
    if data.startswith((b"\xff\xfe", b"\xfe\xff")):
        data = data.decode("utf-16", "replace").encode()
    lines = [line.removeprefix(BOM) for line in data.splitlines()]
    marks = [mark and mark[1].upper() for mark in map(MARK.fullmatch, lines)]
    cards, outside, is_open, in_agent = [], 0, False, False
    for place, (line, mark) in enumerate(zip(lines, marks)):
        if in_agent:
            in_agent = mark != b"END"
        elif mark == b"BEGIN" and is_open and is_agent(lines, marks, place):
            in_agent = True
        elif mark == b"BEGIN":
            cards.append(Card(place + 1))
            is_open = True
        elif mark and is_open:
            cards[-1].has_end = True
            is_open = False
        elif is_open:
            cards[-1].lines.append(line)
        elif line.strip(IGNORED_OUTSIDE):
            outside += 1
    if is_open and cards[-1].lines and not data.endswith((b"\n", b"\r")):
        cards[-1].lines.pop()  # cut, perhaps inside a number
    return cards, outside


def is_agent(lines, marks, place):
    """Whether the card that begins here is whole inside another one, as 2.1 has it."""
    if not AGENT.fullmatch(lines[place - 1]):
        return False
    return list(itertools.islice(filter(None, marks[place + 1:]), 2)) == [b"END", b"END"]


def logical_lines(lines):
    """The lines unfolded, and joined at soft breaks."""
    # In 2.1 a fold is before a blank of the text; later versions add one.
    blank = 0 if any(re.match(rb"VERSION:\s*2", line, re.IGNORECASE) for line in lines) else 1
    logical, is_soft, is_base64 = bytearray(), False, False
    for line in lines:
        if is_soft:
            logical += line
        elif logical and line[:1] in (b" ", b"\t"):
            logical += line[blank:]
        elif is_base64 and BASE64_LINE.fullmatch(line):
            continue  # folded without a blank, as some telephones do; pictures are not kept
        else:
            yield bytes(logical)
            logical = bytearray(line)
            is_base64 = is_encoded(BASE64, line)
        soft_break = SOFT_BREAK.search(line)
        is_soft = soft_break is not None and is_encoded(QUOTED_PRINTABLE, logical)
        if is_soft:
            del logical[-len(soft_break[0]):]
    yield bytes(logical)


def is_encoded(encoding, line):
    head = HEAD.match(line)
    return head is not None and encoding.search(line, 0, head.end()) is not None


def property_of(name, head, value):
    charset = CHARSET.search(head)
    head, is_quoted_printable = QUOTED_PRINTABLE.subn(b"", head)
    if is_quoted_printable:
        value = binascii.a2b_qp(value)
    # In the form that vobject's pattern matches at once.
    head = re.sub(rb";[ \t;]*(?=:)|[ \t]+(?=[;=:])", b"", re.sub(rb";[ \t;]*", b";", head))
    _, words, text, _ = vobject.base.parseLine(
        head.decode("utf-8", "replace") + decoded(value, charset))
    parameters = {}
    for key, *values in words:
        if values:
            parameters.setdefault(key.upper(), []).extend(values)
        else:
            parameters.setdefault("TYPE", []).append(key)
    return Property(name, parameters, text)


def decoded(value, charset):
    for name in (charset[1].decode("ascii", "replace").strip() if charset else "utf-8", "utf-8"):
        try:
            # Some character sets can give halves of a pair.
            return value.decode(name).encode("utf-8", "replace").decode()
        except (LookupError, ValueError):
            pass  # an unknown set, or the bytes are something else
    text = value.decode("utf-8", "replace")
    if any(not c.isascii() and c != "\ufffd" for c in text):
        return text
    return value.decode("cp1252", "replace")  # no letter of it is UTF-8


def write_card(properties):
    lines = ["BEGIN:VCARD", "VERSION:3.0"]
    for prop in properties:
        types = "".join(f";{key}={','.join(values)}" for key, values in prop.parameters.items())
        lines.append(f"{prop.name}{types}:{prop.value}")
    return b"".join(folded(line.encode()) for line in [*lines, "END:VCARD"])


def folded(line):
    """At most so many bytes a line, and no letter cut."""
    pieces, room = [], FOLD_AT
    while len(line) > room:
        end = room
        while line[end] & 0xC0 == 0x80:
            end -= 1
        pieces.append(line[:end])
        line, room = line[end:], FOLD_AT - 1  # a blank is before it
    return b"\r\n ".join([*pieces, line]) + b"\r\n"
