"""Single changes to a source file, each of which some test should notice."""

import re
from dataclasses import dataclass

TOKEN = re.compile(
    r"""(?P<skip>//[^\n]*|\#(?:[^\n\\]|\\\n|\\.)*|\s+)
      | (?P<text>"(?:[^"\\\n]|\\.)*")
      | (?P<letter>'(?:[^'\\\n]|\\.)*')
      | (?P<number>\d(?:[\w.]|[eE][+-])*)
      | (?P<word>[A-Za-z_]\w*)
      | (?P<sign>->|::|\.\.\.|<<|>>|[-+*/%&|^=!<>]=|&&|\|\||\+\+|--|.)""",
    re.VERBOSE,
)
ROW = re.compile(r"^ +(?:EBO_\w+|[A-Z_]+)\(.*\),(?: *//.*)?$|^ +\{&\w+, .*\},$")
# A row that fills a field (one without key and text fills none), and a constant of a header.
FIELD = re.compile(r"^ +((?!EBO_STATUS|EBO_NO_KEY\(\w+, \w+\))[A-Z_]+\(.*\)),(?: *//.*)?$", re.MULTILINE)
CONSTANT = re.compile(r"^#define EBO_\w+(?:\(\w+\))? .*|^ +EBO_\w+ = .*?,", re.MULTILINE)
OTHER_SIGN = {
    "==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">", "&&": "||", "||": "&&", "|=": "&=", "+": "-",
    "-": "+",
}  # fmt: skip
NO_STATEMENT = {"return", "using", "constexpr", "const", "static", "case", "break", "namespace", "struct", "template",
                "else", "for", "while", "auto", "static_assert", "EBO_SOUND", "default", "extern", "class",
                "enum"}  # fmt: skip


@dataclass(frozen=True)
class Mutant:
    file: str
    line: int
    begin: int  # what is replaced, in characters from the start of the file
    end: int
    change: str
    kind: str

    def apply(self, source):
        return source[: self.begin] + self.change + source[self.end :]

    def __str__(self):
        return f"{self.file}:{self.line}: {self.kind}"


