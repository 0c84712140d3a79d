#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Compares the interface description, as Thrift's compiler understands it, with what the code says of itself."""

import argparse
import difflib
import json
import pathlib
import subprocess
import sys
import tempfile


def type_name(prefix, node, key="type"):
    """The type of a field, an argument, a list's element or a result, as camera.thrift would write it."""
    kind = node[key + "Id"]
    if kind in ("struct", "enum"):
        name = node[key]["class"]
        return name if "." in name else prefix + name
    if kind == "list":
        return "list<" + type_name(prefix, node[key], "elemType") + ">"
    return kind


def record_lines(prefix, struct):
    yield f"record {prefix}{struct['name']}"
    for field in struct["fields"]:
        optional = {"req_out": "", "optional": " optional"}.get(field["required"], " " + field["required"])
        default = f" default {field['default']}" if "default" in field else ""
        yield f"  field {field['key']} {field['name']} {type_name(prefix, field)}{optional}{default}"


def enumeration_lines(enumeration):
    yield f"enumeration {enumeration['name']}"
    for member in enumeration["members"]:
        yield f"  {member['name']} {member['value']}"


def service_lines(prefix, service):
    for function in service["functions"]:
        result = type_name(prefix, function, "returnType")
        kind = "oneway operation" if function["oneway"] else "operation"
        yield f"{kind} {service['name']} {function['name']} {result}"
        for argument in function["arguments"]:
            yield f"  argument {argument['key']} {argument['name']} {type_name(prefix, argument)}"
        for exception in function["exceptions"]:
            yield f"  exception {exception['name']}"


def undocumented(program):
    for service in program["services"]:
        for function in service["functions"]:
            if not function.get("doc", "").strip():
                yield f"{service['name']}.{function['name']}"
    for struct in program["structs"]:
        if not struct.get("doc", "").strip():
            yield struct["name"]


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--thrift", required=True, help="Thrift's compiler")
    parser.add_argument("--description", required=True, help="camera.thrift; base.thrift stands beside it")
    parser.add_argument("--program", required=True, nargs=argparse.REMAINDER,
                        help="describe_interface, with what runs it; comes last")
    arguments = parser.parse_args()

    with tempfile.TemporaryDirectory() as folder:
        subprocess.run(
            [arguments.thrift, "-strict", "-r", "--gen", "json", "-out", folder, arguments.description], check=True)
        base, camera = (json.loads(pathlib.Path(folder, name + ".json").read_text()) for name in ("base", "camera"))
    code = subprocess.run(arguments.program, check=True, capture_output=True, text=True).stdout.splitlines()

    description = []
    for struct in base["structs"]:
        description += record_lines("base.", struct)
    for struct in camera["structs"]:
        description += record_lines("", struct)
    for enumeration in base["enums"] + camera["enums"]:
        description += enumeration_lines(enumeration)
    for service in base["services"]:
        description += service_lines("base.", service)
    for service in camera["services"]:
        description += service_lines("", service)

    differences = list(difflib.unified_diff(code, description, "the code", "the description", lineterm=""))
    print("\n".join(differences))
    missing = [*undocumented(base), *undocumented(camera)]
    for name in missing:
        print(f"{name} has no doc comment")
    extends = camera["services"][0].get("extends")
    if extends != "base.BaseAPI":
        print(f"CameraAPI extends {extends}")
    operations = sum(line.startswith("operation ") for line in description)
    print(f"{sum(line.startswith('record ') for line in description)} records, {operations} operations")
    sys.exit(1 if differences or missing or extends != "base.BaseAPI" or operations != 82 else 0)


if __name__ == "__main__":
    main()
