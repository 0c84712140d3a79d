#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the reference of the operations, docs/reference.md, from the public headers and operations.toml.

reference.py             writes the page
reference.py --check     fails when the page is not what would be written
"""

import difflib
import re
import sys
import tomllib
from pathlib import Path

sys.dont_write_bytecode = True
import headers  # noqa: E402

DOCS = headers.ROOT / "docs"
PAGE = DOCS / "reference.md"
NUMBERS = DOCS / "numerics.md"

BLOB_BYTES = {"ViewState": 384, "ProjectionState": 336, "SurfaceState": 336, "PlanarCameraState": 1080}
VALUES = {"Vector": "fewer than 3 values", "Quaternion": "fewer than 4 values", "Matrix": "fewer than 4 rows of 4"}
RECORD_HEADERS = ["base/Records.h", "camera/Values.h", "camera/States.h", "camera/Results.h"]

# A sentence with one of these words tells what happens to arguments that make no sense.
DEGENERATE = re.compile(
    r"\b(unchanged|refused?|every \w+ is taken|NaN|infinit\w+|divides?|left out|stored too|stays where it is|"
    r"not limited|no upper bound|counts? as|does not follow|reversed|not tested|nothing is orthonormalised)\b",
    re.IGNORECASE)

INTRODUCTION = """\
<!-- Written by scripts/pages/reference.py from the public headers. Change those, or scripts/pages/operations.toml. -->
# Reference