def other_letter(text):
    """The text with one letter in its middle changed; an empty one is not empty any more."""
    letters = [m.end() - 1 for m in re.finditer(r"\\x[0-9a-f]+|\\.|[A-Za-z0-9]", text) if m.group()[0] != "\\"]
    if not letters:
        return '"x"' if text == '""' else None
    at = letters[len(letters) // 2]
    return text[:at] + ("q" if text[at] != "q" else "z") + text[at + 1 :]


def next_number(text):
    if re.fullmatch(r"0[xX][0-9a-fA-F]+[uUlL]*", text):
        digits = text.rstrip("uUlL")
        return hex(int(digits, 16) + 1) + text[len(digits) :]
    if re.fullmatch(r"\d+[uUlL]*", text):
        digits = text.rstrip("uUlL")
        return str(int(digits) + 1) + text[len(digits) :]
    mantissa = re.match(r"\d+", text).group()  # of a float
    return str(int(mantissa) + 1) + text[len(mantissa) :]


def closing(tokens, at):
    """The place of the bracket that closes the one at `at`."""
    depth = 0
    for i in range(at, len(tokens)):
        depth += {"(": 1, ")": -1}.get(tokens[i].group(), 0)
        if depth == 0:
            return i
    raise ValueError("a bracket is not closed")


def of_conditions(tokens):
    for i, token in enumerate(tokens[:-1]):
        if token.group() in ("if", "while") and tokens[i + 1].group() == "(":
            begin, end = tokens[i + 1].start(), tokens[closing(tokens, i + 1)].end()
            yield begin, end, lambda whole: f"(!{whole})", "condition negated"
        if token.group() == "!":
            yield token.start(), token.end(), lambda _: "", "negation removed"
        if token.group() in ("true", "false"):
            other = "false" if token.group() == "true" else "true"
            yield token.start(), token.end(), lambda _, other=other: other, other


def of_constants(tokens):
    for token in tokens:
        if token.lastgroup == "text":
            if (other := other_letter(token.group())) is not None:
                yield token.start(), token.end(), lambda _, other=other: other, "text"
        elif token.lastgroup == "letter" and len(token.group()) == 3:
            other = chr(ord(token.group()[1]) + 1)
            yield token.start(), token.end(), lambda _, other=other: f"'{other}'", "character"
        elif token.lastgroup == "number":
            yield token.start(), token.end(), lambda whole: next_number(whole), "constant"


def of_operators(source, tokens):
    for token in tokens:
        # An operator stands between blanks; what does not is a sign, a pointer or a template's bracket.
        apart = source[token.start() - 1] == " " and source[token.end() : token.end() + 1] in (" ", "\n")
        if token.lastgroup == "sign" and apart and token.group() in OTHER_SIGN:
            other = OTHER_SIGN[token.group()]
            yield token.start(), token.end(), lambda _, other=other: other, "operator"


def of_statements(tokens):
    depth = 0
    begin = None
    for i, token in enumerate(tokens):
        starts = token.lastgroup == "word" or token.group() in ("*", "++")
        if depth == 0 and i > 0 and starts and tokens[i - 1].group() in (";", "{", "}", ")"):
            begin = i if token.group() not in NO_STATEMENT else None
        depth += {"(": 1, ")": -1}.get(token.group(), 0)
        if token.group() in ("{", "}") and depth == 0:
            begin = None
        if token.group() != ";" or depth > 0 or begin is None:
            continue
        declares = all(t.lastgroup == "word" for t in tokens[begin : begin + 2])
        if not declares:
            yield tokens[begin].start(), token.end(), lambda _: ";", "statement removed"
        begin = None


def of_releases(source):
    for call in re.finditer(r"std::free\((.+?)\);", source):
        other = f"{{ void* p_ = {call[1]}; ka_mem_safe_free(&p_, __func__); }}"
        yield call.start(), call.end(), lambda _, other=other: other, "release exchanged"
    for call in re.finditer(r"ka_mem_safe_free\(&(\w+), \w+\);", source):
        yield call.start(), call.end(), lambda _, p=call[1]: f"__builtin_free({p});", "release exchanged"


def of_rows(source):
    lines = list(re.finditer(r"[^\n]*\n", source))
    for one, next_one in zip(lines, lines[1:]):
        if ROW.match(one[0].rstrip("\n")) and ROW.match(next_one[0].rstrip("\n")):
            both = next_one[0] + one[0]
            yield one.start(), next_one.end(), lambda _, both=both: both, "rows exchanged"


def of_fields(source):
    for row in FIELD.finditer(source):
        yield (row.start(1), row.end(1),
               lambda whole: f"[] {{ EboKeyRow r_ = {whole}; r_.offset += 4; return r_; }}()", "offset")  # fmt: skip


def of_header(source):
    for line in CONSTANT.finditer(source):
        yield from of_constants(TOKEN.finditer(source, line.start() + 1, line.end()))


def mutants(file, source):
    # Directives and comments are not mutated; a condition of the preprocessor is no decision at run time.
    tokens = [t for t in TOKEN.finditer(source) if t.lastgroup != "skip"]
    kinds = (of_conditions(tokens), of_constants(tokens), of_operators(source, tokens), of_statements(tokens),
             of_releases(source), of_rows(source), of_fields(source))  # fmt: skip
    for changes in (of_header(source),) if file.endswith(".h") else kinds:
        for begin, end, change, kind in changes:
            was = source[begin:end]
            becomes = change(was)
            if becomes == was:
                continue
            line = source.count("\n", 0, begin) + 1
            short = " ".join(was.split("\n")[0].split())
            new = " ".join(becomes.split("\n")[0].split())
            yield Mutant(file, line, begin, end, becomes, f"{kind}: `{short}` to `{new}`")
