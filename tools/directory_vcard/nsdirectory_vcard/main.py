"""directory_vcard: the contacts of a data folder out to vCard or CSV, and in from them."""

import argparse
import json
import os
import pathlib
import sys

from . import card_mapping, csv_file, durable, merge, report
from .checker import Checker
from .data_files import DataFolder, contact_file, group_file
from .records import FIXED_GROUPS, Finding, NOT_TAKEN, Unusable, clean

EXIT_ALL_DONE, EXIT_FINDINGS, EXIT_NOTHING_DONE = 0, 1, 2
READERS = {"vcf": card_mapping.read_cards, "csv": csv_file.read_rows}
WRITERS = {"vcf": card_mapping.write_cards, "csv": csv_file.write_rows}


def group_name(text):
    name = clean(text)
    if not name:
        raise argparse.ArgumentTypeError("a group has a name")
    return name


def parse(arguments):
    parser = argparse.ArgumentParser(
        prog="directory_vcard", description="Brings contacts out of a data folder and into it, as "
        "vCard or CSV. No host may run on the folder meanwhile.",
        epilog="Exit status: 0 all taken, 1 something is reported, 2 nothing is done.")
    commands = parser.add_subparsers(dest="command", required=True)
    for name, summary in (("export", "write all contacts into a file"),
                          ("import", "take the contacts of files into the folder")):
        command = commands.add_parser(name, help=summary, description=summary)
        command.add_argument("--folder", required=True, type=pathlib.Path,
                             help="the folder in which the two files lie")
        command.add_argument("--format", choices=READERS,
                             help="instead of what the name's suffix says: csv, else vcf")
        command.add_argument("--json", action="store_true", help="report as JSON")
    export = commands.choices["export"]
    export.add_argument("out", metavar="OUT", help="the file to be written")
    take = commands.choices["import"]
    take.add_argument("--group", metavar="NAME", type=group_name,
                      help="put every card into this group")
    take.add_argument("--replace", action="store_true",
                      help="give contacts that are there the values of the card of their name")
    take.add_argument("--dry-run", action="store_true", help="report, and change nothing")
    take.add_argument("--keep-numbers", action="store_true",
                      help="leave blanks, dashes and the like in numbers")
    take.add_argument("inputs", metavar="IN", nargs="+", help="a file to be read")
    return parser.parse_args(arguments)


def format_of(options, path):
    return options.format or ("csv" if path.lower().endswith(".csv") else "vcf")


def open_directory(folder, checker):
    verdict = checker.judge_folder(folder.path)
    if verdict.damage:
        raise Unusable("; ".join(verdict.damage))
    return folder.directory(verdict)


def run_export(options, checker):
    folder = DataFolder(options.folder)
    if folder.is_new():
        raise Unusable(f"{options.folder} holds neither of the two files of a directory")
    if options.out == "-":
        raise Unusable("an export goes into a file, not to the standard output")
    if os.path.realpath(options.out) in map(os.path.realpath, folder.paths()):
        raise Unusable(f"{options.out} is a file of the directory itself")
    directory = open_directory(folder, checker)
    form = format_of(options, options.out)
    data = WRITERS[form](directory)
    findings = differences(directory, READERS[form](options.out, data, keep_numbers=form == "csv"))
    write_out(options.out, data)
    return {"exported": len(directory.contacts), "groups": len(directory.groups),
            "findings": findings}


def differences(directory, found):
    """What would come back from the export otherwise than it went."""
    back = [entry.contact() for entry in found.entries]
    pairs = [*zip(directory.contacts, back), *zip(directory.groups, found.groups)]
    return [Finding(found.path, 0, clean(before.display_name), "changed",
                    "the file cannot hold all of its characters")
            for before, after in pairs if before != after]


def write_out(path, data):
    if os.path.exists(path) and not os.path.isfile(path):
        pathlib.Path(path).write_bytes(data)  # a pipe or the like
    else:
        durable.replace_all([(path, data)])


def run_import(options, checker):
    folder = DataFolder(options.folder)
    directory = open_directory(folder, checker)
    inputs = [READERS[format_of(options, path)](path, pathlib.Path(path).read_bytes(),
                                                options.keep_numbers)
              for path in options.inputs]
    merged = merge.Merge(directory, inputs, checker)
    result = merged.run(options.replace, options.group)
    if merged.has_changes() and not options.dry_run:
        replace_files(folder, result)
    return import_report(options, merged, folder.is_new())


def replace_files(folder, directory):
    """The group file first: contacts find their groups whichever files a power cut leaves."""
    if folder.read() != folder.found:
        raise Unusable("the two files have changed meanwhile: does a host run on them?")
    new = group_file(directory.groups), contact_file(directory.contacts, directory.has_photos)
    durable.replace_all([(path, data) for path, data, old in zip(folder.paths(), new, folder.found)
                         if data != old])


def import_report(options, merged, is_new):
    findings = sorted(merged.findings,
                      key=lambda finding: (options.inputs.index(finding.file), finding.line))
    replaced = sum(change.old is not None for change in merged.changes)
    not_taken = sum(finding.kind == NOT_TAKEN for finding in findings)
    return {"cards": len(merged.changes) + not_taken, "added": len(merged.changes) - replaced,
            "replaced": replaced, "not_taken": not_taken, "dry_run": options.dry_run,
            "new_files": is_new and merged.has_changes(),
            "groups_made": [group.display_name for group, _ in merged.made_groups
                            if group.display_name not in FIXED_GROUPS],
            "left_out": report.counted(name for found in merged.inputs for name in found.left_out),
            "findings": findings}


def tell(done, as_json):
    try:
        report.print_report(done, as_json)
        sys.stdout.flush()
    except OSError as error:
        complain(f"it is done, but the report cannot be written: {error.strerror}")
        os.dup2(os.open(os.devnull, os.O_WRONLY), sys.stdout.fileno())  # for the flush at the end
        return EXIT_FINDINGS
    return EXIT_FINDINGS if done["findings"] else EXIT_ALL_DONE


def complain(text):
    print(f"directory_vcard: {report.one_line(text)}", file=sys.stderr)


def text_of(error):
    if isinstance(error, OSError):
        return ": ".join(filter(None, (error.filename, error.strerror)))
    return str(error)


def main(own_folder, arguments=None):
    options = parse(arguments)
    for stream in (sys.stdout, sys.stderr):
        stream.reconfigure(errors="backslashreplace")
    run = {"export": run_export, "import": run_import}[options.command]
    try:
        done = run(options, Checker(own_folder))
    except (Unusable, OSError) as error:
        complain(text_of(error))
        if options.json:
            print(json.dumps({"error": text_of(error)}))
        return EXIT_NOTHING_DONE
    return tell(done, options.json)
