"""Finds the functions of a C++ source, without a compiler: by its braces and what stands before them."""

import re

TOKEN = re.compile(
    r'R"(?P<mark>[^ ()\\]*)\((?:.|\n)*?\)(?P=mark)"'     # raw string
    r'|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9a-fA-F])'(?:\\.|[^'\\\n])+'"             # a character, not a digit separator
    r"|//[^\n]*|/\*(?:.|\n)*?\*/"
    r"|^[ \t]*\#(?:\\\n|[^\n])*"                         # preprocessor line
    r"|[A-Za-z_]\w*|::|->|[{}();:,=<>\[\]]|\n", re.MULTILINE)


def tokens(text):
    """(line, token) of what matters: names and brackets, without comments, literals and directives."""
    line = 1
    for found in TOKEN.finditer(text):
        token = found[0]
        first = token.lstrip(" \t")[:1]
        if first and first not in "\"'#/\n" and not (token.startswith('R"')):
            yield line, token
        line += token.count("\n")


class Scanner:
    """Walks over the declarations of a file; inside a function only braces count."""

    def __init__(self, text):
        self.tokens = list(tokens(text))
        self.at = 0

    def functions(self):
        """(first line, last line, name) of every function body."""
        head = []
        while self.at < len(self.tokens):
            line, token = self.tokens[self.at]
            self.at += 1
            if token in (";", "}"):
                head = []
            elif token == ":" and len(head) == 1 and head[0][1] in ("public", "private", "protected"):
                head = []
            elif token == "{":
                kind = kind_of_brace([word for _, word in head])
                if kind == "scope":
                    head = []
                elif kind == "function":
                    last = self._skip_braces()
                    yield head[0][0], last, name_of([word for _, word in head])
                    head = []
                else:
                    self._skip_braces()
                    head.append((line, "{}"))
            else:
                head.append((line, token))

    def _skip_braces(self):
        """Leaves the block just entered; gives the line of its end."""
        depth = 1
        while self.at < len(self.tokens) and depth:
            token = self.tokens[self.at][1]
            depth += (token == "{") - (token == "}")
            self.at += 1
        return self.tokens[self.at - 1][0]


def kind_of_brace(head):
    """What an opening brace begins, by the words before it: a scope, a function, or a value."""
    words = strip_template(head)
    if not words or words[0] == "namespace" or words[:2] == ["inline", "namespace"] or words == ["extern"]:
        return "scope"
    plain = outside_parentheses(words)
    if "=" in plain and "operator" not in plain:
        return "value"
    if {"class", "struct", "union", "enum"} & set(plain) and "()" not in plain:
        return "scope"
    if "()" not in plain:
        return "value"
    # In `Name(int a) : a_{a}, b_(a) {` a brace right after a name begins a member's value.
    after = plain[plain.index("()") + 1:]
    in_initialisers = ":" in after
    return "value" if in_initialisers and plain[-1] not in ("()", "{}") else "function"


def strip_template(words):
    while words[:1] == ["template"]:
        depth, at = 0, 1
        for at, word in enumerate(words[1:], 1):
            depth += (word == "<") - (word == ">")
            if depth == 0:
                break
        words = words[at + 1:]
    return words


def outside_parentheses(words):
    """The words with every parenthesised group as '()'."""
    result, depth = [], 0
    for word in words:
        if word == "(":
            if depth == 0:
                result.append("()")
            depth += 1
        elif word == ")":
            depth -= 1
        elif depth == 0:
            result.append(word)
    return result


def name_of(head):
    plain = outside_parentheses(strip_template(head))
    at = plain.index("()")
    return "".join(plain[max(0, at - 3):at]) if plain[max(0, at - 2):at - 1] == ["::"] else plain[at - 1] if at else "?"


def functions_of(text):
    return list(Scanner(text).functions())
