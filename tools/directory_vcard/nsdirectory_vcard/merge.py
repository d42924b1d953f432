"""What an import makes of a directory. Limits are the checker's to judge: it is shown what was
there before first, then the cards in their order, so what was there before wins."""

import dataclasses

from . import data_files
from .records import ALL_CONTACTS, BLACKLIST, Contact, Directory, Entry, FIXED_GROUPS, Finding
from .records import Group, NOT_TAKEN, Unusable, clean, name_key


@dataclasses.dataclass
class Change:
    entry: Entry
    old: Contact | None  # the one that is replaced
    new: Contact

    def needs_slot(self):
        """Whether its side of the blacklist gets one contact more."""
        return self.old is None or self.old.is_blocked() != self.new.is_blocked()


class Merge:
    """The whole import but for reading and writing."""

    def __init__(self, directory, inputs, checker):
        self.directory = directory
        self.inputs = inputs
        self.checker = checker
        self.groups = list(directory.groups)
        self.has_photos = directory.has_photos
        if not directory.contacts:
            self.has_photos = all(found.has_photos is not False for found in inputs)
        self.findings = [finding for found in inputs for finding in found.findings]
        self.changes = []
        self.made_groups = []  # pairs of Group and path
        self.has_new_rings = False

    def run(self, replace, group_name):
        """The directory with the cards in it."""
        if group_name is None:
            self.define_groups(replace)
        self.collect_changes(replace, group_name)
        refused_before, group_names = self.refuse_over_limits()
        self.make_groups(group_names)
        self.drop_groups_without_slot()
        for change in self.changes:
            self.findings += [change.entry.finding(*remark) for remark in change.entry.remarks]
        result = Directory(in_order(self.groups), in_order(self.contacts()), self.has_photos)
        self.verify(result, refused_before)
        return result

    def has_changes(self):
        return bool(self.changes or self.made_groups or self.has_new_rings)

    def define_groups(self, replace):
        """The groups that exports name, with their rings. On a new device they are all there is."""
        named = [(group, found.path) for found in self.inputs for group in found.groups]
        if named and not self.directory.has_group_file:
            self.groups = []
        for group, path in named:
            there = next((other for other in self.groups if is_same_group(other, group)), None)
            if there is None:
                self.groups.append(group)
                self.made_groups.append((group, path))
            elif there.ring == group.ring:
                continue
            elif replace:
                there.ring = group.ring
                self.has_new_rings = True
            else:
                self.report_group(path, group, "it is there already, and keeps its ring")
        there = {group.display_name for group in self.groups}
        self.groups += [Group(name, "", True) for name in FIXED_GROUPS if name not in there]

    def report_group(self, path, group, reason):
        self.findings.append(Finding(path, 0, clean(group.display_name), "group", reason))

    def collect_changes(self, replace, group_name):
        there, taken = {}, {}
        for contact in self.directory.contacts:
            there.setdefault(name_key(contact.display_name), contact)
        for entry in (entry for found in self.inputs for entry in found.entries):
            key = name_key(entry.values["display_name"])
            if key in taken:
                self.refuse(entry, f"the name is that of {taken[key].file}:{taken[key].line}")
            elif key in there and not replace:
                self.refuse(entry, "a contact of this name is there already")
            else:
                taken[key] = entry
                self.changes.append(change_of(entry, there.get(key), group_name))

    def refuse(self, entry, reason):
        self.findings.append(entry.finding(NOT_TAKEN, reason))

    def contacts(self):
        """Those of before, with new values where they stood; then what needs a slot."""
        changed = {id(change.old): change for change in self.changes if change.old}
        there = [changed[id(contact)].new if id(contact) in changed else contact
                 for contact in self.directory.contacts
                 if id(contact) not in changed or not changed[id(contact)].needs_slot()]
        return there + [change.new for change in self.changes if change.needs_slot()]

    def refuse_over_limits(self):
        """Which contacts of before a start does not take either, and the groups that it takes."""
        while True:
            contacts = self.contacts()
            verdict = self.judge(self.groups, contacts)
            reasons = {id(contacts[place]): reason
                       for place, reason in verdict.refused_contacts.items()}
            refused = [change for change in self.changes if id(change.new) in reasons]
            for change in refused:
                self.refuse(change.entry, reasons[id(change.new)])
            self.changes = [change for change in self.changes if id(change.new) not in reasons]
            # A contact that was not let over stays on its side, and may need its slot there again.
            if all(change.old is None for change in refused):
                return set(reasons), [group.display_name for place, group in enumerate(self.groups)
                                      if place not in verdict.refused_groups]

    def judge(self, groups, contacts):
        return self.checker.judge(data_files.group_file(groups),
                                  data_files.contact_file(contacts, self.has_photos))

    def make_groups(self, names):
        """The groups that the cards name."""
        for change in self.changes:
            wanted = change.entry.group_names
            if not wanted or change.new.is_blocked():
                continue
            name = next(filter(None, (named_group(names, name) for name in wanted)), None)
            if name is None:
                name = wanted[0]
                names.append(name)
                self.groups.append(Group(name))
                self.made_groups.append((self.groups[-1], None))
            change.new.group_id_name = name

    def drop_groups_without_slot(self):
        """A contact that is there stays in its group, a new one goes to "All Contacts"."""
        refused = self.judge(self.groups, []).refused_groups if self.made_groups else {}
        reasons = {id(self.groups[place]): reason for place, reason in refused.items()}
        dropped = [(group, path) for group, path in self.made_groups if id(group) in reasons]
        for group, path in dropped:
            self.made_groups.remove((group, path))
            self.groups = [other for other in self.groups if other is not group]
            self.leave_group(group.display_name, reasons[id(group)])
            if path is not None:
                self.report_group(path, group, f"not made: {reasons[id(group)]}")

    def leave_group(self, name, reason):
        for change in self.changes:
            if change.new.group_id_name == name:
                stays = change.old is not None and not change.needs_slot()
                change.new.group_id_name = change.old.group_id_name if stays else ALL_CONTACTS
                change.entry.remarks.append(("group", f"in {change.new.group_id_name}, since the "
                                             f"group {name} is not made: {reason}"))

    def verify(self, result, refused_before):
        """A start must take all of it, but for what it did not take before."""
        verdict = self.judge(result.groups, result.contacts)
        refused = {id(result.contacts[place]) for place in verdict.refused_contacts}
        if verdict.damage or not refused <= refused_before:
            raise Unusable("a start would not take the new files as they are meant")


