#!/usr/bin/env python3
"""Makes a header ready for Doxygen: its `//` blocks become documentation, and what is stamped from an
attribute list is written out. Usage: doxygen_filter.py HEADER, from the project's folder.

A block counts for the declaration behind it, for further overloads of its name, and for all operations
of the attribute that it tells of. To the operations of an attribute this adds what every operation of
their form does (OPERATIONS), and to a class that has a list a table of its attributes. No line is moved,
so warnings name the right one.
"""

import re
import sys
from pathlib import Path

SRC = Path("src")

KINDS = {
    "PARAM": "constructor parameter",
    "PARAM_REFERENCE": "constructor parameter, reference",
    "SCALAR": "scalar",
    "TEXT": "text",
    "REFERENCE": "reference",
    "SINGLETON": "child",
    "VALUES": "values by key",
    "TEXTS": "texts by key",
    "CHILDREN": "children by key",
    "REFERENCES": "references by name",
}
FIELDS = {  # What stands behind attr, Attr and id in a row.
    "PARAM": ("Type",),
    "PARAM_REFERENCE": ("Type",),
    "SCALAR": ("Type", "initial"),
    "TEXT": (),
    "REFERENCE": ("Type",),
    "SINGLETON": ("Type",),
    "VALUES": ("Type", "Key"),
    "TEXTS": ("Key",),
    "CHILDREN": ("Type", "Key"),
    "REFERENCES": ("Type", "Key"),
}

VALUE, CHILD, HELD, ENTRIES = "SCALAR TEXT REFERENCE", "SINGLETON", "CHILDREN", "VALUES TEXTS"
KEYED, UNKEYED = "CHILDREN VALUES TEXTS REFERENCES", "SCALAR TEXT REFERENCE SINGLETON"

# What each operation does, by the kinds of attribute that have it and by its form, where `@` is the
# attribute and `^` the same with a capital letter. The first entry that fits is taken.
OPERATIONS = (
    (VALUE, "@Is", "Sets `@`. The present value again does nothing; another one is stored, counts one"
     " mutation, and each listener hears `on^()`."),
    (CHILD, "@Is", "Gives the child `@` made with these arguments. One that has been made with the same"
     " stays: that counts one mutation and tells nobody. Otherwise the present one, if any, is taken out,"
     " which counts one mutation, and a new one takes its place, which counts another; each listener hears"
     " `on^()` once."),
    (CHILD, "@Del", "Takes the child `@` out and gives it. Counts one mutation, and each listener hears"
     " `on^()`. Without a child: null, and nothing happens."),
    (CHILD, "new^", "Makes a child for `@` with this entity as its parent; `@Is` is what clients call."
     " The attribute stays as it is, nothing is counted and nobody told."),
    (HELD, "@Is", "Gives the member of `@` under the key. A missing one is made with the arguments, and"
     " each listener hears `on^( key )`; for one that exists nobody is told. Counts one mutation either"
     " way."),
    (HELD, "new^", "Makes a member of `@`, which replaces one under the same key; `@Is` is what clients"
     " call. Nothing is counted and nobody told."),
    (HELD, "@Del", "Takes the member of `@` out, under a key or where an iterator stands, and gives it."
     " Counts one mutation, and each listener hears `on^( key )`. Without such a member: null, and"
     " nothing happens."),
    (ENTRIES, "@Is", "Stores a value of `@` under the key. An equal one that is there already changes"
     " nothing; otherwise this counts one mutation, and each listener hears `on^( key )`."),
    (ENTRIES, "new^", "Makes an entry of `@`, which replaces one under the same key; `@Is` is what"
     " clients call. Nothing is counted and nobody told."),
    (ENTRIES, "@Del", "Takes a value of `@` out, under a key or where an iterator stands, and gives it."
     " Counts one mutation, and each listener hears `on^( key )`. Without such a value: the default, and"
     " nothing happens."),
    ("REFERENCES", "@Is", "Enters a reference into `@` under the name of what it refers to. Counts one"
     " mutation, and each listener hears `on^( name )`, unless that very reference is there already."),
    ("REFERENCES", "new^", "Makes an entry of `@`; `@Is` is what clients call. Nothing is counted and"
     " nobody told."),
    ("REFERENCES", "zol^", "The entry of `@` under the name, or null. Counts no read."),
    ("REFERENCES", "@Del", "Takes a reference of `@` out, under a name or where an iterator stands, and"
     " gives what it refers to, which keeps its parent. Counts one mutation, and each listener hears"
     " `on^( name )`. Without such a reference: null, and nothing happens."),
    (KEYED, "@DelAll", "Takes everything out of `@`, member by member in walking order, each with one"
     " mutation and one notification."),
    (KEYED, "@Notify", "Calls `on^( key )` of each listener, whether or not there is such a member."
     " Counts nothing."),
    (KEYED, "@Count", "How many members `@` has. Counts no read."),
    (KEYED, "@Iterator", "On the first member of `@`, or on nothing when it has none; what `@Del`"
     " takes."),
    (KEYED, "@IteratorConst", "On the first member of `@`, or on nothing when it has none. With a key: on"
     " the member under the key; when that is absent, {absent}."),
    (KEYED, "^Map", "The collection that `@` is kept in, with its iterators."),
    (KEYED, "Zol^", "An entry of `@`."),
    (KEYED, "on^zolImmediate", "A slot for `@` that no mutator calls."),
    (UNKEYED, "on^", "`@` has changed."),
    (KEYED, "@", "By key, from `@`; {none} when the key is absent. Counts one read."),
    ("", "@", "Counts one read."),
)

