#!/usr/bin/env python3
# SPDX-License-Identifier: Apache-2.0
"""The checks of the pages on trees that are wrong in one way each."""

import contextlib
import io
import re
import shutil
import sys
import tempfile
import unittest
from pathlib import Path
from unittest import mock

sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "scripts/pages"))
import headers  # noqa: E402
import pages  # noqa: E402
import reference  # noqa: E402
import thrift  # noqa: E402

PROGRAM = """\
// SPDX-License-Identifier: Apache-2.0
int main() {
    // [answer]
    return 42;
    // [/answer]
}
"""
REGION = "<!-- examples/program.cpp: answer -->\n```cpp\nreturn 42;\n```\n"


class Tree(unittest.TestCase):
    """A tree with a README and a program; the pages' checks look at it instead of ours."""

    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(setattr, pages, "ROOT", pages.ROOT)
        pages.ROOT = Path(folder.name).resolve()
        self.write("examples/program.cpp", PROGRAM)

    def write(self, name: str, text: str) -> None:
        file = pages.ROOT / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text)

    def expect_one(self, found: list[str], text: str) -> None:
        self.assertEqual(len(found), 1, found)
        self.assertIn(text, found[0])


class Links(Tree):
    def test_a_good_tree_passes(self) -> None:
        self.write("README.md", "# One\n[a](docs/a.md#two-words) [b](#one) [c](examples/program.cpp) ![d](docs/d.svg)")
        self.write("docs/a.md", "## Two `words`\n[back](../README.md) [web](https://example.org/x)")
        self.write("docs/d.svg", "<svg/>")
        self.assertEqual(pages.check_links(), [])

    def test_a_missing_file_is_found(self) -> None:
        self.write("README.md", "[a](docs/a.md)")
        self.expect_one(pages.check_links(), "there is no docs/a.md")

    def test_a_missing_heading_is_found(self) -> None:
        self.write("README.md", "# One\n[a](#two)")
        self.expect_one(pages.check_links(), "no heading of this name")

    def test_a_heading_within_a_sample_does_not_count(self) -> None:
        self.write("README.md", "[a](#two)\n```sh\n# two\n```\n")
        self.expect_one(pages.check_links(), "no heading of this name")

    def test_a_picture_that_nobody_shows_is_found(self) -> None:
        self.write("README.md", "# One")
        self.write("docs/pictures/lost.png", "")
        self.expect_one(pages.check_links(), "no page shows it")


class Samples(Tree):
    def test_a_region_and_a_whole_program_pass(self) -> None:
        whole = PROGRAM.split("\n", 1)[1]
        self.write("README.md", REGION + "\n<!-- examples/program.cpp -->\n```cpp\n" + whole + "```\n")
        self.assertEqual(pages.check_samples(), [])

    def test_a_difference_is_found_and_mended(self) -> None:
        self.write("README.md", REGION.replace("42", "43"))
        self.expect_one(pages.check_samples(), "not what stands in examples/program.cpp")
        pages.fill_samples()
        self.assertEqual((pages.ROOT / "README.md").read_text(), REGION)

    def test_a_sample_of_nowhere_is_found(self) -> None:
        self.write("README.md", "```cpp\nreturn 42;\n```\n")
        self.expect_one(pages.check_samples(), "without a comment")

    def test_a_region_that_is_gone_is_found(self) -> None:
        self.write("README.md", REGION.replace("answer", "question"))
        self.expect_one(pages.check_samples(), "has 0 regions [question]")


class Commands(Tree):
    KNOWN = [{"line": "make it", "by": "run", "as": "make it"}]

    def setUp(self) -> None:
        super().setUp()
        self.write("run", "make it\n")
        self.write("README.md", "```sh\nmake \\\n  it  # now\n```\n")

    def test_a_command_that_is_run_passes(self) -> None:
        self.assertEqual(pages.check_commands(self.KNOWN), [])

    def test_a_command_that_nothing_runs_is_found(self) -> None:
        self.write("README.md", "```sh\nmake it\nbreak it\n```\n")
        self.expect_one(pages.check_commands(self.KNOWN), "'break it'")

    def test_a_runner_that_does_not_run_it_is_found(self) -> None:
        self.write("run", "true\n")
        self.expect_one(pages.check_commands(self.KNOWN), "run does not run 'make it'")

    def test_a_script_that_is_gone_is_found(self) -> None:
        self.write("README.md", "```sh\nmake it\n```\nThen `scripts/gone --all`.\n")
        self.expect_one(pages.check_commands(self.KNOWN), "no script scripts/gone")

    def test_a_command_that_no_page_shows_is_found(self) -> None:
        self.write("README.md", "")
        self.expect_one(pages.check_commands(self.KNOWN), "no page shows 'make it'")


class Run(Tree):
    def found(self, text: str) -> list[str]:
        self.write("README.md", text)
        return pages.check_run(pages.ROOT, pages.ROOT / "examples/program.cpp")

    def test_a_sample_that_prints_what_the_page_says_passes(self) -> None:
        self.assertEqual(self.found("<!-- run -->\n```sh\necho 42\n```\n\n```text\n42\n```\n"), [])

    def test_another_output_is_found(self) -> None:
        found = self.found("<!-- run -->\n```sh\necho 42\n```\n\n```text\n43\n```\n")
        self.assertIn("-43", found)
        self.assertIn("+42", found)

    def test_a_command_that_fails_is_found(self) -> None:
        self.expect_one(self.found("<!-- run -->\n```sh\nfalse | true\n```\n"), "fails with 1")

    def test_pages_without_samples_are_wrong(self) -> None:
        self.expect_one(self.found("```sh\nfalse\n```\n"), "no page has a sample")


