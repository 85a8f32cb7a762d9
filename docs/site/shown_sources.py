"""Shows on the site the source files that a page links to.

A paragraph that is nothing but a link to a source file becomes the file's text:

    [intf_setData.cpp](../examples/reference/intf_setData.cpp)
    [the loop](minimal_runtime.cpp#loop)       between // [loop] and // [/loop]
    [KEY_ADDRESS](../../driver/records.h#KEY_ADDRESS)    a declaration and its comment

Of a class what is public is shown, and of a name all declarations that follow each other as
overloads.

Where the Markdown is read as it stands, it is a link that can be followed.
"""
import re
from pathlib import Path
from textwrap import dedent

from sphinx.errors import ExtensionError

LINK = re.compile(
    r"^\[(?P<title>[^\]]+)\]\((?P<path>[^)#\s]+\.(?P<suffix>cpp|h|expected))(?:#(?P<part>\w+))?\)$",
    re.MULTILINE,
)
MARKER = re.compile(r"^ *// \[/?\w+\]\n", re.MULTILINE)
EXPORT = "KXRUNTIME_EXPORT "
LANGUAGES = {"cpp": "cpp", "h": "cpp", "expected": "text"}


def marked_part(text, name):
    found = re.search(rf"^ *// \[{name}\]\n(.*?)^ *// \[/{name}\]$", text, re.M | re.S)
    return found and found.group(1)


def without_export(code):
    """Without the macro, which moved the lines behind it to the right."""

    def moved_back(found):
        return found.group(1).replace("\n" + " " * len(EXPORT), "\n")

    return re.sub(EXPORT + r"([^;{]*)", moved_back, code)


def declaration(text, name):
    comment = r"(?:^///[^\n]*\n)*"
    record = rf"^(?:struct|enum|class)\b[^;{{\n]*\b{name}(?:\s*:[^;{{]*)?\s*{{(?:[^\n]*|.*?^)}};$"
    constant = rf"^const int {name}\b[^;]*;$"
    function = rf"^(?=\w)[^;{{}}()]*\b{name}\([^;{{]*\);$"
    inline = rf"^inline [^;{{}}()]*\b{name}\([^;{{]*\)\n{{.*?^}}$"
    found = re.findall(rf"{comment}(?:{record}|{constant}|{function}|{inline})", text, re.M | re.S)
    public = re.sub(r"\n*^private:.*?(?=^};)", "\n", "\n\n".join(found), flags=re.M | re.S)
    return without_export(public)


def shown(file, part):
    text = file.read_text(encoding="utf-8")
    if part is None:
        return MARKER.sub("", text)
    found = declaration(text, part) if file.suffix == ".h" else marked_part(text, part)
    if not found:
        raise ExtensionError(f"{file} has no part {part}")
    return dedent(found)


def show_sources(app, page, source):
    folder = Path(app.env.doc2path(page)).parent

    def block(link):
        file = folder / link["path"]
        app.env.note_dependency(str(file))
        text = shown(file, link["part"]).strip("\n")
        return f"```{{code-block}} {LANGUAGES[link['suffix']]}\n:caption: \"{link['title']}\"\n\n{text}\n```"

    source[0] = LINK.sub(block, source[0])


def setup(app):
    app.connect("source-read", show_sources)
    return {"parallel_read_safe": True}
