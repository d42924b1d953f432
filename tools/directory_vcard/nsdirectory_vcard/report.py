"""What the program says, for people and for programs."""

import collections
import json
import unicodedata


DIRECTIONS = {"LRE", "RLE", "LRO", "RLO", "PDF", "LRI", "RLI", "FSI", "PDI"}


def one_line(text):
    """Names come from strangers, and must not steer a terminal."""
    return "".join("?" if is_steering(c) else c for c in text)


def is_steering(character):
    return (unicodedata.category(character) in ("Cc", "Cs")
            or unicodedata.bidirectional(character) in DIRECTIONS)


def line_of(finding):
    place = f"{finding.file}:{finding.line}" if finding.line else finding.file
    return one_line(": ".join(filter(None, (place, finding.name, finding.kind, finding.reason))))


def counted(names):
    return dict(sorted(collections.Counter(names).items()))


def print_report(report, as_json):
    """The report is a dictionary; what is not findings is printed in one line by its summary."""
    findings = report["findings"]
    if as_json:
        # In ASCII, so that bytes that are no UTF-8 are shown as escapes.
        print(json.dumps({**report, "findings": [vars(finding) for finding in findings]}, indent=2))
        return
    for finding in findings:
        print(line_of(finding))
    if report.get("left_out"):
        names = ", ".join(f"{name} {count}" for name, count in report["left_out"].items())
        print(one_line(f"left out, as contacts have no place for them: {names}"))
    print(one_line(summary(report)))


def number_of(count, thing):
    return f"{count} {thing}" if count == 1 else f"{count} {thing}s"


def summary(report):
    if "exported" in report:
        return (f"exported: {number_of(report['exported'], 'contact')}, "
                f"{number_of(report['groups'], 'group')}")
    made = ", ".join(report["groups_made"]) or "none"
    return (f"{'dry run: ' if report['dry_run'] else ''}{number_of(report['cards'], 'card')}: "
            f"{report['added']} added, {report['replaced']} replaced, "
            f"{report['not_taken']} not taken; groups made: {made}"
            f"{'; both files are new' if report['new_files'] else ''}")
