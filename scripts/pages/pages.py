#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Checks the pages (*.md) of the project.

pages.py links          every relative link and anchor leads somewhere, and every picture is shown on some page
pages.py samples        every C++ sample is a file of examples/, or a marked region of one, word for word, and so is
                        every CMake sample that names its file
pages.py fill           puts those files and regions into the pages
pages.py commands       every shell command is one of commands.toml, which names what runs it or why nothing does
pages.py run FOLDER MODULE
                        runs the shell samples under <!-- run -->, the folder's programs and the module standing as
                        build/demo and on the PATH, and compares what they print with the text below them
pages.py html FOLDER    every link within a folder of HTML leads somewhere
"""

import difflib
import os
import re
import subprocess
import sys
import tempfile
import textwrap
import tomllib
from html.parser import HTMLParser
from pathlib import Path
from urllib.parse import unquote, urlsplit

ROOT = Path(__file__).resolve().parents[2]
NOT_OURS = {"build", "out", ".deps", ".git", "node_modules"}
FENCE = re.compile(r"(?ms)^```(\w*)\n(.*?)^```$")
LINK = re.compile(r"\]\(([^()\s]+(?:\([^()\s]*\))?)\)")


def pages() -> list[Path]:
    found = sorted(ROOT.glob("*.md"))
    for folder in sorted(path for path in ROOT.iterdir() if path.is_dir() and path.name not in NOT_OURS):
        found += sorted(folder.rglob("*.md"))
    return found


def shown(path: Path) -> str:
    return str(path.relative_to(ROOT)) if path.is_relative_to(ROOT) else str(path)


def slug(heading: str) -> str:
    plain = re.sub(r"\[([^\]]*)\]\([^)]*\)", r"\1", heading).replace("`", "")
    return re.sub(r"[^\w -]", "", plain.strip().lower()).replace(" ", "-")


def anchors(page: Path) -> set[str]:
    text = FENCE.sub("", page.read_text())
    return {slug(heading) for heading in re.findall(r"(?m)^#{1,6} (.*)$", text)}


def links(page: Path) -> list[str]:
    text = re.sub(r"`[^`\n]*`", "", FENCE.sub("", page.read_text()))
    return LINK.findall(text)


def check_links() -> list[str]:
    wrong = []
    targets = set()
    for page in pages():
        for link in links(page):
            parts = urlsplit(link)
            if parts.scheme:
                continue
            target = (page.parent / unquote(parts.path)).resolve() if parts.path else page
            targets.add(target)
            if not target.exists():
                wrong.append(f"{shown(page)}: {link}: there is no {shown(target)}")
            elif parts.fragment and (target.suffix != ".md" or parts.fragment not in anchors(target)):
                wrong.append(f"{shown(page)}: {link}: {shown(target)} has no heading of this name")
    for picture in sorted([*ROOT.glob("docs/**/*.png"), *ROOT.glob("docs/**/*.svg")]):
        if picture not in targets:
            wrong.append(f"{shown(picture)}: no page shows it")
    return wrong


def program_or_region(name: str, region: str | None) -> str:
    text = (ROOT / name).read_text()
    if region is None:
        return re.sub(r"\A// SPDX[^\n]*\n", "", text)
    found = re.findall(rf"(?ms)^ *// \[{re.escape(region)}\]\n(.*?)^ *// \[/{re.escape(region)}\]$", text)
    if len(found) != 1:
        raise ValueError(f"{name} has {len(found)} regions [{region}]")
    return textwrap.dedent(found[0])


SAMPLE = re.compile(r"(?ms)^<!-- ([\w./-]+)(?:: ([\w-]+))? -->\n```(?:cpp|cmake)\n(.*?)^```$")


def check_samples() -> list[str]:
    wrong = []
    for page in pages():
        text = page.read_text()
        samples = {match.start(3): match for match in SAMPLE.finditer(text)}
        for fence in FENCE.finditer(text):
            if fence[1] not in ("cpp", "cmake"):
                continue
            where = f"{shown(page)}:{text.count(chr(10), 0, fence.start()) + 1}"
            sample = samples.get(fence.start(2))
            if not sample and fence[1] == "cmake":
                continue
            if not sample:
                wrong.append(f"{where}: a sample without a comment above it that names its program")
                continue
            try:
                if program_or_region(sample[1], sample[2]) != sample[3]:
                    wrong.append(f"{where}: not what stands in {sample[1]}; 'pages.py fill' puts that there")
            except (OSError, ValueError) as error:
                wrong.append(f"{where}: {error}")
    return wrong


def fill_samples() -> list[str]:
    for page in pages():
        text = filled = page.read_text()
        for sample in reversed(list(SAMPLE.finditer(text))):
            filled = filled[: sample.start(3)] + program_or_region(sample[1], sample[2]) + filled[sample.end(3) :]
        if filled != text:
            page.write_text(filled)
    return []


RUN = re.compile(r"(?ms)^<!-- run -->\n```sh\n(.*?)^```$(?:\n\n```text\n(.*?)^```$)?")


def check_run(programs: Path, module: Path) -> list[str]:
    wrong = []
    count = 0
    environment = {**os.environ, "PATH": f"{programs}:{os.environ['PATH']}"}
    for page in pages():
        with tempfile.TemporaryDirectory() as folder:
            demo = Path(folder) / "build/demo"
            (demo / "lib").mkdir(parents=True)
            (demo / "lib/CameraLibrary.so").symlink_to(module)
            (demo / "bin").symlink_to(programs)
            (Path(folder) / "models").symlink_to(ROOT / "models")
            for commands_text, expected in RUN.findall(page.read_text()):
                count += 1
                done = subprocess.run(["bash", "-euo", "pipefail", "-c", commands_text], cwd=folder, env=environment,
                                      stdin=subprocess.DEVNULL, capture_output=True, text=True, timeout=300)
                if done.returncode != 0:
                    wrong.append(f"{shown(page)}: fails with {done.returncode}: {commands_text}{done.stderr}")
                elif done.stdout != expected:
                    wrong += difflib.unified_diff(expected.splitlines(), done.stdout.splitlines(), shown(page),
                                                  commands_text.strip(), lineterm="")
    return wrong if count else ["no page has a sample to run"]


def commands(page: Path) -> list[str]:
    """The lines of a page's shell samples that are not run as they stand, comments and continuations taken care of."""
    found = []
    for language, text in FENCE.findall(RUN.sub("", page.read_text())):
        if language == "sh":
            for line in text.replace("\\\n", " ").splitlines():
                command = " ".join(re.sub(r"(?:^|\s)#.*", "", line).split())
                if command:
                    found.append(command)
    return found


