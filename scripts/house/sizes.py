"""No source above 600 lines, no function above 60: what grows beyond is two things."""

import ast

from .functions import functions_of

MOST_LINES_OF_FILE = 600
MOST_LINES_OF_FUNCTION = 60


def measured(tree):
    return [name for name in tree.files if name.endswith((".h", ".cpp", ".py"))]


def files(tree):
    for name in measured(tree):
        if (count := len(tree.lines(name))) > MOST_LINES_OF_FILE:
            yield f"{name}: {count} lines, more than {MOST_LINES_OF_FILE}"


def functions_in(tree, name):
    """(first line, last line, name) of the functions of a C++ or Python source."""
    if not name.endswith(".py"):
        return functions_of(tree.text(name))
    return [(node.lineno, node.end_lineno, node.name) for node in ast.walk(ast.parse(tree.text(name)))
            if isinstance(node, (ast.FunctionDef, ast.AsyncFunctionDef))]


def functions(tree):
    for name in measured(tree):
        for first, last, function in functions_in(tree, name):
            if (count := last - first + 1) > MOST_LINES_OF_FUNCTION:
                yield f"{name}:{first}: {function} has {count} lines, more than {MOST_LINES_OF_FUNCTION}"
