"""Adds the manual page of a program to the page tools/PROGRAM of the site.

mandoc turns man/PROGRAM.1 into HTML; its sections become sections of the page, so
that they stand in its table of contents and can be linked to.
"""
import re
import subprocess
from pathlib import Path

SECTION = re.compile(
    r'<section class="Sh">\s*<h1[^>]*>(?:<a[^>]*>)?(?P<title>[^<]+)(?:</a>)?</h1>(?P<body>.*?)'
    r'\s*</section>(?=\s*(?:<section class="Sh">|</div>))',
    re.DOTALL,
)
LEFT_OUT = ("NAME", "SEE ALSO")  # the page's own words say these


def sections(manual):
    html = subprocess.run(
        ["mandoc", "-T", "html", "-O", "fragment", str(manual)],
        check=True, capture_output=True, encoding="utf-8",
    ).stdout
    # The sections become headings of the second level, so those inside are of the third.
    html = html.replace("<h2", "<h3").replace("</h2>", "</h3>")
    found = [(" ".join(each["title"].split()), each["body"]) for each in SECTION.finditer(html)]
    return [(title, body) for title, body in found if title not in LEFT_OUT]


def add_manual(app, page, source):
    if not page.startswith("tools/") or page == "tools/index":
        return
    manual = Path(app.srcdir) / "man" / (Path(page).name + ".1")
    app.env.note_dependency(str(manual))
    for title, body in sections(manual):
        heading = title.capitalize().replace("Json", "JSON")
        source[0] += f"\n## {heading}\n\n```{{raw}} html\n{body}\n```\n"


def setup(app):
    app.connect("source-read", add_manual)
    return {"parallel_read_safe": True}
