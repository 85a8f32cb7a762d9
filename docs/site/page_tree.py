"""Makes the site's tree of pages from the links of its index pages.

The pages below an index page are those that it links to in its own folder, and the
index pages of the folders below, in the order of their first links. The front page
shows the tree; the others have tables that say more.
"""
import re
from pathlib import PurePosixPath

LINK = re.compile(r"\]\(([\w./-]+)\.md\)")
INDEX_PAGES = ("index", "README")


def is_below(target):
    if len(target.parts) == 1:
        return True
    return len(target.parts) == 2 and target.name in INDEX_PAGES and target.parts[0] != ".."


def add_tree(app, page, source):
    if PurePosixPath(page).name not in INDEX_PAGES:
        return
    targets = [PurePosixPath(link) for link in LINK.findall(source[0])]
    pages = dict.fromkeys(str(target) for target in targets if is_below(target))
    options = ":hidden:"
    if page == "index":
        options = ":includehidden:\n:maxdepth: 2\n:titlesonly:"
        pages["Index of names <genindex>"] = None
    if pages:
        source[0] += "\n```{toctree}\n" + options + "\n\n" + "\n".join(pages) + "\n```\n"


def setup(app):
    app.connect("source-read", add_tree)
    return {"parallel_read_safe": True}
