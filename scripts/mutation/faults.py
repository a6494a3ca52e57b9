"""Finds the places in a C++ source where a small fault can be inserted.

It counts on clang-format: a binary operator has blanks around it, a template's bracket has none.
"""

import random
import re
from collections import Counter
from dataclasses import dataclass

TURNED = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&",
    "+": "-", "-": "+", "*": "/", "/": "*", "%": "/", "&": "|", "|": "&", "+=": "-=", "-=": "+=",
    "<<": ">>", ">>": "<<",
}
OPERATOR = re.compile(r"(?<=\s)(?:%s)(?=\s)" % "|".join(
    re.escape(operator) for operator in sorted(TURNED, key=len, reverse=True)))
STEP = re.compile(r"\+\+|--")
NOT = re.compile(r"!(?=[\w(*])")
TRUTH = re.compile(r"\b(?:true|false)\b")
NUMBER = re.compile(r"(?<![\w.'\"])(0[xX][\da-fA-F']+|\d[\d']*(?:\.\d+)?)([uUlLzfF]*)(?![\w.>])")

# Comments, directives and strings. A quote after a digit is a digit separator.
SILENT = re.compile(
    r"""//[^\n]*|/\*.*?\*/|^[ \t]*\#(?:[^\n]*\\\n)*[^\n]*"""
    r"""|R"(?P<end>[^(\s]*)\(.*?\)(?P=end)"|"(?:\\.|[^"\\\n])*\""""
    r"""|(?<![\da-fA-F])'(?:\\.|[^'\\\n])+'""",
    re.DOTALL | re.MULTILINE)
# Code that declares something and does nothing.
DECLARATIVE = re.compile(
    r"\[\[.*?\]\]|\bstatic_assert\s*\([^;]*;|^\s*template\s*<[^\n]*"
    r"|^\s*(?:using|typedef)\b[^;]*;| = (?:default|delete);|\)(?: const| noexcept| override)* = 0;",
    re.DOTALL | re.MULTILINE)

HEAD = re.compile(r"\s*(?:else\s+)?(?P<word>if|for|while|switch)\b")
LABEL = re.compile(r"\s*(?:case\b.*|default|public|protected|private)", re.DOTALL)
NO_STATEMENT = re.compile(r"(?:else|do|try)\b\s*")
JUMP = re.compile(r"(?:return|break|continue)\s*;|throw\b.*;", re.DOTALL)
SCOPE = re.compile(r"\b(?:namespace|class|struct|enum|union)\b[^()]*$")
OPENS_CODE = re.compile(
    r"(?:[)\]]|\b(?:const|override|noexcept|mutable|else|do|try)|->\s*[\w:<>&*]+)$")
DECIDES = re.compile(r"\s(?:&&|\|\||==|!=|<|<=|>|>=)\s")
JOINS = re.compile(r"\s(?:&&|\|\|)\s")


@dataclass(frozen=True)
class Fault:
    """One change of one source: `before`, at offset `start`, becomes `after`."""

    file: str
    line: int  # from 1
    text: str  # the line, without its indentation
    nth: int  # from 0, among the same changes of the line
    kind: str
    start: int
    before: str
    after: str

    def applied(self, source):
        return source[: self.start] + self.after + source[self.start + len(self.before):]

    def identity(self):
        """What makes it the same fault in a later tree, wherever its line has moved."""
        return self.file, self.text, self.nth, self.kind, self.before, self.after

    def __str__(self):
        before, after = (" ".join(text.split()) for text in (self.before, self.after))
        dropped = after in ("", "{}")
        change = f"{before} dropped" if dropped else f"{before} -> {after}"
        return f"{self.file}:{self.line}: {self.kind}: {change}"


def _blank(match):
    """Keeps the length, the lines and the brackets, which later steps count."""
    return re.sub(r"[^\n(){};]", " ", match.group())


def _silenced(source):
    """The source with blanks for comments, directives and everything in quotes."""

    def silence(match):
        filler = '"' if match.group()[0] in "R\"'" else " "
        return re.sub(r"[^\n]", filler, match.group())

    return SILENT.sub(silence, source)