class HtmlLinks(Tree):
    def test_links_within_the_folder_are_followed(self) -> None:
        self.write("html/a.html", '<h1 id="one">One</h1><a href="b.html#two">b</a><a href="#one">one</a>')
        self.write("html/b.html", '<a href="a.html">a</a>')
        self.expect_one(pages.check_html(pages.ROOT / "html"), "no such name")
        self.write("html/b.html", '<p id="two"><img src="lost.png">')
        self.expect_one(pages.check_html(pages.ROOT / "html"), "no such file")

    def test_a_folder_without_pages_is_wrong(self) -> None:
        self.expect_one(pages.check_html(pages.ROOT / "html"), "no HTML")


class Reference(unittest.TestCase):
    def test_every_operation_has_its_heading_arguments_result_and_errors(self) -> None:
        page = reference.PAGE.read_text()
        table = headers.read_table()
        self.assertTrue(table)
        self.assertEqual(len(re.findall(r"(?m)^- \*\*Errors\*\*: ", page)), len(table))
        for name, arguments in table:
            part = page.split(f"\n### {name}\n")[1].split("\n### ")[0]
            for argument in arguments:
                self.assertRegex(part, rf"(?m)^\| `{argument}` \| \w+ \| .+ \|$", name)
            self.assertIn("\n- **Result**: ", part, name)
            self.assertIn("\n- **Errors**: code ", part, name)

    def test_an_operation_without_a_comment_is_refused(self) -> None:
        with self.assertRaises(headers.Misunderstood):
            headers._declaration("virtual void f(ViewStateResult& _return) = 0;", "View", [])

    def test_an_operation_that_came_later_stands_with_its_kind(self) -> None:
        groups = [headers.Group(name, text, "", [text]) for name, text in (("A", "1"), ("B", "2"), ("A", "3"))]
        self.assertEqual([(group.name, group.text, group.operations) for group in headers.by_name(groups)],
                         [("A", "1", ["1", "3"]), ("B", "2", ["2"])])

    def test_an_argument_without_a_meaning_is_refused(self) -> None:
        with self.assertRaises(reference.Incomplete):
            reference.Extra().argument("viewSetEye", "Vector", "elsewhere")


class Description(unittest.TestCase):
    """thrift.py --check on a copy of the interface description, which is ours or wrong in one way."""

    def check(self, name: str, old: str = "", new: str = "") -> int:
        with tempfile.TemporaryDirectory() as folder:
            (Path(folder) / "interface").mkdir()
            for file in ("base.thrift", "camera.thrift"):
                shutil.copy(headers.ROOT / "interface" / file, Path(folder) / "interface" / file)
            file = Path(folder) / "interface" / name
            self.assertIn(old, file.read_text())
            file.write_text(file.read_text().replace(old, new, 1))
            with (mock.patch.object(headers, "ROOT", Path(folder)), mock.patch.object(sys, "argv", ["", "--check"]),
                  contextlib.redirect_stderr(io.StringIO())):
                return thrift.main()

    def test_ours_passes(self) -> None:
        self.assertEqual(self.check("camera.thrift"), 0)

    def test_another_word_is_found(self) -> None:
        self.assertEqual(self.check("camera.thrift", "Moves the eye", "Moves the camera"), 1)
        self.assertEqual(self.check("base.thrift", "What failed", "What went wrong"), 1)

    def test_another_id_is_found(self) -> None:
        self.assertEqual(self.check("camera.thrift", "6: binary mPrivate", "7: binary mPrivate"), 1)

    def test_an_operation_that_is_missing_is_found(self) -> None:
        self.assertEqual(self.check("camera.thrift", "    ViewStateResult viewCreateDefault()\n", ""), 1)

    def test_every_operation_is_described_once(self) -> None:
        text = (headers.ROOT / "interface/camera.thrift").read_text()
        for name, arguments in headers.read_table():
            found = re.findall(rf"(?s)\*/\n    \w+ {name}\((.*?)\)\n", text)
            self.assertEqual(len(found), 1, name)
            self.assertEqual(re.findall(r"\d+: \w+ (\w+)", found[0]), arguments, name)

    def test_what_concerns_cpp_alone_stays_out(self) -> None:
        text = "It fills `_return.mValue`. In C++ it throws nothing. Done.\n\nIn C++ all else.\n\nThat is `_return`."
        self.assertEqual(thrift.told(text), ["It fills `mValue`. Done.", "That is the result."])

    def test_a_field_without_an_id_is_refused(self) -> None:
        record = headers.Record("Vector", "", [headers.Field("double", "mNowhere", "")])
        with self.assertRaises(headers.Misunderstood):
            thrift.record_lines(record, headers.read_field_table("camera/Fields.h"))


if __name__ == "__main__":
    unittest.main()
