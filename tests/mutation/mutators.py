#!/usr/bin/env python3
"""Small mistakes that could be made in C++ sources, found by looking at their text."""
import dataclasses
import hashlib
import re

# What is no code is blanked, so that offsets stay what they are.
NO_CODE = re.compile(
    r"""//[^\n]* | /\*.*?\*/ | ^[ \t]*\#[^\n]*
      | u?8?R?"(?:\\.|[^"\\\n])*" | (?<![0-9A-Za-z_])'(?:\\.|[^'\\\n])+'
      | static_assert\([^;]*;""",
    re.VERBOSE | re.DOTALL | re.MULTILINE)

FLIPS = {"<": "<=", "<=": "<", ">": ">=", ">=": ">", "==": "!=", "!=": "=="}
COMPARISON = re.compile(r"(?<= )(?:<=|>=|==|!=|<|>)(?= )")
LOGIC = re.compile(r"(?<= )(?:&&|\|\|)(?=[ \n])")
SIGN = re.compile(r"(?<=[\w)\]] )[+-](?= [\w(])")
STEP = re.compile(r" [+-] 1\b(?![.'])")
CONSTANT = re.compile(r"(?<![\w.'])\d+(?![\w.'])")
ANSWER = re.compile(r"(?<=return )(?:true|false)(?=;)")
CONDITION = re.compile(r"\b(?:if|while) \(")
# A call, an assignment or a step that is a line of its own; never a declaration. What only spares work is
# left alone: no test can notice that it is gone.
STATEMENT = re.compile(
    r"""(?<=[;{})]\n)[ \t]+(?!return\b|throw\b|delete\b)
        (?P<code>(?: (?:\+\+|--)[\w.]+
          | [\w.:>-]*\w(?<!reserve)\([^\n;]*\)(?:[ ]<<[ ][^\n;]*)?
          | [\w.>*-]*\w(?:\[[^\n;=]*\])*[ ][-+*|]?=[ ][^\n;]*
        );)(?=\n)""",
    re.VERBOSE)

KINDS = ("comparison", "condition", "logic", "off by one", "sign", "constant", "statement", "answer")


@dataclasses.dataclass(frozen=True)
class Mutation:
    """`text[begin:end]` of the file at `path` becomes `replacement`. `code` is the lines that it is in."""
    path: str
    kind: str
    line: int
    begin: int
    end: int
    replacement: str
    code: str
    changed: str

    def apply(self, text):
        return text[:self.begin] + self.replacement + text[self.end:]

    def describe(self):
        return f"{self.code} → {self.changed}"


def make(path, text, kind, span, replacement):
    begin, end = span
    first = text.rfind("\n", 0, begin) + 1
    last = (text + "\n").find("\n", end)
    code = " ".join(text[first:last].split())
    changed = " ".join((text[first:begin] + replacement + text[end:last]).split())
    return Mutation(path, kind, text.count("\n", 0, begin) + 1, begin, end, replacement, code, changed)


def code_of(text):
    """`text` with blanks in place of comments, literals and directives."""
    return NO_CODE.sub(lambda match: re.sub(r"[^\n]", " ", match.group()), text)


def closing(code, opening):
    """Where the bracket at `opening` is closed; -1 when it is not."""
    depth = 0
    for i in range(opening, len(code)):
        depth += {"(": 1, ")": -1}.get(code[i], 0)
        if depth == 0:
            return i
    return -1


def conditions(code):
    """The ranges of the conditions that declare nothing."""
    for match in CONDITION.finditer(code):
        begin, end = match.end(), closing(code, match.end() - 1)
        if end > begin and ";" not in code[begin:end] and " = " not in code[begin:end]:
            yield begin, end


def find(path, text):
    """Every mutation of a file, in the order of KINDS and of their place."""
    code = code_of(text)
    found = []

    def add(kind, span, replacement):
        found.append(make(path, text, kind, span, replacement))

    for match in COMPARISON.finditer(code):
        add("comparison", match.span(), FLIPS[match.group()])
    for begin, end in conditions(code):
        add("condition", (begin, end), f"!({text[begin:end]})")
    for match in LOGIC.finditer(code):
        add("logic", match.span(), "||" if match.group() == "&&" else "&&")
    for match in STEP.finditer(code):
        add("off by one", match.span(), "")
    for match in SIGN.finditer(code):
        add("sign", match.span(), "-" if match.group() == "+" else "+")
    for match in CONSTANT.finditer(code):
        add("constant", match.span(), str(int(match.group()) + 1))
    for match in STATEMENT.finditer(code):
        add("statement", match.span("code"), "{}")
    for match in ANSWER.finditer(code):
        add("answer", match.span(), "false" if match.group() == "true" else "true")
    return found


def choose(mutations, seed, most_of_file):
    """The mutations in the order in which to try them: all kinds in turn, never two of a line, and no more
    than `most_of_file` of a file. A change elsewhere in the sources changes next to nothing."""
    def key(mutation):
        what = f"{seed} {mutation.path} {mutation.kind} {mutation.code} {mutation.replacement}"
        return hashlib.sha256(what.encode()).digest()

    left = {kind: sorted((m for m in mutations if m.kind == kind), key=key, reverse=True) for kind in KINDS}
    lines, files = set(), {}
    while any(left.values()):
        for kind in KINDS:
            while left[kind]:
                mutation = left[kind].pop()
                place = (mutation.path, mutation.line)
                if place not in lines and files.get(mutation.path, 0) < most_of_file:
                    lines.add(place)
                    files[mutation.path] = files.get(mutation.path, 0) + 1
                    yield mutation
                    break
