# The HTML documentation; docs/build runs it.
import re
import sys
from pathlib import Path

HERE = Path(__file__).parent
sys.path.insert(0, str(HERE / "site"))
sys.dont_write_bytecode = True  # the sources stay as they are

project = "tarvelan KX series driver"
author = "the tarvelan KX series authors"
cmake_project = (HERE.parent / "CMakeLists.txt").read_text(encoding="utf-8")
release = re.search(r"^project\(.* VERSION ([\d.]+)", cmake_project, re.MULTILINE)[1]
# Stands on each page, above the tree of pages.
html_title = f"{project} {release}"
copyright = ""

extensions = ["myst_parser", "shown_sources", "page_tree", "manual_pages", "name_index"]
source_suffix = [".md"]
root_doc = "index"
# Manual pages are pages of their own format; `site` holds the extensions.
exclude_patterns = ["man", "site"]
myst_heading_anchors = 3

html_theme = "furo"
html_show_sphinx = False
html_show_copyright = False
html_copy_source = False
highlight_language = "none"
# Quotes and dashes stand as they are typed.
smartquotes = False