# What has one meaning wherever it stands.
EVERYWHERE = {
    "_fwkType": "The type object of this class.",
    "fwkType": "The type object of the object's own class.",
    "operator bool": "False for null, and for what stands on nothing.",
    "operator*": "What this refers to or stands on, which must be something: there is no test.",
    "operator->": "As the operator `*`.",
    "get": "The object as a plain pointer.",
    "key": "The key of the member that this stands on.",
    "ptr": "The member that this stands on, or the entity that it refers to, held by a count.",
    "entry": "The entry that this stands on, or null.",
    "map": "The collection.",
    "count": "The number of members.",
    "version": "A number that each change of membership raises.",
    "size": "The number of bytes.",
    "zolKey": "The key under which the collection holds the entry.",
    "zolValue": "What the entry keeps.",
    "zolValueIs": "Keeps something else; it tells nobody, so it is not for clients.",
    "zolTreeLink_": "For the collection.",
    "zolHashLink_": "For the collection.",
    "sequenceToValue": "Reads the text form at `position` and moves behind it. The pointer only selects the"
    " type. Throws `RangeException` for a text that stands for no such value.",
    "zolTypeOf": "How `Zol::typeOf` finds the type object.",
    "attributeString": "The name of the attribute with this id; `unknown` for an id that the class does not have.",
    "zolNboAttrLogSaIs": "The stream adapter of this entity on `out`, made when it is missing; for the"
    " runtime. See `Zol::Entity::zolNboAttrLogSaIs`.",
    "operator++": "Moves to the next; stays where it is when it stands on nothing.",
    "notifier": "The entity that this listener listens to, or null.",
    "Id": "The ids of the attributes, under their names.",
    "NotifieeConst": "Base of the listeners of this class of entities, with a slot for each change.",
    "Notifiee": "What clients derive their listeners from: override the slots of interest, make it with"
    " `new`, hold it by a `Zol::Ptr`, register it and give it its notifier.",
    "kListenerClass": "Its address marks the listeners of this class: see `Zol::listenerCast`.",
    "isListener": "Whether a listener is of this class: see `Zol::listenerCast`.",
}

MAIN_PAGE = (" Begin at the two roots, Hardware::Ucd9012::Config and Hardware::Ucd9012::Status."
             " Zol::NboAttrLog::Connection replicates them, and Zol::GenericIf reaches attributes by name.")

ROW = re.compile(r"^ZOL_(\w+)\s*\((.*)\)\s*$")
INCLUDE = re.compile(r'^\s*#include "([^"]+)"')
RULES = re.compile(r"(?:EntityRules<)?(?:Zol::)?AttributeRules<([\w:]+)>+|EntityRules<([\w:]+)>")
SCOPE = re.compile(r"^(?:template\s*<.*?>\s*)?(?:inline\s+)?(namespace|enum|class|struct|union)\b")


class Row:
    def __init__(self, kind, attr, capital, number, rest):
        self.kind, self.attr, self.capital, self.number = kind, attr, capital, number
        named = dict(zip(FIELDS[kind], rest))
        self.type = named.get("Type", "Zol::String8")
        self.key = named.get("Key")
        self.initial = {"TEXT": "empty", "REFERENCE": "null", "SINGLETON": "null"}.get(kind, "")
        self.initial = named.get("initial", self.initial or ("empty" if self.key else "given"))
        if self.type.startswith("Units::"):
            self.initial = "negative infinity"
        self.slot = f"on{capital}( key )" if self.key else f"on{capital}()"
        if kind.startswith("PARAM"):
            self.slot = ""

    def fill(self, text):
        return text.replace("@", self.attr).replace("^", self.capital)


