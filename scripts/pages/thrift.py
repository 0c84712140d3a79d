#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Writes the interface description, interface/base.thrift and interface/camera.thrift, from the public headers: the
declarations from theirs, the ids of fields from the field tables, the texts from their comments. A paragraph or a
sentence that begins with "In C++" is of use to nobody else and stays out.

thrift.py             writes the files
thrift.py --check     fails when a file is not what would be written
"""

import difflib
import re
import sys
import textwrap

sys.dont_write_bytecode = True
import headers  # noqa: E402

WIDTH = 120
NAMESPACES = ("cpp", "py", "js")
TYPES = {"double": "double", "int32": "i32", "std::int32_t": "i32", "std::string": "string"}


def told(text: str) -> list[str]:
    """The paragraphs of a comment as they concern every language."""
    paragraphs = []
    for paragraph in text.split("\n\n"):
        if not paragraph.startswith("In C++"):
            sentences = re.split(r"(?<=\.) (?=[A-Z`|])", paragraph)
            kept = " ".join(sentence for sentence in sentences if not sentence.startswith("In C++"))
            paragraphs.append(re.sub(r"`_return\.(\w+)`", r"`\1`", kept).replace("`_return`", "the result")
                              .replace("::", "."))
    return [paragraph for paragraph in paragraphs if paragraph]


def comment(text: str, indent: str = "") -> list[str]:
    paragraphs = told(text)
    if not paragraphs:
        return []
    line = f"{indent}/** {paragraphs[0]} */"
    if len(paragraphs) == 1 and len(line) <= WIDTH:
        return [line]
    lines = [f"{indent}/**"]
    for i, paragraph in enumerate(paragraphs):
        if i:
            lines.append(f"{indent} *")
        lines += textwrap.wrap(paragraph, WIDTH, initial_indent=f"{indent} * ", subsequent_indent=f"{indent} * ",
                               break_long_words=False, break_on_hyphens=False)
    return [*lines, f"{indent} */"]


def sentence(text: str) -> str:
    """The comment beside a field as a sentence."""
    return text[0].upper() + text[1:] + "." if text else ""


def type_name(kind: str) -> str:
    """A C++ type as Thrift calls it."""
    if kind.startswith("std::vector<"):
        return f"list<{type_name(kind.removeprefix('std::vector<').removesuffix('>'))}>"
    return TYPES.get(kind) or kind.removesuffix("::type").replace("::", ".")


def record_lines(record: headers.Record, table: dict[tuple[str, str], tuple[int, str]]) -> list[str]:
    lines = [*comment(record.text), f"struct {record.name} {{"]
    for field in record.fields:
        if (record.name, field.name) not in table:
            raise headers.Misunderstood(f"{record.name}.{field.name} has no id in a field table")
        number, form = table[record.name, field.name]
        kind = {"plain": "{}", "optional": "optional {}", "binary": "binary"}[form].format(type_name(field.type))
        lines += [*comment(sentence(field.text), "    "), f"    {number}: {kind} {field.name}"]
    return [*lines, "}", ""]


def enumeration_lines(enumeration: headers.Enumeration) -> list[str]:
    lines = [*comment(enumeration.text), f"enum {enumeration.name} {{"]
    for name, value, text in enumeration.values:
        lines += [*comment(sentence(text), "    "), f"    {name} = {value}"]
    return [*lines, "}", ""]


def operation_lines(operation: headers.Operation) -> list[str]:
    arguments = [f"{i}: {type_name(kind)} {name}" for i, (kind, name) in enumerate(operation.arguments, 1)]
    line = f"    {operation.result} {operation.name}({', '.join(arguments)})"
    lines = comment(operation.text, "    ")
    if len(line) <= WIDTH:
        return [*lines, line]
    # A space within an argument is none to break at.
    tight = ", ".join(argument.replace(" ", "\0") for argument in arguments)
    wrapped = textwrap.wrap(tight, WIDTH - 9, break_long_words=False)
    return [*lines, line[:line.index("(") + 1],
            *("        " + part.replace("\0", " ") for part in wrapped[:-1]),
            "        " + wrapped[-1].replace("\0", " ") + ")"]


def service_lines(opening: str, service: tuple[str, list[headers.Group]]) -> list[str]:
    about, groups = service
    pieces = []
    for group in groups:
        if group.line:
            pieces.append([f"    // {group.line}"])
        pieces += [operation_lines(operation) for operation in group.operations]
    lines = [*comment(about), opening + " {"]
    for piece in pieces:
        lines += [*piece, ""]
    return [*lines[:-1], "}"]


def beginning(module: str, *includes: str) -> list[str]:
    lines = ["// SPDX-License-Identifier: Apache-2.0",
             "// Written by scripts/pages/thrift.py from the public headers. Change those.", ""]
    if includes:
        lines += [*(f'include "{name}.thrift"' for name in includes), ""]
    return [*lines, *(f"namespace {language} qel.api.{module}" for language in NAMESPACES), ""]


def base() -> str:
    table = headers.read_field_table("base/BaseFields.h")
    lines = beginning("base")
    for record in headers.read_records("base/Records.h"):
        lines += record_lines(record, table)
    return "\n".join(lines + service_lines("service BaseAPI", headers.read_service(headers.BASE_SERVICE))) + "\n"


def camera() -> str:
    table = headers.read_field_table("camera/Fields.h")
    lines = beginning("camera", "base")
    for enumeration in headers.read_enumerations("camera/Values.h"):
        lines += enumeration_lines(enumeration)
    for header in ("camera/Values.h", "camera/States.h", "camera/Results.h"):
        for record in headers.read_records(header):
            lines += record_lines(record, table)
    return "\n".join(lines + service_lines("service CameraAPI extends base.BaseAPI", headers.read_service())) + "\n"


def main() -> int:
    if sys.argv[1:] not in ([], ["--check"]):
        print(__doc__, file=sys.stderr)
        return 2
    wrong = False
    for name, text in (("base", base()), ("camera", camera())):
        path = headers.ROOT / f"interface/{name}.thrift"
        if not sys.argv[1:]:
            path.write_text(text)
        elif path.read_text() != text:
            wrong = True
            sys.stderr.writelines(difflib.unified_diff(path.read_text().splitlines(True), text.splitlines(True),
                                                       path.name, "what the headers say", n=1))
            print(f"interface/{path.name} is out of date: scripts/pages/thrift.py writes it anew", file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    try:
        sys.exit(main())
    except headers.Misunderstood as error:
        sys.exit(f"thrift.py: {error}")
