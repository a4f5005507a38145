"""make_guide.py DOCS FOLDER: the user guide as HTML, for readers without a tool for Markdown.

From DOCS/user-guide.md comes one page for each chapter (its ## headings), named after the
heading, and index.html with what is before the first chapter. Every other page that the guide
leads to, directly or through others, is one page. The pictures that they show are copied beside
them, with the search (guide_search.js) and guide_index.js, which has what it searches. FOLDER is
made again: nothing of an earlier run stays in it.

A program cannot open a place within a page, only a page; that is why chapters are pages.
"""

import html
import html.parser
import json
import pathlib
import re
import shutil
import sys

import markdown
from markdown.treeprocessors import Treeprocessor

GUIDE = "user-guide.md"
# Files of ours that go along.
HERE = pathlib.Path(__file__).parent
FILES = ("guide.css", "guide_search.js")
INDEX = "guide_index.js"

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<title>{title}</title>
<link rel="stylesheet" href="guide.css">
</head>
<body>
<nav aria-label="Chapters">
<form id="search" role="search" onsubmit="return false" hidden>
<label for="query">Search</label>
<input type="search" id="query" autocomplete="off">
<p id="count" role="status" hidden></p>
<ul id="found" hidden></ul>
</form>
<div id="chapters">
{chapters}
</div>
</nav>
<main>
{text}
{neighbours}
</main>
<script src="guide_index.js"></script>
<script src="guide_search.js"></script>
</body>
</html>
"""


class Page:
    """One page of HTML: its file, its heading, its Markdown, and the file that this comes from."""

    def __init__(self, source, file, title, text):
        self.source, self.file, self.title, self.text = source, file, title, text


def fail(text):
    sys.exit("make_guide: " + text)


def anchor_of(heading, _separator="-"):
    """The name of a heading in links, as Markdown's readers on the net make it."""
    kept = re.sub(r"[^\w\- ]", "", heading.strip().lower())
    return kept.replace(" ", "-")


def plain(heading):
    """A heading without marks for code and emphasis."""
    return re.sub(r"[`*]", "", heading)


def headings(text):
    """(level, heading, offset) of a Markdown text, blocks of code aside."""
    in_code, offset = False, 0
    for line in text.splitlines(keepends=True):
        in_code ^= line.startswith("```")
        found = None if in_code else re.match(r"(#+) (.*)", line)
        if found:
            yield len(found.group(1)), plain(found.group(2).strip()), offset
        offset += len(line)


def title_of(source, text):
    for level, heading, _ in headings(text):
        if level == 1:
            return heading
    return fail(f"{source} has no heading")


def guide_pages(text):
    """The guide's contents and its chapters."""
    chapters = [(name, offset) for level, name, offset in headings(text) if level == 2]
    ends = [offset for _, offset in chapters[1:]] + [len(text)]
    first = chapters[0][1] if chapters else len(text)
    yield Page(GUIDE, "index.html", title_of(GUIDE, text), text[:first])
    for (name, offset), end in zip(chapters, ends):
        yield Page(GUIDE, anchor_of(name) + ".html", name, text[offset:end])


def linked_sources(text):
    return re.findall(r"\]\(([\w-]+\.md)(?:#[\w-]*)?\)", text)


def read_pages(docs):
    """All pages, those of the guide first."""
    pages, sources = [], [GUIDE]
    for source in sources:  # grows
        path = docs / source
        if not path.is_file():
            fail(f"there is no {path}")
        text = path.read_text(encoding="utf-8")
        sources += [name for name in dict.fromkeys(linked_sources(text)) if name not in sources]
        if source == GUIDE:
            pages += guide_pages(text)
        else:
            pages.append(Page(source, source[:-3] + ".html", title_of(source, text), text))
    files = [page.file for page in pages]
    for file in files:
        if files.count(file) > 1:
            fail(f"two pages are named {file}")
    return pages


def places(pages):
    """Where links of Markdown lead: {(source, anchor): page or page#anchor}."""
    found = {}
    for page in pages:
        chapter = page.source == GUIDE and page.file != "index.html"
        for level, heading, _ in headings(page.text):
            anchor = anchor_of(heading)
            # A link to a chapter leads to its page, one to a part of it to that part.
            top = level == (2 if chapter else 1)
            found[page.source, anchor] = page.file if top else f"{page.file}#{anchor}"
            if top:
                found.setdefault((page.source, ""), page.file)
    return found


class Links(Treeprocessor):
    """Links between sources become links between pages; pictures are noted."""

    def __init__(self, page, where, titles):
        super().__init__()
        self.page, self.where, self.titles, self.pictures = page, where, titles, set()

    def run(self, root):
        for picture in root.iter("img"):
            self.pictures.add(picture.get("src"))
        for link in root.iter("a"):
            self.change(link)

    def change(self, link):
        target = link.get("href")
        if re.match(r"[a-z]+:", target):
            return
        source, _, anchor = target.partition("#")
        source = source or self.page.source
        if (source, anchor) not in self.where:
            fail(f"{self.page.source} links to {target}, which is not there")
        link.set("href", self.where[source, anchor])
        # A reader of these pages sees titles, not names of files.
        if link.text == source:
            link.text = self.titles[source]


