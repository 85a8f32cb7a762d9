# The HTML documentation; docs/build runs it.
project = "tarvelan KX series driver"
author = "the tarvelan KX series authors"
html_title = "tarvelan KX series driver"
copyright = ""

extensions = ["myst_parser"]
source_suffix = [".md"]
root_doc = "index"
# Manual pages are pages of their own format.
exclude_patterns = ["man"]
myst_heading_anchors = 3

html_theme = "furo"
html_show_sphinx = False
html_show_copyright = False
html_copy_source = False
highlight_language = "none"
# Quotes and dashes stand as they are typed.
smartquotes = False
