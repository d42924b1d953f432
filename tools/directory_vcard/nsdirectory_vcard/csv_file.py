"""CSV files as Python's csv module writes them: a row of column names, then a row for each group
and each contact. The columns are named as the attributes in the two files."""

import csv
import dataclasses
import io
import sys

from . import card_file
from .card_mapping import NAMELESS, first_number, number_of
from .records import Contact, Entry, Finding, Group, InputFile, NOT_TAKEN, NUMBER_SLOTS, Unusable
from .records import clean, leading_number

RECORD = "record"  # what the row is of
GROUP_ROW, CONTACT_ROW = "group", "contact"
READ_ONLY = "read_only"
PHOTO_COLUMNS = ("default_photo", "selected_photo")
FIELDS = {field.name: field for field in dataclasses.fields(Contact)}
COLUMNS = (RECORD, *FIELDS, READ_ONLY)
csv.field_size_limit(sys.maxsize)
DELIMITERS = ",;\t"  # spreadsheets of some countries write the others


def read_rows(path, data, keep_numbers):
    found = InputFile(path)
    rows = records(found, card_file.decoded(data.removeprefix(card_file.BOM), None))
    columns = [name.strip().lower() for name in next(rows, (0, []))[1]]
    if not {"display_name", *NUMBER_SLOTS} & set(columns):
        raise Unusable(f"{path}: the first row names no column of a contact, such as "
                       "display_name and mobile_number")
    found.left_out = [name for name in columns if name not in COLUMNS]
    if RECORD in columns:
        found.has_photos = any(name in columns for name in PHOTO_COLUMNS)
    for line, cells in rows:
        row = dict(zip(columns, cells))
        if row.get(RECORD, "").strip().lower() == GROUP_ROW:
            found.groups.append(Group(row.get("display_name", ""), row.get("ring", ""),
                                      row.get(READ_ONLY, "") == "1"))
        elif any(map(str.strip, cells)):
            entry = read_contact(path, line, row, keep_numbers)
            if any(map(str.strip, cells[len(columns):])):
                entry.remarks.append(("row", "it has more cells than there are columns"))
            if entry.values["display_name"] or RECORD in row:
                found.entries.append(entry)
            else:
                found.findings.append(entry.finding(NOT_TAKEN, NAMELESS))
    return found


def records(found, text):
    """Each row with the line on which it begins. An open quote would take in the rows that follow:
    where one of them looks like a row of its own, the first line is read alone."""
    lines = list(io.StringIO(text, newline=""))
    header = lines[0] if lines else ""
    delimiter = min(DELIMITERS, key=lambda sign: (header + sign).index(sign))
    place, width = 0, 0
    while place < len(lines):
        cells, count = next_row((lines[n] for n in range(place, len(lines))), delimiter)
        if any(is_row(lines[n], delimiter, width) for n in range(place + 1, place + count)):
            cells, count = next_row([lines[place]], delimiter)
            found.findings.append(
                Finding(found.path, place + 1, clean(cells[0]), "row", "a quote is left open"))
        width = width or len(cells)
        yield place + 1, cells
        place += count


def next_row(lines, delimiter):
    reader = csv.reader(lines, delimiter=delimiter)
    return next(reader, []), max(1, reader.line_num)


def is_row(line, delimiter, width):
    """Not so the last line of a cell with line breaks, which holds one quote."""
    return line.count('"') % 2 == 0 and len(next_row([line], delimiter)[0]) == width


def read_contact(path, line, row, keep_numbers):
    entry = Entry(path, line, {"display_name": ""})
    for name in filter(row.__contains__, FIELDS):
        entry.values[name] = (number_of(entry, row[name], keep_numbers) if name in NUMBER_SLOTS
                              else value_of(name, row[name]))
    group_name = entry.values.pop("group_id_name", "")
    entry.group_names = [group_name] if group_name else []
    if RECORD not in row and not entry.values["display_name"]:
        entry.values["display_name"] = first_number(entry.values)
    return entry


def value_of(name, cell):
    return leading_number(cell) if FIELDS[name].type is int else clean(cell)


def write_rows(directory):
    absent = () if directory.has_photos else PHOTO_COLUMNS
    text = io.StringIO(newline="")
    columns = [name for name in COLUMNS if name not in absent]
    writer = csv.DictWriter(text, columns, restval="", extrasaction="ignore", lineterminator="\r\n")
    writer.writeheader()
    for group in directory.groups:
        writer.writerow({**vars(group), RECORD: GROUP_ROW, READ_ONLY: int(group.read_only)})
    for contact in directory.contacts:
        writer.writerow({**vars(contact), RECORD: CONTACT_ROW})
    return text.getvalue().encode("utf-8", "replace")