def change_of(entry, old, group_name):
    """Its group tells the side of the blacklist only, until the groups are made."""
    values = dict(entry.values)
    if group_name is not None:
        entry.group_names = [group_name]
    if entry.group_names:
        is_blocked = any(is_same_name(name, BLACKLIST) for name in entry.group_names)
        values["group_id_name"] = BLACKLIST if is_blocked else ALL_CONTACTS
    return Change(entry, old, dataclasses.replace(old or Contact(), **values))


def named_group(names, wanted):
    """The one of this name, else one that differs in letter case only."""
    if wanted in names:
        return wanted
    return next((name for name in names if is_same_name(name, wanted)), None)


def is_same_name(left, right):
    return left.casefold() == right.casefold()


def is_same_group(left, right):
    """As the directory has it: the fixed groups are the ones of exactly these names."""
    names = left.display_name, right.display_name
    if any(name in FIXED_GROUPS for name in names):
        return names[0] == names[1]
    return name_key(names[0]) == name_key(names[1])


def in_order(records):
    """As the directory keeps them: by name, and the fixed groups first."""
    def place(record):
        name = record.display_name
        is_fixed = isinstance(record, Group) and name in FIXED_GROUPS
        return (FIXED_GROUPS.index(name) if is_fixed else len(FIXED_GROUPS), name_key(name))
    return sorted(records, key=place)