def read_list(path):
    """The rows of an attribute list, or (name, number) of each enumerator of an enumeration's list."""
    rows, enumerators = [], []
    for line in (SRC / path).read_text(encoding="utf-8").splitlines():
        match = ROW.match(line)
        if not match:
            continue
        args = [arg.strip() for arg in match[2].split(",")]
        if match[1] == "ENUMERATOR":
            enumerators.append((args[0], args[1]))
        elif match[1] in KINDS:
            rows.append(Row(match[1], args[0], args[1], args[2], args[3:]))
    return rows, enumerators


def read_stamp(path):
    """The bodies of a stamp for attributes without a key and with one, as they stand in its file."""
    text = (SRC / path).read_text(encoding="utf-8").replace("\\\n", "\n")
    bodies = {}
    for match in re.finditer(r"#define ZOL_(\w+)\([^)]*\)(.*?)(?=\n#define|\Z)", text, re.DOTALL):
        bodies[match[1]] = match[2]
    return bodies


def stamped(body, row):
    """The declarations of a stamp's body for one row, one a piece."""
    for name, value in (("attr", row.attr), ("Attr", row.capital), ("id", row.number)):
        body = re.sub(rf"(##)?\b{name}\b(##)?", value, body)
    body = re.sub(r"\bKey\b", row.key or "", body)
    return [" ".join(piece.split()) for piece in re.findall(r"[^{};]*(?:\{[^}]*\}|;)", body)]


def escaped(text, in_code=False):
    """Plain text for Doxygen, with code in apostrophes set as code, where names become links."""
    result = []
    for char in text:
        if char == "`":
            result.append("</tt>" if in_code else "<tt>")
            in_code = not in_code
        else:
            result.append("\\" + char if char in "\\@#<>%&$" else char)
    return "".join(result), in_code


def one_line(text):
    return "/** " + escaped(text)[0] + " */ "


def bare(line):
    """A line without its strings and comments."""
    line = re.sub(r'"(?:\\.|[^"\\])*"', '""', line)
    return re.sub(r"//.*$", "", re.sub(r"'(?:\\.|[^'\\])'", "''", line))


def declared_name(head):
    """The name that a declaration declares, or None."""
    head = re.sub(r"\[\[.*?\]\]|ZOL_EXPORT", " ", head)
    head = re.sub(r"^\s*template\s*<[^>]*>", "", head).strip()
    head = re.sub(r"^requires\s*(\((?:[^()]|\([^()]*\))*\)|.*?>\s)", "", head).strip()
    match = re.match(r"(?:friend\s+)?(?:enum\s+)?(?:class|struct|union|namespace)\s+([\w:]+)", head)
    match = match or re.match(r"using\s+(\w+)\s*=", head)
    match = match or re.search(r"(operator\s*(?:\(\)|[^\s(]+))\s*\(", head)
    match = match or re.search(r"(~?\w+)\s*\(", head)
    match = match or re.search(r"(\w+)\s*(?:=.*|\{.*)?[;,]?\s*$", head)
    return match[1].split("::")[-1] if match else None