The {count} operations of [`CameraAPIIf`](../interface/qel/api/camera/CameraAPIIf.h), by what they work on, and
the [records](#records) that they take and give. [The guide](guide.md) says how to use them together.

"Units" are the length unit of the scene: metres, inches, whatever the host's models are in. Angles are radians.
Pixels count from the lower left corner.

"""


class Incomplete(Exception):
    """operations.toml and the headers do not go together."""


class Extra:
    """operations.toml, which remembers what of it was used."""

    def __init__(self) -> None:
        with open(Path(__file__).with_name("operations.toml"), "rb") as file:
            self._data = tomllib.load(file)
        self._unused = {(table, key) for table in ("arguments", "results", "pictures", "drawings")
                        for key in self._data[table]}
        self._unused |= {(operation, key) for operation, keys in self._data["own-arguments"].items() for key in keys}

    def _take(self, table: str, key: str):
        self._unused.discard((table, key))
        return self._data[table].get(key)

    def argument(self, operation: str, kind: str, name: str) -> str:
        own = self._data["own-arguments"].get(operation, {})
        if name in own:
            self._unused.discard((operation, name))
            return own[name]
        text = self._take("arguments", f"{kind} {name}")
        if text is None:
            raise Incomplete(f"operations.toml says nothing of '{kind} {name}' of {operation}")
        return text

    def result(self, operation: headers.Operation) -> str:
        text = self._take("results", operation.name) or self._take("results", operation.result)
        if text is None:
            raise Incomplete(f"operations.toml does not say what {operation.name} gives")
        return text

    def pictures(self, operation: str):
        return self._take("pictures", operation)

    def drawing(self, group: str):
        return self._take("drawings", group)

    def expect_all_used(self) -> None:
        if self._unused:
            raise Incomplete("operations.toml says what no operation wants: "
                             + ", ".join(" ".join(entry) for entry in sorted(self._unused)))


def anchor(title: str) -> str:
    return re.sub(r"[^\w -]", "", title.lower()).replace(" ", "-")


def linked(text: str, names: set[str], self_name: str = "") -> str:
    """The text with the operations' names as links, and argument names and fields as they are."""
    text = text.replace("<operation>", "&lt;operation&gt;")

    def link(match: re.Match) -> str:
        name = match[0]
        return f"[{name}](#{anchor(name)})" if name in names and name != self_name else name

    return re.sub(r"\w+", link, text)


def told_apart(operation: headers.Operation) -> tuple[str, str, str]:
    """The comment's ordinary sentences, those on degenerate arguments, and those on failure."""
    kept, degenerate, failures = [], [], []
    place = kept
    for sentence in re.split(r"(?<=\.) (?=[A-Z`|])", operation.text):
        if sentence.startswith(("Failure:", "Fails ")):
            place = failures
        elif not re.match(r"(It|Its|This)\b", sentence):  # those go with the sentence before
            place = degenerate if kept and DEGENERATE.search(sentence) else kept
        place.append(sentence)
    return " ".join(kept), " ".join(degenerate), " ".join(failures)


def others_with_the_same_cases(description: str, operation: headers.Operation, names: set[str]) -> list[str]:
    """The other operations by which a comment explains this one."""
    return [name for name in dict.fromkeys(re.findall(r"\w+", description)) if name in names - {operation.name}]


def errors(operation: headers.Operation, failures: str) -> str:
    own_text = re.search(r'Failure: "([^"]*)"', failures)
    message = own_text[1] if own_text else f"Call to {operation.name}() failed."
    utility = operation.group == "Utilities"
    code = "4 (CAMERA_API_ERROR_CALL_FAILED)" if utility else "-1"
    reasons = [f"`{name}.mPrivate` is shorter than {BLOB_BYTES[kind]} bytes"
               for kind, name in operation.arguments if kind in BLOB_BYTES]
    for kind, few in VALUES.items():
        short = [f"`{name}`" for own_kind, name in operation.arguments if own_kind == kind and not utility]
        if short:
            reasons.append(" or ".join(filter(None, [", ".join(short[:-1]), short[-1]])) + f" holds {few}")
    own = re.search(r"Fails when (.*)\.$", failures)
    if own:
        reasons.append(own[1])
    if operation.result != "DoubleResult":
        reasons.append("memory runs out")
    causes = ", or when ".join(filter(None, [", when ".join(reasons[:-1]), reasons[-1]]))
    return f'code {code}, "{message}", when {causes}.'


def numeric_sections() -> list[tuple[str, list[tuple[str, str]]]]:
    """The tables of numerics.md that list operations: title, and the names in each row's first cell."""
    sections = []
    for block in re.split(r"(?m)^(?=#{2,3} )", NUMBERS.read_text())[1:]:
        title = block.splitlines()[0].lstrip("# ")
        cells = [line.split("|")[1] for line in block.splitlines() if line.startswith("| ")]
        sections.append((title, [name for cell in cells for name in re.findall(r"`([\w.]+)`", cell)]))
    return sections


def more_on_numbers(name: str, sections) -> str:
    short = {"Irregularities": "irregular on purpose", "Divisions by zero": "can divide by zero",
             "Overflow": "can overflow"}
    found = []
    for title, names in sections:
        matches = any(re.fullmatch(re.escape(entry).replace(r"\.\.\.", r"\w*"), name) for entry in names)
        if title in short and matches:
            found.append(f"[{short[title]}](numerics.md#{anchor(title)})")
    return ", ".join(found)


def write_operation(operation: headers.Operation, extra: Extra, names: set[str], sections) -> str:
    description, degenerate, failures = told_apart(operation)
    call = ", ".join(name for _, name in operation.arguments)
    lines = [f"### {operation.name}", "", f"`{operation.name}({call})` gives a `{operation.result}`.", "",
             linked(description, names, operation.name), ""]
    if operation.arguments:
        lines += ["| argument | type | meaning and unit |", "|---|---|---|"]
        lines += [f"| `{name}` | {kind} | {extra.argument(operation.name, kind, name)} |"
                  for kind, name in operation.arguments]
        lines.append("")
    lines.append(f"- **Result**: {extra.result(operation)}.")
    numeric = any(kind not in BLOB_BYTES for kind, _ in operation.arguments)
    others = others_with_the_same_cases(description, operation, names)
    if degenerate:
        lines.append(f"- **Degenerate**: {linked(degenerate, names, operation.name)}")
    elif others:
        lines.append("- **Degenerate**: as " + " and ".join(linked(other, names) for other in others) + ".")
    elif numeric:
        raise Incomplete(f"the comment of {operation.name} does not tell what arguments without sense do")
    lines.append(f"- **Errors**: {errors(operation, failures)}")
    more = more_on_numbers(operation.name, sections)
    if more:
        lines.append(f"- **Numbers**: {more}.")
    pictures = extra.pictures(operation.name)
    if operation.group == "Navigation" and not pictures:
        raise Incomplete(f"operations.toml has no pictures of {operation.name}, which is a navigation")
    if pictures:
        before, after, caption = pictures
        lines += ["", f"| before | after: {caption} |", "|---|---|",
                  f"| ![before](pictures/reference/{before}.png) | ![after](pictures/reference/{after}.png) |"]
    return "\n".join(lines) + "\n"


def write_records(names: set[str]) -> str:
    lines = ["## Records", "", "Public members with plain values. A `std::string` holds bytes.", ""]
    for enumeration in headers.read_enumerations("camera/Values.h"):
        lines += [f"### {enumeration.name}", "", linked(enumeration.text, names), "", "| name | value | |", "|---|---|---|"]
        lines += [f"| `{name}` | {value} | {text} |" for name, value, text in enumeration.values]
        lines.append("")
    for header in RECORD_HEADERS:
        for record in headers.read_records(header):
            lines += [f"### {record.name}", "", linked(record.text, names), "", "| field | type | |", "|---|---|---|"]
            lines += [f"| `{field.name}` | `{field.type.removeprefix('base::')}` | {field.text} |"
                      for field in record.fields]
            lines.append("")
    return "\n".join(lines)


def write() -> str:
    about, groups = headers.read_service()
    operations = [operation for group in groups for operation in group.operations]
    declared = [(operation.name, [name for _, name in operation.arguments]) for operation in operations]
    if declared != headers.read_table():
        raise Incomplete("CameraAPIIf.h and Operations.h do not list the same operations and arguments")
    groups = headers.by_name(groups)
    names = {operation.name for operation in operations}
    extra, sections = Extra(), numeric_sections()

    page = INTRODUCTION.format(count=len(operations))
    page += "| group | operations |\n|---|---|\n"
    for group in groups:
        links = ", ".join(f"[{operation.name}](#{anchor(operation.name)})" for operation in group.operations)
        page += f"| [{group.name}](#{anchor(group.name)}) | {links} |\n"
    page += "\n## All operations\n\n"
    for paragraph in about.split("\n\n")[1:]:
        page += re.sub(r"^(State|Errors|In C\+\+|Degenerate numbers|Conventions)(?!\w)", r"**\1**", linked(paragraph, names))
        page += "\n\n"
    for group in groups:
        page += f"## {group.name}\n\n{linked(group.text, names)}\n\n"
        drawing = extra.drawing(group.name)
        if drawing:
            page += f"![{drawing[1]}](drawings/{drawing[0]}.svg)\n\n"
        page += "\n".join(write_operation(operation, extra, names, sections) for operation in group.operations) + "\n"
    extra.expect_all_used()
    return page + write_records(names).rstrip() + "\n"


def main() -> int:
    page = write()
    if sys.argv[1:] == ["--check"]:
        present = PAGE.read_text() if PAGE.exists() else ""
        if present == page:
            return 0
        sys.stderr.writelines(difflib.unified_diff(present.splitlines(True), page.splitlines(True),
                                                   "docs/reference.md", "what the headers say", n=1))
        print("docs/reference.md is out of date: scripts/pages/reference.py writes it anew", file=sys.stderr)
        return 1
    if sys.argv[1:]:
        print(__doc__, file=sys.stderr)
        return 2
    PAGE.write_text(page)
    return 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except (headers.Misunderstood, Incomplete) as error:
        sys.exit(f"reference.py: {error}")
