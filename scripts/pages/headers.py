# SPDX-License-Identifier: Apache-2.0
"""Reads the public headers: their operations, records and comments. Whatever it does not understand is an error."""

import re
from dataclasses import dataclass, field
from pathlib import Path

ROOT = Path(__file__).resolve().parents[2]
HEADERS = ROOT / "interface/qel/api"
SERVICE = HEADERS / "camera/CameraAPIIf.h"
BASE_SERVICE = HEADERS / "base/BaseAPIIf.h"
TABLE = HEADERS / "camera/Operations.h"


class Misunderstood(Exception):
    """A header is not written the way that is read here."""


@dataclass
class Operation:
    name: str
    group: str
    result: str
    arguments: list[tuple[str, str]]  # type, name; without _return
    text: str


@dataclass
class Group:
    name: str
    text: str
    line: str  # both, as the header has them
    operations: list[Operation] = field(default_factory=list)


@dataclass
class Field:
    type: str
    name: str
    text: str


@dataclass
class Record:
    name: str
    text: str
    fields: list[Field] = field(default_factory=list)


@dataclass
class Enumeration:
    name: str
    text: str
    values: list[tuple[str, str, str]]  # name, value, comment


def _comment(lines: list[str]) -> str:
    """Lines of a comment as paragraphs, each on one line."""
    paragraphs = "\n".join(line.strip() for line in lines).split("\n\n")
    return "\n\n".join(" ".join(paragraph.split()) for paragraph in paragraphs)


def _after(line: str, mark: str) -> str:
    return line.strip().removeprefix(mark).strip()


def _declaration(text: str, group: str, comment: list[str]) -> Operation:
    match = re.fullmatch(r"virtual void (\w+)\((.*)\) = 0;", " ".join(text.split()))
    if not match:
        raise Misunderstood(f"not an operation: {text}")
    name, parameters = match.groups()
    if not comment:
        raise Misunderstood(f"{name} has no comment")
    parsed = []
    for parameter in parameters.split(", "):
        plain = re.sub(r"\bstd::(\w+)_t\b", r"\1", parameter.removeprefix("const ").replace("::type", ""))
        pieces = re.fullmatch(r"(\w+)(?:&)? (\w+)", plain)
        if not pieces:
            raise Misunderstood(f"{name} has an argument that is not understood: {parameter}")
        parsed.append(pieces.groups())
    if parsed[0][1] != "_return":
        raise Misunderstood(f"{name} does not begin with _return")
    return Operation(name, group, parsed[0][0], parsed[1:], _comment(comment))


def read_service(path: Path = SERVICE) -> tuple[str, list[Group]]:
    """The comment of the whole service and its operations, in the order of their declaration."""
    lines = path.read_text().splitlines()
    start = next(i for i, line in enumerate(lines) if line.startswith(f"class {path.stem} "))
    first = start
    while lines[first - 1].startswith("///"):
        first -= 1
    about = _comment([_after(line, "///") for line in lines[first:start]])

    groups: list[Group] = []
    comment: list[str] = []
    declaration = ""
    for line in lines[start + 1 :]:
        line = line.strip()
        if line in ("};", "protected:"):
            break
        if declaration or line.startswith("virtual void "):
            declaration += " " + line
            if declaration.endswith(";"):
                groups = groups or [Group("", "", "")]
                groups[-1].operations.append(_declaration(declaration, groups[-1].name, comment))
                declaration, comment = "", []
        elif line.startswith("///"):
            comment.append(_after(line, "///"))
        elif line.startswith("// "):
            title, _, text = re.match(r"// (\w[\w ]*)([:.]) (.*)", line).groups()
            groups.append(Group(title, text[0].upper() + text[1:], _after(line, "//")))
        elif line not in ("", "public:") and not line.startswith("virtual ~"):
            raise Misunderstood(f"{path}: not understood: {line}")
    return about, groups


def by_name(groups: list[Group]) -> list[Group]:
    """The groups, those of one name joined: an operation that came later stands with its kind."""
    joined: dict[str, Group] = {}
    for group in groups:
        first = joined.setdefault(group.name, Group(group.name, group.text, group.line))
        first.operations += group.operations
    return list(joined.values())


def read_table() -> list[tuple[str, list[str]]]:
    """Each operation of the table with the names of its arguments, in the table's order."""
    text = TABLE.read_text()
    found = re.findall(r'^    QEL_API_OPERATION\((\w+)((?:,\s*"\w+")*)\),$', text, re.M)
    if len(found) + 1 != text.count("QEL_API_OPERATION("):  # one defines it
        raise Misunderstood(f"{TABLE}: not every operation is understood")
    return [(name, re.findall(r'"(\w+)"', arguments)) for name, arguments in found]


def read_enumerations(header: str) -> list[Enumeration]:
    """The enumerations of a header, each a struct with an enum named type."""
    path = HEADERS / header
    text = path.read_text()
    found = re.findall(r"((?:^///.*\n)+)struct (\w+) \{\s*enum type : std::int32_t \{([^}]*)\};", text, re.M)
    if len(found) != text.count("enum type"):
        raise Misunderstood(f"{path}: not every enumeration is understood")
    return [Enumeration(name, _comment([_after(line, "///") for line in comment.splitlines()]),
                        re.findall(r"(\w+) = (-?\d+),?(?: *///< (.*))?", values)) for comment, name, values in found]


def read_records(header: str) -> list[Record]:
    """The records of a header with their fields and comments."""
    path = HEADERS / header
    records: list[Record] = []
    comment: list[str] = []
    inside = False
    for line in path.read_text().splitlines():
        opening = re.match(r"class (\w+) : public virtual ::apache::thrift::TBase \{", line)
        if opening:
            records.append(Record(opening[1], _comment(comment)))
            inside = True
        elif inside and line.strip() == "struct Isset {":
            inside = False
        elif inside and ";" in line:
            pieces = re.fullmatch(r"\s*([\w:<>]+(?:<.*>)?) (m\w+)(?: = [^;]+)?;\s*(?:///< (.*))?", line)
            if not pieces:
                raise Misunderstood(f"{path}: not understood: {line}")
            records[-1].fields.append(Field(pieces[1], pieces[2], pieces[3] or ""))
        comment = comment + [_after(line, "///")] if line.startswith("///") else []
    if not records:
        raise Misunderstood(f"{path}: no records")
    return records


def read_field_table(header: str) -> dict[tuple[str, str], tuple[int, str]]:
    """The id and the form (plain, optional or binary) of each field in a header of field tables, by record and name."""
    path = HEADERS / header
    text = path.read_text()
    fields = {}
    for record, entries in re.findall(r"^QEL_API_FIELD_TABLE\(\w+, (\w+),\n(.*?)\);$", text, re.M | re.S):
        for number, name, form in re.findall(r"QEL_API_FIELD\((\d+), (\w+), (plain|optional|binary)\)", entries):
            fields[record, name] = (int(number), form)
    if len(fields) != text.count("QEL_API_FIELD("):
        raise Misunderstood(f"{path}: not every field is understood")
    return fields