def _changes_of_tokens(code):
    """(kind, start, before, after) of every operator and constant."""
    for match in OPERATOR.finditer(code):
        operator = match.group()
        left, right = code[: match.start()].rstrip()[-1:], code[match.end():].lstrip()[:1]
        # Strings can only be joined, and a stream only goes one way.
        if operator == "+" and '"' in left + right:
            continue
        if operator in ("<<", ">>") and not right.isdigit():
            continue
        yield "operator", match.start(), operator, TURNED[operator]
    for match in STEP.finditer(code):
        yield "operator", match.start(), match.group(), "--" if match.group() == "++" else "++"
    for match in NOT.finditer(code):
        yield "condition", match.start(), "!", ""
    for match in TRUTH.finditer(code):
        other = "false" if match.group() == "true" else "true"
        yield "constant", match.start(), match.group(), other
    for match in NUMBER.finditer(code):
        for after in _neighbors(match.group(1)):
            yield "constant", match.start(), match.group(), after + match.group(2)


def _neighbors(number):
    """The numbers one above and one below, in the same notation."""
    digits = number.replace("'", "")
    if "." in digits:
        return [str(float(digits) + 1), str(float(digits) - 1)]
    base, form = 10, "{}"
    if digits[:2].lower() == "0x":
        base, form = 16, "0x{:0%dX}" % (len(digits) - 2)
    elif digits[0] == "0" and digits != "0":
        base, form = 8, "0{:o}"
    value = int(digits, base)
    return [form.format(near) for near in (value + 1, value - 1) if near >= 0]


def _opens_code(code, at, inside_code):
    """Whether the brace at this place opens statements, not a scope or a list of values."""
    before = code[:at].rstrip()
    head = re.split(r"[;{}]", before)[-1].strip()
    if SCOPE.search(head):
        return False
    if head == "":
        # Outside of code, a brace right after another is a constructor's: X() : x_{1} {
        return inside_code or before.endswith("}")
    return OPENS_CODE.search(head) is not None or (inside_code and head.endswith(":"))


def _statements(code):
    """Two lists: (start, end) of every statement that is not a block, and (start, end) of what is
    in the parentheses of every if and while."""
    statements, conditions = [], []
    outer = []
    is_code, depth, start, opened = False, 0, 0, 0
    for at, letter in enumerate(code):
        if letter == "{":
            outer.append((is_code, depth, start, opened))
            is_code, depth, start = _opens_code(code, at, is_code), 0, at + 1
        elif letter == "}" and outer:
            was_block = is_code
            is_code, depth, start, opened = outer.pop()
            if depth == 0 and (was_block or not is_code):
                start = at + 1
        elif letter in "([":
            if depth == 0:
                opened = at + 1
            depth += 1
        elif letter in ")]":
            depth -= 1
            head = HEAD.match(code, start, at) if is_code and depth == 0 else None
            if head:
                if head["word"] in ("if", "while"):
                    conditions.append((opened, at))
                start = at + 1
        elif depth == 0 and letter == ";":
            if is_code:
                statements.append((start, at + 1))
            start = at + 1
        elif depth == 0 and letter == ":" and "::" not in code[at - 1: at + 2]:
            if LABEL.fullmatch(code, start, at):
                start = at + 1
    return statements, conditions


def _top_level(text):
    """The text with an underscore for every character in brackets."""
    kept, depth = [], 0
    for letter in text:
        depth -= letter in ")]}"
        kept.append(letter if depth <= 0 else "_")
        depth += letter in "([{"
    return "".join(kept)


def _can_be_dropped(statement):
    """Calls, assignments, steps and jumps; no declarations, which others need, and no values."""
    if JUMP.fullmatch(statement):
        return True
    top = re.sub(r"^(?:emit|delete)\s+", "", _top_level(statement[:-1]))
    assigned = re.match(r"(.*?[^=!<>\s])\s(?:[-+*/%&|^]|<<|>>)?=\s", top, re.DOTALL)
    if assigned:
        return re.search(r"\s", assigned[1]) is None
    shifted = re.match(r"(\S+)\s<<\s", top)
    if shifted or top.startswith(("++", "--")) or top.endswith(("++", "--")):
        return True
    return re.fullmatch(r"[\w*:][^\s]*\)", re.sub(r"\s*\n\s*(?=[.-])", "", top)) is not None


