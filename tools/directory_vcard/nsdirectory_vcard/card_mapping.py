"""What a card says of a contact, and what a contact says in a card: docs/vcard.md has the table."""

import dataclasses
import re
import unicodedata
import urllib.parse

import vobject.base

from . import card_file
from .card_file import Property
from .records import ALL_CONTACTS, Contact, Entry, Finding, Group, InputFile, NOT_TAKEN
from .records import NUMBER_SLOTS, clean, from_bytes, leading_number, to_bytes

# The directory's own properties. Their texts are percent-encoded, so that they hold any byte.
RING = "X-NSDIRECTORY-RING"
PHOTO = "X-NSDIRECTORY-PHOTO"
SELECTED_PHOTO = "X-NSDIRECTORY-SELECTED-PHOTO"
LINE = "X-NSDIRECTORY-LINE"  # in each exported card: what the card leaves out is empty
EXACT = "X-NSDIRECTORY-EXACT"  # name, numbers and group, if the rest of the card cannot hold them
GROUP = "X-NSDIRECTORY-GROUP"  # in the first card: each group with its ring and mark
SCREEN = "X-NSDIRECTORY-SCREEN"  # in the first card
PLAIN_SCREEN = "PLAIN"

OWN_TEXTS = {RING: "ring", PHOTO: "default_photo"}
OWN_NUMBERS = {LINE: "line", SELECTED_PHOTO: "selected_photo"}
EXACT_FIELDS = ("display_name", *NUMBER_SLOTS, "group_id_name")
KIND = ("KIND", "X-ADDRESSBOOKSERVER-KIND")
WANTED = {"FN", "N", "ORG", "TEL", "CATEGORIES", *KIND,
          *OWN_TEXTS, *OWN_NUMBERS, EXACT, GROUP, SCREEN}
# They describe the card, not the contact.
UNCOUNTED = {"VERSION", "PRODID", "REV", "UID", "PROFILE", "SOURCE", "CLASS", "X-ABLABEL"}

TYPE_OF_SLOT = {"mobile_number": "CELL", "office_number": "WORK", "other_number": "HOME"}
MOBILE_TYPES = {"CELL", "MOBILE", "IPHONE", "PCS"}
NO_VOICE_TYPES = {"FAX", "PAGER", "MODEM", "BBS", "TEXTPHONE"}
FREE_SLOTS = ("other_number", "mobile_number", "office_number")  # for a second number of a kind
LEAST_PREFERRED = 101  # 4.0 counts from 1 to 100

NAMELESS = "it has neither a name nor a number"
LONGEST_NUMBER = 200  # what is longer is no number, and would take long to look at
SEPARATORS = {"Zs", "Zl", "Zp", "Pd", "Ps", "Pe", "Cf", "Cc"}
MORE_SEPARATORS = "./\N{MINUS SIGN}"
TRUNK_ZERO = re.compile(r"((?:\+|00)[^(]*)\(0\)")
EXTENSION = re.compile(r"(.*?[0-9])\s*(;[\w-]+=.*|(?:ext\.?|x)\s*[0-9]+)", re.IGNORECASE)
NAME_ORDER = (3, 1, 2, 0, 4)  # of the fields of N: prefix, given, additional, family, suffix


def read_cards(path, data, keep_numbers):
    cards, unwanted, outside = card_file.read_cards(data, WANTED)
    found = InputFile(path, left_out=[name for name in unwanted if name not in UNCOUNTED])
    for card in cards:
        found.groups += [group_of(prop) for prop in card.all_of(GROUP)]
        if card.all_of(LINE):
            found.has_photos = found.has_photos is not False
        if [prop.text() for prop in card.all_of(SCREEN)] == [PLAIN_SCREEN]:
            found.has_photos = False
        read_card(found, card, keep_numbers)
    if outside or not cards:
        found.findings.append(
            Finding(path, 0, "", "file", f"{len(cards)} cards; lines outside them: {outside}"))
    return found


