"""Pretty printers of gdb for the phone book: its String, its list, groups and contacts.

gdb loads them by itself with an installed shared object that lies where it was installed to.
Elsewhere, and for a program that links the static library:

    (gdb) source .../share/nsdirectory/gdb/nsdirectory_printers.py
"""
import gdb
import gdb.printing


class StringPrinter:
    """qz::basic_string: the lowest bit of the first byte tells the short form from the long one."""

    SHORT_TEXT = 1  # the offsets of what the two forms hold
    LONG_SIZE = 4
    LONG_POINTER = 8

    def __init__(self, value):
        self.text_type = gdb.lookup_type("char").pointer()
        self.start = value["m_storage"].address.cast(self.text_type)

    def read(self, offset, value_type):
        return (self.start + offset).cast(value_type.pointer()).dereference()

    def to_string(self):
        tag = int(self.read(0, gdb.lookup_type("unsigned char")))
        if tag & 1:
            size = self.read(self.LONG_SIZE, gdb.lookup_type("unsigned int"))
            return self.read(self.LONG_POINTER, self.text_type).lazy_string(length=int(size))
        return (self.start + self.SHORT_TEXT).lazy_string(length=tag // 2)

    def display_hint(self):
        return "string"


class ListPrinter:
    """QZList, with what its elements point at in place of pointers."""

    def __init__(self, value):
        self.head = value["m_pHead"]
        self.count = int(value["m_nCount"])

    def to_string(self):
        return f"list of {self.count}"

    def children(self):
        node = self.head["next"] if self.count else None
        for index in range(self.count):
            value = node["value"]
            is_pointer = value.type.strip_typedefs().code == gdb.TYPE_CODE_PTR
            yield f"[{index}]", value.dereference() if is_pointer and value else value
            node = node["next"]

    def display_hint(self):
        return "array"


class RecordPrinter:
    """A group or a contact: the fields that differ from those of an empty record."""

    EMPTY_NUMBERS = {"m_nGroupId": -1, "m_nId": -1}

    def __init__(self, value):
        self.value = value

    def to_string(self):
        return self.value.type.unqualified().strip_typedefs().name.split("::")[-1]

    def children(self):
        for field in self.value.type.strip_typedefs().fields():
            value = self.value[field.name]
            if value.type.strip_typedefs().code == gdb.TYPE_CODE_STRUCT:
                is_empty = StringPrinter(value).to_string().length == 0
            else:
                is_empty = int(value) == self.EMPTY_NUMBERS.get(field.name, 0)
            if not is_empty:
                yield field.name, value


def build_printers():
    printers = gdb.printing.RegexpCollectionPrettyPrinter("nsdirectory")
    printers.add_printer("String", r"^qz::basic_string<char>$", StringPrinter)
    printers.add_printer("list", r"^QZList<.*>$", ListPrinter)
    printers.add_printer("record",
                         r"^NS_DIRECTORY::(CContactLocalManager::(GroupData|ItemData)|ContactGroupData"
                         r"|ContactGeneralItemData|ContactGroupSimpleData)$", RecordPrinter)
    return printers


gdb.printing.register_pretty_printer(None, build_printers(), replace=True)