def body_of(page, where, titles):
    """The page's text as HTML, and the pictures in it."""
    links = Links(page, where, titles)
    reader = markdown.Markdown(extensions=["tables", "toc", "fenced_code", "sane_lists"],
                               extension_configs={"toc": {"slugify": anchor_of}},
                               output_format="html")
    # After links and pictures have been made of the text, which has the priority 20.
    reader.treeprocessors.register(links, "links", 15)
    text = reader.convert(page.text)
    if page.source == GUIDE and page.file != "index.html":
        # A chapter's heading is the first one of its page.
        text = re.sub(r"(</?h)([2-5])\b", lambda tag: tag[1] + str(int(tag[2]) - 1), text)
    return text, links.pictures


class Parts(html.parser.HTMLParser):
    """The parts of a page, each from a heading to the next: name of the place, heading, text."""

    def __init__(self, text):
        super().__init__()
        self.parts, self.in_heading = [["", "", ""]], False
        self.feed(text)
        self.close()

    def handle_starttag(self, tag, attributes):
        if re.fullmatch("h[1-6]", tag):
            self.in_heading = True
            self.parts.append([dict(attributes).get("id", ""), "", ""])
        elif tag != "code":
            self.parts[-1][2] += " "

    def handle_endtag(self, tag):
        if re.fullmatch("h[1-6]", tag):
            self.in_heading = False

    def handle_data(self, data):
        self.parts[-1][1 if self.in_heading else 2] += data


def index_of(page, text):
    """What the search knows of a page: place, title of the page, heading, text, of each part."""
    rows = []
    for number, (name, heading, words) in enumerate(Parts(text).parts):
        words = " ".join(words.split())
        if heading or words:
            # The page's own heading is its top.
            place = page.file if number <= 1 else f"{page.file}#{name}"
            rows.append([place, page.title, heading or page.title, words])
    return rows


def list_of(pages, here):
    items = []
    for page in pages:
        current = ' aria-current="page"' if page is here else ""
        items.append(f'<li><a href="{page.file}"{current}>{html.escape(page.title)}</a></li>')
    return "<ul>\n" + "\n".join(items) + "\n</ul>"


def neighbours_of(chapters, here):
    """Links to the chapters before and after a chapter."""
    if here not in chapters:
        return ""
    at = chapters.index(here)
    links = []
    for word, index in (("Before", at - 1), ("Next", at + 1)):
        if 0 <= index < len(chapters):
            page = chapters[index]
            links.append(f'{word}: <a href="{page.file}">{html.escape(page.title)}</a>')
    return "<p class=\"neighbours\">" + "<br>\n".join(links) + "</p>"


def make_pages(docs):
    """The texts of all pages by their files, index.html last, the pictures in them, and the rows of
    the search's index."""
    pages = read_pages(docs)
    chapters = [page for page in pages if page.source == GUIDE]
    others = [page for page in pages if page.source != GUIDE]
    where = places(pages)
    titles = {page.source: page.title for page in reversed(pages)}
    texts, pictures, index = {}, set(), []
    for page in reversed(pages):
        text, shown = body_of(page, where, titles)
        index = index_of(page, text) + index
        pictures |= shown
        lists = list_of(chapters, page) + "\n<p>More</p>\n" + list_of(others, page)
        title = page.title if page is chapters[0] else f"{page.title} - {chapters[0].title}"
        texts[page.file] = PAGE.format(title=html.escape(title), chapters=lists, text=text,
                                       neighbours=neighbours_of(chapters, page))
    return texts, pictures, index


def write_guide(docs, folder):
    texts, pictures, index = make_pages(docs)
    for picture in sorted(pictures):
        if not (docs / picture).is_file():
            fail(f"there is no {docs / picture}")
    shutil.rmtree(folder, ignore_errors=True)
    folder.mkdir(parents=True)
    for file in FILES:
        shutil.copyfile(HERE / file, folder / file)
    rows = ",\n".join(json.dumps(row, ensure_ascii=False) for row in index)
    (folder / INDEX).write_text(f"const guideIndex = [\n{rows}\n];\n", encoding="utf-8")
    for picture in sorted(pictures):
        (folder / picture).parent.mkdir(parents=True, exist_ok=True)
        shutil.copyfile(docs / picture, folder / picture)
    # Once index.html is there, so is all the rest.
    for file, text in texts.items():
        (folder / file).write_text(text, encoding="utf-8")


if __name__ == "__main__":
    if len(sys.argv) != 3:
        fail("make_guide.py DOCS FOLDER")
    write_guide(pathlib.Path(sys.argv[1]), pathlib.Path(sys.argv[2]))