def read_card(found, card, keep_numbers):
    entry = Entry(found.path, card.line, {})
    if card.broken_lines:
        entry.remarks.append(("card", f"lines that are no properties: {card.broken_lines}"))
    if not card.has_end:
        entry.remarks.append(("card", "it has no END"))
    read_properties(entry, card, keep_numbers)
    if any(prop.text().lower() == "group" for name in KIND for prop in card.all_of(name)):
        found.findings.append(entry.finding(NOT_TAKEN, "it is the card of a group"))
    elif entry.values["display_name"] or card.all_of(LINE):
        found.entries.append(entry)
    elif not card.all_of(GROUP):
        found.findings.append(entry.finding(NOT_TAKEN, NAMELESS))


def read_properties(entry, card, keep_numbers):
    numbers = place_numbers(entry, card.all_of("TEL"), keep_numbers)
    entry.values |= {"display_name": name_of(card, numbers), **numbers}
    if "\ufffd" in entry.values["display_name"]:
        entry.remarks.append(("name", "it holds bytes that are no letters of its character set"))
    entry.group_names = [name for prop in card.all_of("CATEGORIES")
                         for name in map(clean, prop.texts()) if name]
    read_own(entry, card, keep_numbers)


def name_of(card, numbers):
    names = [prop.text() for prop in card.all_of("FN")]
    for prop in card.all_of("N"):
        fields = dict(enumerate(prop.fields()))
        parts = [fields.get(place, "").strip() for place in NAME_ORDER]
        names.append(" ".join(filter(None, parts)))
    names += [", ".join(filter(None, prop.fields())) for prop in card.all_of("ORG")]
    return next(filter(None, map(clean, names)), "") or first_number(numbers)


def first_number(values):
    slots = "mobile_number", "office_number", "other_number"
    return next(filter(None, map(values.get, slots)), "")


@dataclasses.dataclass
class Telephone:
    number: str
    slot: str
    place: tuple  # by preference


def place_numbers(entry, properties, keep_numbers):
    """Each slot takes the first number of its kind, then free slots take the others."""
    telephones = [telephone_of(entry, prop, keep_numbers) for prop in properties]
    slots, waiting = dict.fromkeys(NUMBER_SLOTS, ""), []
    for telephone in sorted(filter(None, telephones), key=lambda telephone: telephone.place):
        if telephone.number in slots.values():
            continue
        if slots[telephone.slot]:
            waiting.append(telephone.number)
        else:
            slots[telephone.slot] = telephone.number
    for number in dict.fromkeys(waiting):
        free = next((slot for slot in FREE_SLOTS if not slots[slot]), None)
        if number in slots.values():
            continue
        if free:
            slots[free] = number
        else:
            entry.remarks.append(("number", f"no slot is free for {number}"))
    return slots


def telephone_of(entry, prop, keep_numbers):
    number = number_of(entry, prop.text(), keep_numbers)
    if not number:
        return None
    types = prop.types()
    preference = "".join(prop.parameters.get("PREF", [])).strip()
    place = int(preference) if re.fullmatch("[0-9]{1,3}", preference) else LEAST_PREFERRED
    is_voice = not types & NO_VOICE_TYPES
    return Telephone(number, slot_of(types), (not is_voice, 1 if "PREF" in types else place))


def slot_of(types):
    if types & NO_VOICE_TYPES:
        return "other_number"
    if types & MOBILE_TYPES:
        return "mobile_number"
    return "office_number" if "WORK" in types else "other_number"


def number_of(entry, text, keep_numbers):
    """The number without its separators; what is left out of it becomes a remark."""
    text = clean(text)
    scheme, colon, rest = text.partition(":")
    if colon and scheme.lower() == "tel":
        text = urllib.parse.unquote(rest).strip()
    elif colon or len(text) > LONGEST_NUMBER:
        entry.remarks.append(("number", f"{text[:LONGEST_NUMBER]} is no telephone number"))
        return ""
    extension = EXTENSION.fullmatch(text)
    if extension:
        text = extension[1]
    number = text if keep_numbers else without_separators(text)
    if extension:
        entry.remarks.append(("extension", f"{extension[2]} is left out of {number}"))
    return number


def without_separators(text):
    text = TRUNK_ZERO.sub(r"\1", unicodedata.normalize("NFKC", text), count=1)
    return "".join(str(unicodedata.digit(c, c)) for c in text
                   if unicodedata.category(c) not in SEPARATORS and c not in MORE_SEPARATORS)