def _changes_of_statements(code):
    statements, conditions = _statements(code)
    for start, end in conditions:
        inside = code[start:end]
        start += _top_level(inside).rfind(";") + 1
        yield from _negated(code, start, end)
    for start, end in statements:
        while True:
            start += len(code[start:end]) - len(code[start:end].lstrip())
            skipped = NO_STATEMENT.match(code, start, end)
            if not skipped:
                break
            start = skipped.end()
        statement = code[start:end]
        value = re.match(r"return\s+(?=\S)", statement)
        if value and not re.search(r"\s\?\s", _top_level(statement)):
            yield from _negated(code, start + value.end(), end - 1, only_joined=True)
        if _can_be_dropped(statement):
            yield "statement", start, statement, "{}"
    for match in re.finditer(r"\s\?\s", code):
        yield from _negated(code, _start_of_choice(code, match.start()), match.start())


def _start_of_choice(code, end):
    """Where the condition starts whose question mark is at `end`."""
    depth = 0
    for at in range(end - 1, -1, -1):
        letter = code[at]
        depth += letter in ")]}"
        depth -= letter in "([{"
        if depth < 0 or (depth == 0 and letter in ",;{}"):
            return at + 1
        if depth == 0 and re.match(r"\s(?:[-+*/%&|^]?=|\?|:|<<)\s|\breturn\s", code[at: end]):
            return at + re.match(r"\s?\S+", code[at:end]).end()
    return 0


def _negated(code, start, end, only_joined=False):
    start += len(code[start:end]) - len(code[start:end].lstrip())
    condition = code[start:end].rstrip()
    top = _top_level(condition)
    if not condition or re.match(r"(?:const|auto)\b", condition):
        return
    # Single comparisons for equality and a single `!` are already changed as operators.
    if not JOINS.search(top) and (re.search(r"\s[!=]=\s", top) or top.startswith("!")):
        return
    if only_joined and not DECIDES.search(top):
        return
    yield "condition", start, condition, f"!({condition})"


def find_faults(file, source):
    """All faults of a source, in the order of their places."""
    code = DECLARATIVE.sub(_blank, _silenced(source))
    faults, met = [], Counter()
    changes = [*_changes_of_tokens(code), *_changes_of_statements(code)]
    for kind, start, before, after in sorted(changes, key=lambda change: change[1]):
        # Strings are blank in `code`.
        whole = source[start: start + len(before)]
        after = after.replace(before, whole)
        line = source.count("\n", 0, start) + 1
        text = source.split("\n")[line - 1].strip()
        key = line, kind, whole, after
        faults.append(Fault(file, line, text, met[key], kind, start, whole, after))
        met[key] += 1
    return faults


def in_drawn_order(faults, seed):
    """All faults in the order in which a seed draws them. Every line comes once before any comes
    twice, and the constants of a line together weigh no more than the call that they are in."""
    drawn = list(faults)
    random.Random(seed).shuffle(drawn)
    lines, same_kind, ranks = {}, Counter(), {}
    for fault in drawn:
        kind = fault.file, fault.line, fault.kind
        ranks[fault] = same_kind[kind]
        same_kind[kind] += 1
        lines.setdefault((fault.file, fault.line), []).append(fault)
    for line in lines.values():
        for rank, fault in enumerate(sorted(line, key=ranks.get)):
            ranks[fault] = rank
    return sorted(drawn, key=ranks.get)


def found_again(faults, earlier):
    """For each fault of an earlier tree, the same one in this tree: the nearest if its line appears
    more than once, None if the line no longer exists."""
    places = {}
    for fault in faults:
        places.setdefault(fault.identity(), []).append(fault)
    again = []
    for fault in earlier:
        same = places.get(fault.identity(), [])
        again.append(min(same, key=lambda other: abs(other.line - fault.line), default=None))
    return again