class Header:
    def __init__(self, path):
        self.path = Path(path)
        self.lines = self.path.read_text(encoding="utf-8").splitlines()
        self.out = []
        self.scopes, self.names = [], []  # The kinds and the names of what is open here.
        self.private = []
        self.rows = []
        self.about = {}  # What is told of each attribute.
        self.shared = (None, "")  # A name, and the comment that counts for its overloads too.

    def run(self):
        at = self.file_comment()
        while at < len(self.lines):
            at = self.step(at)
        return "\n".join(self.out) + "\n"

    def file_comment(self):
        at = 0
        while at < len(self.lines) and self.lines[at].startswith("//"):
            at += 1
        self.comment(0, at)
        if self.path.name == "hwrailseq.h":
            self.out[0] = self.out[0].replace("///", "/// \\mainpage HwRailSeq\n///\n///", 1)
            self.out[-1] += MAIN_PAGE
        else:
            self.out[:0] = ["/// \\file"]
        return at

    def step(self, at):
        line = self.lines[at].strip()
        if line.startswith("//"):
            end = at
            while self.lines[end].strip().startswith("//"):
                end += 1
            follower = self.lines[end].strip()
            if not follower or follower.startswith(("#", "}", "private:")):
                self.out += self.lines[at:end]
                return end
            self.comment(at, end)
            return self.declaration(end, " ".join(part.strip()[2:].strip() for part in self.lines[at:end]))
        if line.startswith("#"):
            return self.include(at)
        if re.match(r"(public|protected|private):", line):
            if self.private:
                self.private[-1] = line.startswith("private")
        elif line.startswith("}"):
            if self.scopes:
                self.scopes.pop()
                self.names.pop()
                self.private.pop()
            if any(self.private):
                line = self.lines[at] = ""
        elif line:
            return self.declaration(at, "")
        else:
            self.shared = (None, "")
        self.out.append(self.lines[at])
        return at + 1

    def comment(self, begin, end):
        """Turns the lines of a block into documentation."""
        in_code = in_example = False
        for at in range(begin, end):
            indent, text = re.match(r"(\s*)//(.*)", self.lines[at]).groups()
            follower = self.lines[at + 1].strip()[2:] if at + 1 < end else ""
            if in_example:
                line = text[3:]
                if not text.strip() or at + 1 == end:
                    line, in_example = line + " @endcode", False
            elif not text.strip() and follower.startswith("   "):
                line, in_example = "@code{.cpp}", True
            else:
                line, in_code = escaped(text[1:], in_code)
            self.out.append(f"{indent}/// {line}")

    def include(self, at):
        """Writes out what a stamp makes of a list; leaves any other line of the preprocessor alone."""
        self.out.append("" if self.scopes[-1:] not in ([], ["namespace"]) else self.lines[at])
        stamp, list_ = (INCLUDE.match(line) for line in (self.lines[at:at + 2] + ["", ""])[:2])
        if not (stamp and list_ and "stamp_" in stamp[1] and list_[1].endswith(".def")):
            return at + 1
        rows, enumerators = read_list(list_[1])
        pieces = [one_line(f"Number {number}.") + f"{name} = {number}," for name, number in enumerators]
        if stamp[1].endswith("stamp_ids.h"):
            pieces = [one_line(f"Id of `{row.attr}`.") + f"{row.attr} = {row.number}," for row in rows]
        elif not enumerators and not any(self.private):
            bodies = read_stamp(stamp[1])
            for row in rows:
                body = bodies.get("KEYED" if row.key else "UNKEYED", "")
                if row.kind.startswith("PARAM"):
                    body = ""
                pieces += [self.documented(piece, row) + piece for piece in stamped(body, row)]
        self.out.append(" ".join(pieces))
        return at + 2

    def documented(self, piece, row):
        """The documentation of a stamped declaration."""
        if not re.search(r"\bvoid on", piece):
            return self.operation(declared_name(piece), row)
        if re.search(r"\([^)]", piece):
            what = "made" if row.kind == HELD else "stored"
            return one_line(f"The member of `{row.attr}` under this key has been {what} or taken out.")
        if row.key and "zolImmediate" not in piece:
            return one_line(f"A slot for `{row.attr}` as a whole, which no mutator calls.")
        return self.operation(declared_name(piece), row)

    def operation(self, name, row):
        return one_line(self.operation_text(name, row) or "")

    def operation_text(self, name, row):
        for kinds, form, text in OPERATIONS:
            if row.fill(form) == name and (not kinds or row.kind in kinds.split()):
                ordered = f"{row.capital}Map = Zol::RbTreeMap" in re.sub(r"\s+", " ", "\n".join(self.lines))
                absent = "on the one with the least greater key" if ordered else "on nothing"
                none = "the default" if row.kind in ENTRIES.split() else "null"
                return row.fill(text).replace("{absent}", absent).replace("{none}", none)
        return None

    def row_of(self, name):
        """The attribute whose operation has this name, or None."""
        fitting = [row for row in self.rows if self.operation_text(name, row)]
        return max(fitting, key=lambda row: len(row.attr), default=None)

    def declaration(self, at, comment):
        end, head, opens = self.statement(at)
        name = declared_name(head)
        scope = SCOPE.match(re.sub(r"\[\[.*?\]\]", "", head).strip())
        lines = self.lines[at:end + 1]
        if any(self.private) or not comment and self.expected(name, head):
            self.out += [""] * len(lines)
        else:
            table = ""
            if opens:
                lines = [RULES.sub(r"\1\2", line) for line in lines]
                if scope[1] == "class" and self.scopes[-1:] == ["namespace"]:
                    self.rows, has_ids = self.own_list(at, name)
                    table = self.table() if has_ids else ""
            lines[0] = table + self.added(name, comment, head, opens) + lines[0]
            self.out += lines
        if opens:
            self.scopes.append(scope[1])
            self.names.append(name)
            self.private.append(scope[1] == "class")
        return end + 1

    def own_list(self, at, name):
        """The rows of the list in a class's own body, or none, and whether they make up its ids."""
        indent = self.lines[at][:-len(self.lines[at].lstrip())]
        body = "\n".join(self.lines[at:self.lines.index(f"{indent}}};", at)])
        match = re.search(r'stamp_(?:ids|slots)\.h"\n#include "([^"]+)"', body)
        rows = read_list(match[1])[0] if match else []
        parameters = re.search(rf"\b{name}\(([^)]*)\)", body)
        for row in rows:
            if parameters and re.search(rf"\b{row.attr}\b", parameters[1]):
                row.initial = "given"
        return rows, "struct Id {" in body

    def added(self, name, comment, head, opens):
        """What is said of a declaration beyond the comment that stands at it."""
        if head.strip().startswith(("class ", "struct ")) and not opens:
            return ""
        if opens:
            return "" if comment or name not in EVERYWHERE else one_line(EVERYWHERE[name])
        row = self.row_of(name) if self.scopes and self.scopes[-1] != "namespace" else None
        if row and row.attr in (name, name.removesuffix("Is")) and comment:
            self.about[row.attr] = comment
        if comment:
            self.shared = (name, comment)
            return self.operation(name, row) if row else ""
        if row:
            about = self.about.get(row.attr, "")
            return one_line(f"{self.operation_text(name, row)} {about}")
        if self.family(name) == self.family(self.shared[0]):
            return one_line(self.shared[1])
        return one_line(EVERYWHERE[name]) if name in EVERYWHERE else ""

    def expected(self, name, head):
        """Whether a declaration without a comment is one whose like every class has."""
        own = self.names and self.names[-1]
        if not name or self.family(name) == self.family(self.shared[0]) != own:
            return False
        copies = name == own and re.search(rf"\(\s*(?:{own}|Ptr)?(?:<\w+>)?(?: const&|&&|\))", head)
        compares = re.match(r"operator\s*(==|!=|<=>|<|=|\+|<<|new|delete)$", name)
        return bool(name[0] == "~" or copies or compares or re.search(r"=\s*(delete|default)\s*;?$", head))

    @staticmethod
    def family(name):
        """Names that one comment tells of: overloads, and operations named after a type each."""
        families = (r"_fwkType_\w+", r"\w+Instance", r"throw\w+Exception")
        return next((family for family in families if name and re.fullmatch(family, name)), name)

    def table(self):
        """The attributes of the class as the end of the documentation in front of it."""
        titles = ("Attribute", "Id", "Kind", "Type", "Key", "Slot of listeners", "Initially")
        lines = ["", "Attributes:", "", " | ".join(titles), " | ".join("---" for _ in titles)]
        for row in self.rows:
            cells = (row.attr + "()", row.number, KINDS[row.kind], row.type, row.key or "", row.slot)
            lines.append(escaped(" | ".join((*cells, row.initial.split("::")[-1])))[0])
        return "".join(f"/// {line}\n" for line in lines)

    def statement(self, at):
        """The last line of the statement that begins at a line, its head, and whether it opens a scope."""
        head, depth, parens = "", 0, 0
        for end in range(at, len(self.lines)):
            line = bare(self.lines[end])
            if line.lstrip().startswith("#"):
                continue
            for place, char in enumerate(line):
                if char in "([":
                    parens += 1
                elif char in ")]":
                    parens -= 1
                elif char == "{" and parens == 0:
                    if depth == 0 and SCOPE.match(re.sub(r"\[\[.*?\]\]", "", head).strip()):
                        if "}" not in line[place:]:
                            return end, head, True
                    depth += 1
                elif char == "}" and parens == 0:
                    depth -= 1
                    if depth == 0 and not line[place + 1:].strip().startswith((";", ",", "{")):
                        return end, head, False
                elif char == ";" and depth == 0 and parens == 0:
                    return end, head, False
                elif char == "," and depth == 0 and parens == 0 and self.scopes[-1:] == ["enum"]:
                    return end, head, False
                if depth == 0:
                    head += char
            head += " " if depth == 0 else ""
            if end + 1 < len(self.lines) and self.scopes[-1:] == ["enum"] and "}" in self.lines[end + 1]:
                return end, head, False
        return len(self.lines) - 1, head, False


def main():
    sys.stdout.write(Header(sys.argv[1]).run())


main()
