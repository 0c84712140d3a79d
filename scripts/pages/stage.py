#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""Copies the pages into a folder as mkdocs wants them: all below one folder, README.md as index.md, the sources
that they link as pages too, and the names of operations as links to the reference.

stage.py FOLDER      FOLDER is emptied first; mkdocs.yml comes to stand beside it
"""

import os
import re
import shutil
import sys
from pathlib import Path
from urllib.parse import urlsplit

sys.dont_write_bytecode = True
import headers  # noqa: E402
import pages  # noqa: E402

ROOT = pages.ROOT
FIRST = ["guide.md", "reference.md", "limitations.md", "install.md", "program.md"]  # in the list beside each page
LANGUAGES = {".h": "cpp", ".cpp": "cpp", ".thrift": "text", ".txt": "cmake", ".toml": "text"}


def staged_name(path: Path) -> Path:
    """Where a file or folder of the tree comes to stand."""
    own = path.relative_to(ROOT)
    if own == Path("README.md"):
        return Path("index.md")
    if own.parts[0] == "docs":
        return Path(*own.parts[1:])
    if len(own.parts) == 1 and path.suffix == ".md":
        return own
    if path.is_dir():
        return Path("sources") / own / "index.md"
    return Path("sources") / (own if path.suffix == ".md" else own.with_name(own.name + ".md"))


def source_page(path: Path) -> str:
    """A source as a page, or a folder as a list of what is in it."""
    own = path.relative_to(ROOT)
    if path.is_dir():
        files = sorted(file for file in path.rglob("*") if file.suffix in LANGUAGES)
        entries = [f"- [{file.relative_to(path)}]({os.path.relpath(file, path)})" for file in files]
        return f"# {own}\n\n" + "\n".join(entries) + "\n"
    text = path.read_text()
    fence = "~~~~" if "```" in text else "```"
    return f"# {own}\n\n{fence}{LANGUAGES.get(path.suffix, 'text')}\n{text}{fence}\n"


class Stage:
    """The folder, and what is in it so far."""

    def __init__(self, folder: Path) -> None:
        self._folder = folder
        self._done: set[Path] = set()
        self._operations = {name for name, _ in headers.read_table()}

    def put(self, path: Path) -> None:
        """A file with all that it links."""
        if path in self._done:
            return
        self._done.add(path)
        target = self._folder / staged_name(path)
        if path.suffix in (".png", ".svg"):
            target = self._folder / path.relative_to(ROOT / "docs")
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copyfile(path, target)
            return
        text = path.read_text() if path.suffix == ".md" else source_page(path)
        target.parent.mkdir(parents=True, exist_ok=True)
        base = path if path.is_dir() else path.parent

        def moved(match: re.Match) -> str:
            parts = urlsplit(match[1])
            if parts.scheme or not parts.path:
                return match[0]
            linked = (base / parts.path).resolve()
            self.put(linked)
            name = staged_name(linked) if linked.suffix not in (".png", ".svg") else linked.relative_to(ROOT / "docs")
            way = os.path.relpath(self._folder / name, target.parent)
            return f"]({way}{'#' + parts.fragment if parts.fragment else ''})"

        def explained(match: re.Match) -> str:
            way = os.path.relpath(self._folder / "reference.md", target.parent)
            return f"[`{match[1]}`]({way}#{match[1].lower()})" if match[1] in self._operations else match[0]

        if path.suffix == ".md" or path.is_dir():
            pieces = re.split(r"(?ms)(^```.*?^```$)", text)
            for i in range(0, len(pieces), 2):
                pieces[i] = pages.LINK.sub(moved, pieces[i])
                if path.name != "reference.md":
                    pieces[i] = re.sub(r"(?<!\[)`(\w+)`(?!\])", explained, pieces[i])
            text = "".join(pieces)
        target.write_text(text)


def main() -> int:
    if len(sys.argv) != 2:
        print(__doc__, file=sys.stderr)
        return 2
    folder = Path(sys.argv[1]).resolve()
    shutil.rmtree(folder, ignore_errors=True)
    stage = Stage(folder)
    own = sorted(ROOT.glob("*.md"))
    for page in [*own, *sorted((ROOT / "docs").rglob("*.md"))]:
        stage.put(page)
    others = sorted(page.name for page in (ROOT / "docs").glob("*.md") if page.name not in FIRST)
    others += [page.name for page in own if page.name != "README.md"]
    (folder.parent / "mkdocs.yml").write_text(
        f"INHERIT: {Path(__file__).with_name('mkdocs.yml')}\ndocs_dir: {folder.name}\nsite_dir: html\n"
        f"theme:\n  custom_dir: {Path(__file__).with_name('theme')}\n"
        + "nav:\n  - Camera component: index.md\n" + "".join(f"  - {name}\n" for name in FIRST + others))
    return 0


if __name__ == "__main__":
    sys.exit(main())
