"""check_guide.py PAGES DOCS: the pages that were made of DOCS/user-guide.md are valid, each heading
of a chapter has one, each can be reached from index.html, no link is dead and no picture missing,
the search knows every page and leads to places that are there, and nothing leads to the net but
what the documents name."""

import html.parser
import json
import pathlib
import re
import sys

from sources import Findings, read_bytes

VOID = {"meta", "link", "img", "br", "hr", "input"}
KNOWN = VOID | {"html", "head", "title", "body", "nav", "main", "ul", "ol", "li", "a", "p", "h1",
                "h2", "h3", "h4", "strong", "em", "code", "pre", "table", "thead", "tbody", "tr",
                "th", "td", "blockquote", "div", "form", "label", "script"}
ONCE = ("html", "head", "title", "body", "nav", "main", "h1")
INDEX = "guide_index.js"
# What a reader of Markdown would have made something of.
LEFT_OVER = re.compile(r"\]\(|\*\*|```|^\s*(?:[|#]|- )", re.MULTILINE)


class Page(html.parser.HTMLParser):
    """One page: the faults of its markup, its links and what they can lead to."""

    def __init__(self, path, findings):
        super().__init__()
        self.path, self.findings = path, findings
        self.open, self.count, self.ids, self.links, self.files = [], {}, [], [], []
        self.text = {"h1": "", "title": ""}

    def fault(self, text):
        self.findings.add(self.path, self.getpos()[0], text)

    def handle_decl(self, declaration):
        if declaration != "DOCTYPE html" or self.count:
            self.fault("another document type")

    def handle_starttag(self, tag, attributes):
        self.count[tag] = self.count.get(tag, 0) + 1
        if tag not in KNOWN:
            self.fault(f"<{tag}>")
        if tag not in VOID:
            self.open.append(tag)
        names = dict(attributes)
        if len(names) < len(attributes):
            self.fault(f"an attribute of <{tag}> twice")
        if "id" in names:
            self.ids.append(names["id"])
        if tag == "a":
            self.links.append((self.getpos()[0], names.get("href") or ""))
        if tag in ("img", "link", "script"):
            self.files.append((self.getpos()[0], names.get("src") or names.get("href") or ""))
        if tag == "img" and not names.get("alt"):
            self.fault("a picture without a text")
        if tag == "html" and names.get("lang") != "en":
            self.fault("no language")

    def handle_endtag(self, tag):
        if not self.open or self.open.pop() != tag:
            self.fault(f"</{tag}> closes another tag")

    def handle_data(self, data):
        inside = self.open[-1] if self.open else ""
        if inside in self.text:
            self.text[inside] += data
        if "code" not in self.open and "pre" not in self.open and LEFT_OVER.search(data):
            self.fault("Markdown is left: " + data.strip()[:40])

    def finish(self):
        self.close()
        if self.open:
            self.fault("not closed: " + ", ".join(self.open))
        for tag in ONCE:
            if self.count.get(tag, 0) != 1:
                self.fault(f"<{tag}> {self.count.get(tag, 0)} times")
        for name in sorted(set(self.ids)):
            if self.ids.count(name) > 1:
                self.fault(f"id {name} twice")
        if not self.text["title"].strip():
            self.fault("no title")


def read_pages(folder, findings):
    pages = {}
    for path in sorted(folder.glob("*.html")):
        page = pages[path.name] = Page(path.name, findings)
        text = path.read_text(encoding="utf-8")
        if not text.startswith("<!DOCTYPE html>") or '<meta charset="utf-8">' not in text:
            findings.add(path.name, 1, "no document type or no character set")
        page.feed(text)
        page.finish()
    return pages


def check_links(pages, folder, docs_text, findings):
    """Dead links and missing files; where each page leads to."""
    ways = {}
    for name, page in pages.items():
        ways[name] = set()
        for line, target in page.links + page.files:
            if re.match(r"[a-z]+:|//", target):
                if target not in docs_text or (line, target) in page.files:
                    findings.add(name, line, f"leads to the net: {target}")
                continue
            file, _, anchor = target.partition("#")
            ways[name].add(file or name)
            if not (folder / (file or name)).is_file():
                findings.add(name, line, f"dead: {target}")
            elif anchor and anchor not in pages[file or name].ids:
                findings.add(name, line, f"no such place: {target}")
    return ways


def check_reached(pages, ways, findings):
    reached, waiting = set(), ["index.html"]
    while waiting:
        name = waiting.pop()
        if name in pages and name not in reached:
            reached.add(name)
            waiting += ways[name]
    for name in sorted(set(pages) - reached):
        findings.add(name, 1, "no way leads here from index.html")


def check_chapters(pages, docs, findings):
    """Each heading of the guide's chapters is the heading of a page."""
    found = {page.text["h1"].strip() for page in pages.values()}
    text = read_bytes(docs, "user-guide.md").decode("utf-8")
    for number, line in enumerate(text.splitlines(), 1):
        if line.startswith("## ") and line[3:].strip() not in found:
            findings.add("user-guide.md", number, f"no page for {line}")


def check_index(pages, folder, findings):
    """The index of the search has all pages, and leads to places that are there."""
    text = (folder / INDEX).read_text(encoding="utf-8") if (folder / INDEX).is_file() else ""
    begin, _, rows = text.partition("[")
    try:
        rows = json.loads("[" + rows.strip().removesuffix(";"))
    except json.JSONDecodeError:
        rows = []
    if begin != "const guideIndex = " or not rows:
        findings.add(INDEX, 1, "missing, or not as the search reads it")
    for number, (place, _, heading, _) in enumerate(rows, 2):
        file, _, anchor = place.partition("#")
        if file not in pages or (anchor and anchor not in pages[file].ids) or not heading:
            findings.add(INDEX, number, f"no such place: {place}")
    for name in sorted(set(pages) - {row[0] for row in rows}):
        findings.add(name, 1, "not in the index of the search")


def main(folder, docs):
    findings = Findings()
    pages = read_pages(folder, findings)
    docs_text = "\n".join(path.read_text(encoding="utf-8") for path in docs.glob("*.md"))
    ways = check_links(pages, folder, docs_text, findings)
    check_reached(pages, ways, findings)
    check_chapters(pages, docs, findings)
    check_index(pages, folder, findings)
    for path in sorted(folder.glob("*.css")):
        if re.search(r"url\(|@import", path.read_text(encoding="utf-8")):
            findings.add(path.name, 1, "leads elsewhere")
    if "index.html" not in pages:
        findings.add("index.html", 1, "missing")
    findings.finish()


main(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
