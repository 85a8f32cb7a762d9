"""Fills the site's index from the pages of the reference.

In it stand the entry points, by the titles of their pages; the names in tables whose
first column is Name; and what the declarations show: records, fields and constants. Of
libkxruntime, below reference/runtime, it names classes and functions.
"""
import re

from docutils import nodes
from sphinx import addnodes
from sphinx.transforms import SphinxTransform

RECORD = re.compile(r"^(struct|enum|class)\b[^;{\n]*?(\w+)\s*\{(.*?)^\};", re.M | re.S)
FIELD = re.compile(r"^    (?! )[\w:<>*& ]+[ *&](\w+)(?:\[\w+\])?;", re.M)
ENUMERATOR = re.compile(r"^    ([A-Z]\w+)\b", re.M)
CONSTANT = re.compile(r"^const int (\w+)", re.M)
RUNTIME_NAME = re.compile(r"^(?:(?:class|struct|enum class|const int) (\w+)|\w[^;{}()]*\b(\w+)\()", re.M)


def names_of_declarations(code):
    names = [f"{name} (constant)" for name in CONSTANT.findall(code)]
    for kind, record, body in RECORD.findall(code):
        if kind == "enum":
            names += [f"{record} (constants)"]
            names += [f"{name} (constant of {record})" for name in ENUMERATOR.findall(body)]
        else:
            public = body.split("private:")[0]
            names += [f"{record} (record)"]
            names += [f"{name} (field of {record})" for name in FIELD.findall(public)]
    return names


def names_of_the_runtime(code):
    return dict.fromkeys(f"kx::{kind or function}" for kind, function in RUNTIME_NAME.findall(code))


def names_of_table(table):
    heading = table.next_node(nodes.thead)
    if not heading or heading.next_node(nodes.entry).astext() != "Name":
        return []
    rows = table.next_node(nodes.tbody).findall(nodes.row)
    return [
        literal.astext()
        for row in rows
        for literal in row.next_node(nodes.entry).findall(nodes.literal)
    ]


def add_index(place, names):
    """An index entry per name, which leads to where `place` begins."""
    entries = []
    for name in names:
        anchor = "index-" + re.sub(r"\W+", "-", name).strip("-")
        entries.append(("single", name, anchor, "", None))
    if entries:
        anchors = [nodes.target("", "", ids=[entry[2]]) for entry in entries]
        parent = place.parent
        at = parent.index(place)
        parent[at:at] = [addnodes.index(entries=entries), *anchors]


class IndexNames(SphinxTransform):
    default_priority = 800  # before the entries are collected

    def apply(self, **kwargs):
        page = self.env.docname
        if not page.startswith("reference/"):
            return
        title = self.document.next_node(nodes.title)
        if page.startswith("reference/intf_"):
            add_index(title.next_node(descend=False, siblings=True), [title.astext()])
        for table in list(self.document.findall(nodes.table)):
            add_index(table, names_of_table(table))
        is_runtime = page.startswith("reference/runtime/")
        names_of = names_of_the_runtime if is_runtime else names_of_declarations
        for block in list(self.document.findall(nodes.literal_block)):
            place = block.parent if isinstance(block.parent, nodes.container) else block
            add_index(place, names_of(block.astext()))


def setup(app):
    app.add_transform(IndexNames)
    return {"parallel_read_safe": True}
