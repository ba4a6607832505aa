"""The help book as a whole: what its sources may refer to, and the page that holds them."""

import re

from .markup import Renderer, escape

# A link whose text is the title of what it leads to; filled in when all titles are known.
PENDING = re.compile("\x01(.*?)\x02")


class Book:
    """Collects chapters. Commands, options and settings become entries with anchors of their own:

    c1001 for a command's number, t40 for a topic's, option-Compiler, ini-Settings-TabSize, text-122.
    """

    def __init__(self, sources):
        self.sources = sources
        self.commands = {command.name or str(command.number): command for command in sources.commands}
        self.headings = []
        self.titles = {}  # of what links lead to, by anchors
        self.entries = {"command": self.command_entry, "option": self.option_entry, "setting": self.setting_entry,
                        "message": self.message_entry}
        self.directives = {
            "menus": self.menu_table, "keys": self.key_table, "commands": self.command_table,
            "keynames": self.key_name_table, "flags": self.flag_table, "console": self.console_table}

    # Small pieces.

    @staticmethod
    def table(head, rows, kind=""):
        def line(cells, tag):
            return "<tr>" + "".join(f"<{tag}>{cell}</{tag}>" for cell in cells) + "</tr>"
        parts = [f'<div class="wide"><table{f" class={chr(34)}{kind}{chr(34)}" if kind else ""}>']
        if head:
            parts += ["<thead>", line(head, "th"), "</thead>"]
        return "\n".join([*parts, "<tbody>", *[line(row, "td") for row in rows], "</tbody></table></div>"])

    @staticmethod
    def keys(text):
        """A key with its modifiers, each in a box of its own; the key "+" itself is written out."""
        return "+".join(f"<kbd>{escape(part)}</kbd>" for part in text.split("+"))

    def key(self, text):
        """A key as it is written, or the default key of the command that is named."""
        if ":" not in text:
            return self.keys(text)
        return self.keys(self.commands[text].key) if self.commands[text].key else "no key"

    def link(self, target, text=None):
        """A link to an anchor or to a command, with the title of what it leads to where no text is given."""
        anchor = target[1:] if target.startswith("#") else f"c{self.commands[target].number}"
        return f'<a href="#{escape(anchor)}">{text or f"{chr(1)}{anchor}{chr(2)}"}</a>'

    # Entries.

    def command_entry(self, argument):
        """A command by its name, or number where it has none; "= title" follows where no menu gives one."""
        name, _, title = argument.partition(" = ")
        command = self.commands[name]
        title = self.titles[f"c{command.number}"] = command.title or title or command.name
        key = f" {self.keys(command.key)}" if command.key else ""
        name = f'<code>{command.name}</code>' if command.name else "no name"
        head = (f'<h4 id="c{command.number}">{escape(title)}{key} '
                f'<span class="tag">{name} · {command.number}</span></h4>')
        return head + (f'\n<p class="prompt">{escape(command.prompt)}</p>' if command.prompt else "")

    def option_entry(self, name):
        presets = self.sources.options[name]
        groups = {}
        for environment, preset in zip(self.sources.environments, presets):
            groups.setdefault(preset, []).append(environment)
        shown = "<br>".join(f"{', '.join(names)}: " + (f"<code>{escape(preset)}</code>" if preset else "empty")
                            for preset, names in groups.items()) if any(presets) else "Empty everywhere"
        return f'<h4 id="option-{name}"><code>{name}</code></h4>\n<p class="prompt">{shown}</p>'

    def setting_entry(self, argument):
        section, _, key = argument.partition(" ")
        tag = ""
        if section == "Settings" and key in self.sources.number_keys:
            base, least, most, default = self.sources.number_keys[key]
            shown = f"{default:b}" if base == 2 else str(default)
            accepted = f" · accepted: {least} to {most}" if most is not None else ""
            tag = f"{'binary digits' if base == 2 else 'decimal'}{accepted} · default: <code>{shown}</code>"
        anchor = re.sub(r"\W+", "-", f"ini-{argument}").strip("-")
        return f'<h4 id="{anchor}"><code>{escape(key)}</code> <span class="tag">{tag}</span></h4>'

    def message_entry(self, constant):
        """A message by the constant that code knows it by; its fields are shown as dots."""
        number = self.sources.string_numbers[constant]
        text = re.sub(r"%\w*", "…", self.sources.strings[number])
        lines = "<br>".join(escape(line) for line in text.split("\n"))
        return f'<h4 id="text-{number}" class="text">{lines}</h4>'

    # Tables of the program.

    def menu_table(self, bar):
        by_constant = {command.constant: command for command in self.sources.commands}

        def shown(constant):
            if constant == "kRecentFileFirst":
                return self.link("#recent-files", "the files opened last")
            command = by_constant[constant]
            link = self.link(command.name or str(command.number))
            return link + ("…" if command.dialog else "") + (f" {self.keys(command.key)}" if command.key else "")
        rows = [[f"<strong>{escape(title)}</strong>", " · ".join(shown(item) for item in items if item)]
                for title, items in self.sources.menus[bar]]
        return self.table(None, rows if rows[0][0] != "<strong></strong>" else [row[1:] for row in rows], "menus")

    def key_table(self, _):
        rows = [[self.keys(command.key), self.link(command.name or str(command.number)),
                 f"<code>{command.name}</code>" if command.name else "", escape(command.prompt)]
                for command in sorted(self.sources.commands, key=lambda c: self.key_order(c.key)) if command.key]
        return self.table(["Key", "Command", "Name", "What it does"], rows)

    @staticmethod
    def key_order(key):
        *modifiers, last = key.split("+")
        function = re.fullmatch(r"F(\d+)", last)
        return (not function, int(function[1]) if function else len(last) > 1, last, len(modifiers), modifiers)

    def command_table(self, _):
        rows = [[str(command.number), f"<code>{command.name}</code>" if command.name else "",
                 self.link(command.name or str(command.number)), self.keys(command.key) if command.key else ""]
                for command in self.sources.commands]
        return self.table(["Number", "Name", "Command", "Default key"], rows)

    def key_name_table(self, _):
        names = [f"{escape(name)} <code>{code}</code>" for name, code in self.sources.key_names]
        return f'<p class="names">{" · ".join(names)}</p>'

    def flag_table(self, _):
        rows = [[str(bit), f"<code>{1 << bit:b}</code>", escape(label), "clear" if inverted else "checked"]
                for bit, label, inverted in self.sources.flag_boxes]
        return self.table(["Bit", "Value", "Box in Global Settings", "The bit is 1 when the box is"], rows)

    def console_table(self, name):
        operands, summary, exits, options = self.sources.console_commands[name]
        rows = [[f"<code>-{letter}</code>", f"<code>--{long}{escape(f' {value}' if value else '')}</code>", escape(text)]
                for letter, long, value, text in options]
        usage = f"<pre>tarrowc {name} [OPTION...] {escape(operands)}</pre>"
        return (f"{usage}\n<p>To {escape(summary)}. The exit code is {escape(exits)}.</p>\n"
                + self.table(["", "Option", "What it does"], rows))

    # The page.

    def page(self, folder):
        """The whole book as one page of HTML, from the sources in a folder."""
        chapters = [Renderer(self, path.name, path.read_text(encoding="utf-8")).render()
                    for path in sorted(folder.glob("*.md"))]
        titles = self.titles | {heading.id: heading.title for heading in self.headings}
        body = "\n".join(f"<article>\n{chapter}</article>" for chapter in chapters)
        body = PENDING.sub(lambda found: escape(titles.get(found[1], found[1])), body)
        texts = {"contents": self.contents(), "body": body, "release": escape(self.sources.string("kTextRelease")),
                 "style": (folder / "page.css").read_text(encoding="utf-8"),
                 "script": (folder / "page.js").read_text(encoding="utf-8")}
        page = (folder / "page.html").read_text(encoding="utf-8")
        return re.sub(r"\{\{(\w+)\}\}", lambda found: texts[found[1]], page)

    def contents(self):
        """The table of contents: chapters with the sections below them."""
        parts = []
        for heading in self.headings:
            link = f'<a href="#{heading.id}">{escape(heading.title)}</a>'
            if heading.level == 2:
                parts.append(f"{'</ul></li>' if parts else ''}<li>{link}<ul>")
            elif heading.level == 3:
                parts.append(f"<li>{link}</li>")
        return "<ul>" + "\n".join(parts) + "</ul></li></ul>"