def read_own(entry, card, keep_numbers):
    """Properties of the directory's own, which only its export writes."""
    if not card.all_of(LINE):
        return
    entry.values |= {"ring": "", "default_photo": "", "selected_photo": 0, "line": 0}
    for prop in card.properties:
        if prop.name in OWN_TEXTS:
            entry.values[OWN_TEXTS[prop.name]] = from_percent(prop.text())
        elif prop.name in OWN_NUMBERS:
            entry.values[OWN_NUMBERS[prop.name]] = leading_number(prop.text())
    entry.group_names = entry.group_names or [ALL_CONTACTS]
    for prop in card.all_of(EXACT):
        exact = dict(zip(EXACT_FIELDS, map(from_percent, prop.text().split(";"))))
        if is_unedited(entry, Contact(**exact), keep_numbers):
            entry.values |= exact
            entry.group_names = []
            entry.remarks = [remark for remark in entry.remarks if remark[0] == "card"]


def is_unedited(entry, exact, keep_numbers):
    """Whether the card says of the contact what its export said."""
    said = stated(exact, keep_numbers)
    return said.group_names == entry.group_names and all(
        said.values[key] == entry.values[key] for key in said.values)


def stated(contact, keep_numbers):
    """What the card of a contact says without the properties of the directory's own."""
    entry = Entry("", 0, {})
    read_properties(entry, card_file.Card(0, properties=plain_properties(contact)), keep_numbers)
    entry.group_names = entry.group_names or [ALL_CONTACTS]
    return entry


def plain_properties(contact):
    name = escaped(contact.display_name)
    properties = [Property("FN", {}, name), Property("N", {}, f"{name};;;;")]
    for slot, kind in TYPE_OF_SLOT.items():
        number = escaped(getattr(contact, slot))
        if number:
            properties.append(Property("TEL", {"TYPE": [kind]}, number))
    if contact.group_id_name not in ("", ALL_CONTACTS):
        properties.append(Property("CATEGORIES", {}, escaped(contact.group_id_name)))
    return properties


def own_properties(contact, has_photos):
    properties = [Property(LINE, {}, str(contact.line))]
    if contact.ring:
        properties.append(Property(RING, {}, to_percent(contact.ring)))
    if has_photos and contact.default_photo:
        properties.append(Property(PHOTO, {}, to_percent(contact.default_photo)))
    if has_photos and contact.selected_photo:
        properties.append(Property(SELECTED_PHOTO, {}, str(contact.selected_photo)))
    return properties


def exact_property(contact, group_names):
    """Nothing if the card without it brings the contact back."""
    fields = {key: getattr(contact, key) for key in EXACT_FIELDS}
    entry = stated(contact, keep_numbers=False)
    if (entry.values | {"group_id_name": entry.group_names[0]} == fields
            and contact.group_id_name in group_names):
        return []
    return [Property(EXACT, {}, ";".join(map(to_percent, fields.values())))]


def write_cards(directory):
    """The file. What belongs to all of it stands in the first card, where other programs pass over
    it; without contacts, in a card of its own."""
    group_names = {group.display_name for group in directory.groups}
    cards = [plain_properties(contact) + own_properties(contact, directory.has_photos)
             + exact_property(contact, group_names) for contact in directory.contacts]
    cards = cards or [[Property("FN", {}, ""), Property("N", {}, ";;;;")]]
    if not directory.has_photos:
        cards[0].append(Property(SCREEN, {}, PLAIN_SCREEN))
    for group in directory.groups:
        text = f"{to_percent(group.display_name)};{to_percent(group.ring)};{group.read_only:d}"
        cards[0].append(Property(GROUP, {}, text))
    return b"".join(map(card_file.write_card, cards))


def group_of(prop):
    name, ring, read_only = (map(from_percent, (prop.text() + ";;").split(";")[:3]))
    return Group(name, ring, read_only == "1")


def escaped(text):
    return vobject.base.backslashEscape(clean(text))


def to_percent(text):
    return "".join(c if c.isprintable() and c not in "%;,\\" else
                   urllib.parse.quote(c, safe="", errors="surrogateescape") for c in text)


def from_percent(text):
    return from_bytes(urllib.parse.unquote_to_bytes(to_bytes(text))).replace("\0", "")