def known_commands() -> list[dict[str, str]]:
    with open(Path(__file__).with_name("commands.toml"), "rb") as file:
        return tomllib.load(file)["command"]


def check_commands(known: list[dict[str, str]]) -> list[str]:
    wrong = []
    lines = {entry["line"] for entry in known}
    unused = set(lines)
    for page in pages():
        for command in commands(page):
            unused.discard(command)
            if command not in lines:
                wrong.append(f"{shown(page)}: scripts/pages/commands.toml does not say what runs '{command}'")
        for script in re.findall(r"`(scripts/[\w-]+)\b(?!/)[^`]*`", FENCE.sub("", page.read_text())):
            if not (ROOT / script).is_file() or not os.access(ROOT / script, os.X_OK):
                wrong.append(f"{shown(page)}: there is no script {script}")
    wrong += [f"scripts/pages/commands.toml: no page shows '{command}'" for command in sorted(unused)]
    for entry in known:
        if "unrun" in entry:
            continue
        runner = ROOT / entry["by"]
        if not runner.exists() or entry["as"] not in runner.read_text():
            wrong.append(f"scripts/pages/commands.toml: {entry['by']} does not run '{entry['as']}' ({entry['line']})")
    return wrong


class Html(HTMLParser):
    """The links and the names of a page of HTML."""

    def __init__(self, text: str) -> None:
        super().__init__()
        self.links: list[str] = []
        self.names: set[str] = set()
        self.feed(text)

    def handle_starttag(self, tag: str, attrs) -> None:
        for key, value in attrs:
            if key in ("href", "src") and value:
                self.links.append(value)
            if key in ("id", "name") and value:
                self.names.add(value)


def check_html(folder: Path) -> list[str]:
    parsed = {page: Html(page.read_text()) for page in sorted(folder.rglob("*.html"))}
    if not parsed:
        return [f"{folder}: no HTML"]
    wrong = []
    for page, content in parsed.items():
        for link in content.links:
            parts = urlsplit(link)
            if parts.scheme == "javascript" or link == "#":
                continue
            if parts.scheme or parts.netloc:
                if parts.scheme not in ("http", "https") or not parts.netloc:
                    wrong.append(f"{page}: {link}: neither within the folder nor on the web")
                continue
            target = (page.parent / unquote(parts.path)).resolve() if parts.path else page
            if not target.is_file():
                wrong.append(f"{page}: {link}: no such file")
            elif parts.fragment and target in parsed and unquote(parts.fragment) not in parsed[target].names:
                wrong.append(f"{page}: {link}: no such name in {target}")
    return wrong


def main() -> int:
    checks = {"links": check_links, "samples": check_samples, "commands": lambda: check_commands(known_commands()),
              "fill": fill_samples}
    arguments = sys.argv[1:]
    if len(arguments) == 1 and arguments[0] in checks:
        wrong = checks[arguments[0]]()
    elif len(arguments) == 3 and arguments[0] == "run":
        wrong = check_run(Path(arguments[1]).resolve(), Path(arguments[2]).resolve())
    elif len(arguments) == 2 and arguments[0] == "html":
        wrong = check_html(Path(arguments[1]).resolve())
    else:
        print(__doc__, file=sys.stderr)
        return 2
    for line in wrong:
        print(line, file=sys.stderr)
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
