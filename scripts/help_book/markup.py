"""The markup of the help book's source, turned into HTML.

A source is a chapter of plain text in blocks that blank lines part:

    # Title {#id topics=1,2}      a chapter; ## and ### are sections in it. The braces may be left out.
    - item                        a list; "1. item" is a numbered one; deeper lines go on with the item
    | a | b |                     a table; its first row is the head when |---| follows
    ```                           text as it stands, up to the next ```
    = term = meaning              a term and what it means
    > text                        a note
    @word argument                a table of the program, or the head of an entry (see directives.py); an entry
                                  reaches to the next entry or title, or to @end
    anything else                 a paragraph

and in a line: `code`, **strong**, *emphasis*, {{Ctrl+F5}} for a key, {{Search:Find}} for the default key of a
command, [[Search:Find]] and [[#id]] for links with the text of what they lead to, [text](#id) with another.
"""

import dataclasses
import html
import re

HEADING = re.compile(r"(#{1,3}) (.*?)(?: \{#([\w-]+)(?: topics=([\d,]+))?\})?$")
ITEM = re.compile(r"(-|\d+\.) (.*)$")
TERM = re.compile(r"= (.+?) = (.*)$")
INLINE = re.compile(r"`([^`]+)`|\*\*(.+?)\*\*|(?<![\w*])\*([^*\s][^*]*)\*|\{\{(.+?)\}\}|\[\[([^\]]+)\]\]"
                    r"|\[([^\]\[]+)\]\((#[\w-]+)\)")


class MarkupError(Exception):
    """Something in a source of the book that cannot be meant; the text says where."""


def escape(text):
    return html.escape(text, quote=True)


@dataclasses.dataclass
class Heading:
    """A title in the book, for contents and links: level 2 is a chapter's."""
    level: int
    id: str
    title: str


def id_of(title):
    return re.sub(r"\W+", "-", title.lower()).strip("-")


class Renderer:
    """Turns one source into HTML. `book` knows what links lead to and carries out the directives."""

    def __init__(self, book, name, text):
        self.book, self.name = book, name
        self.lines = text.splitlines()
        self.at = 0  # the line that comes next
        self.block_at = 0  # the line where the present block began
        self.entry_open = False
        self.out = []

    def render(self):
        while self.at < len(self.lines):
            self.block()
        self.end_entry()
        return "\n".join(self.out) + "\n"

    def fail(self, what):
        raise MarkupError(f"{self.name}:{self.block_at + 1}: {what}")

    # Blocks.

    def block(self):
        self.block_at = self.at
        line = self.lines[self.at]
        if not line.strip():
            self.at += 1
        elif line.startswith("#"):
            self.heading(line)
        elif line.startswith("```"):
            self.code()
        elif line.startswith("|"):
            self.table()
        elif line.startswith("@"):
            self.directive(line)
        elif line.startswith("> "):
            self.put(f'<p class="note">{self.inline(self.joined(lambda text: text.startswith("> "), 2))}</p>')
        elif TERM.match(line):
            self.terms()
        elif ITEM.match(line):
            self.list()
        else:
            self.put(f"<p>{self.inline(self.paragraph())}</p>")

    def put(self, text):
        self.out.append(text)

    def joined(self, belongs, skip):
        first = self.at
        while self.at < len(self.lines) and belongs(self.lines[self.at]):
            self.at += 1
        return " ".join(line[skip:].strip() for line in self.lines[first:self.at])

    def paragraph(self):
        return self.joined(lambda line: line.strip() and not re.match(r"[#|@>]|```|= |- |\d+\. ", line), 0) or \
            self.fail("a line that begins as a block but is none")

    def heading(self, line):
        found = HEADING.match(line) or self.fail("a title that cannot be read")
        self.end_entry()
        level, title = len(found[1]) + 1, found[2]
        id_ = found[3] or id_of(title)
        topics = "".join(f'<a class="topic" id="t{number}"></a>' for number in (found[4] or "").split(",") if number)
        self.book.headings.append(Heading(level, id_, title))
        self.put(f'<h{level} id="{id_}">{topics}{self.inline(title)}</h{level}>')
        self.at += 1

    def code(self):
        end = next((i for i in range(self.at + 1, len(self.lines)) if self.lines[i].startswith("```")), None)
        if end is None:
            self.fail("text as it stands without an end")
        self.put(f"<pre>{escape(chr(10).join(self.lines[self.at + 1:end]))}</pre>")
        self.at = end + 1

    def table(self):
        rows = []
        while self.at < len(self.lines) and self.lines[self.at].startswith("|"):
            cells = re.split(r"(?<!\\)\|", self.lines[self.at].strip()[1:-1])
            rows.append([cell.strip().replace("\\|", "|") for cell in cells])
            self.at += 1
        head = rows.pop(0) if len(rows) > 1 and all(set(cell) <= set("-:") for cell in rows[1]) else None
        if head:
            rows.pop(0)
        if any(len(row) != len(rows[0]) for row in rows):
            self.fail("rows of a table that differ in length")
        self.put(self.book.table([self.inline(cell) for cell in head] if head else None,
                                 [[self.inline(cell) for cell in row] for row in rows]))

    def terms(self):
        self.put("<dl>")
        while self.at < len(self.lines) and (found := TERM.match(self.lines[self.at])):
            self.at += 1
            rest = self.joined(lambda line: line.startswith("  ") and line.strip(), 2)
            self.put(f"<dt>{self.inline(found[1])}</dt><dd>{self.inline(f'{found[2]} {rest}'.strip())}</dd>")
        self.put("</dl>")

    def list(self):
        kind = "ul" if self.lines[self.at].startswith("- ") else "ol"
        self.put(f"<{kind}>")
        while self.at < len(self.lines) and (found := ITEM.match(self.lines[self.at])):
            self.at += 1
            rest = self.joined(lambda line: line.startswith("  ") and line.strip(), 2)
            self.put(f"<li>{self.inline(f'{found[2]} {rest}'.strip())}</li>")
        self.put(f"</{kind}>")

    # Directives and the entries that they begin.

    def directive(self, line):
        word, _, argument = line[1:].partition(" ")
        if word == "end":
            self.end_entry()
        elif word in self.book.entries:
            self.end_entry()
            self.put(f'<div class="entry">{self.carry_out(self.book.entries[word], argument)}')
            self.entry_open = True
        elif word in self.book.directives:
            self.put(self.carry_out(self.book.directives[word], argument))
        else:
            self.fail(f"unknown word @{word}")
        self.at += 1

    def carry_out(self, function, argument):
        try:
            return function(argument.strip())
        except KeyError as error:
            return self.fail(f"the program has no {error}")

    def end_entry(self):
        if self.entry_open:
            self.put("</div>")
        self.entry_open = False

    # What stands in a line.

    def inline(self, text):
        parts, last = [], 0
        for found in INLINE.finditer(text):
            parts += [escape(text[last:found.start()]), self.span(found)]
            last = found.end()
        return "".join(parts) + escape(text[last:])

    def span(self, found):
        code, strong, emphasis, key, target, text, place = found.groups()
        if code:
            return f"<code>{escape(code)}</code>"
        if strong:
            return f"<strong>{self.inline(strong)}</strong>"
        if emphasis:
            return f"<em>{self.inline(emphasis)}</em>"
        try:
            return self.book.key(key) if key else self.book.link(target or place, self.inline(text) if text else None)
        except KeyError as error:
            return self.fail(f"the program has no {error}")
