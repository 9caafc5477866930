"""Finds the places of a source file that can be changed, and what each becomes.

A change keeps the number of lines. Left out is what no test could notice or what is no program text: comments, directives,
static assertions and what is only said in the debug output.
"""
import dataclasses
import re

TOKEN = re.compile(r"""
    (?P<comment>//[^\n]*|/\*.*?\*/)
  | (?P<directive>^[ \t]*\#(?:\\\n|[^\n])*)
  | (?P<raw>R"(?P<mark>[^()\\\s]*)\(.*?\)(?P=mark)")
  | (?P<text>"(?:\\.|[^"\\\n])*")
  | (?P<character>'(?:\\.|[^'\\\n])+')
  | (?P<number>(?:0[xX][0-9a-fA-F]+|\d+(?:\.\d+)?(?:[eE][+-]?\d+)?)[uUlLfF]*)
  | (?P<word>[A-Za-z_]\w*)
  | (?P<blank>\s+)
  | (?P<operator><<=|>>=|->\*|<=>|\.\.\.|::|->|\+\+|--|<<|>>|<=|>=|==|!=|&&|\|\||[-+*/%&|^]=|.)
""", re.VERBOSE | re.DOTALL | re.MULTILINE)

OPERATORS = {
    "comparison": {"==": "!=", "!=": "==", "<": "<=", "<=": "<", ">": ">=", ">=": ">"},
    "logic": {"&&": "||", "||": "&&"},
    "arithmetic": {"+": "-", "-": "+", "&": "|", "|": "&", "++": "--", "+=": "-=", "-=": "+="},
}
UNSPACED = {"++"}  # every other one of OPERATORS has a blank on both sides where it is none of something else
SILENT = {"static_assert", "qDebug", "qInfo", "qWarning", "qCritical", "Q_DECLARE_METATYPE", "using", "extern"}
NO_CALL = {"return", "co_return", "throw", "delete", "new", "case", "default", "else", "do", "goto", "if", "for", "while",
           "switch", "catch", "namespace", "class", "struct", "enum", "typedef", "template", "public", "private",
           "protected"}
UI_TEXT = re.compile(r"<string[^>]*>([^<]+)</string>|<number>(\d+)</number>")


@dataclasses.dataclass(frozen=True)
class Place:
    kind: str
    begin: int
    end: int
    new: str


def larger(text):
    """Another number: the next one, or twice as much where the next one would make no difference that counts."""
    digits = re.match(r"0[xX][0-9a-fA-F]+|\d+(?:\.\d+)?", text).group()
    rest = text[len(digits):]
    if digits[:2] in ("0x", "0X"):
        return f"0x{int(digits, 16) ^ 1:x}{rest}"
    if "." in digits:
        return f"{float(digits) * 2 + 1}{rest}"
    value = int(digits)
    return f"{value + 1 if value < 16 else 2 * value}{rest}"


def letters(text, begin):
    """Each letter or digit of a literal that is no part of an escape, as (position, what it becomes)."""
    for match in re.finditer(r"\\(?:x[0-9a-fA-F]+|[0-7]{1,3}|u[0-9a-fA-F]{4}|.)|%\d|.", text, re.DOTALL):
        old = match.group()
        if len(old) == 1 and (old.isalnum() or old in "=:;/, "):
            yield begin + match.start(), {"z": "a", "Z": "A", "9": "0"}.get(old, chr(ord(old) + 1) if old.isalnum() else "#")


def text_places(begin, body):
    found = [Place("text", at, at + 1, new) for at, new in letters(body, begin)]
    # One change for each literal is drawn later; an empty one gets something in it.
    return found or [Place("text", begin, begin + len(body), "x")]


def blank_between(source, begin, end):
    """What a dropped piece leaves behind."""
    return re.sub(r"[^\n]", " ", source[begin:end])


def is_call(statement):
    """Whether the tokens are one call whose result nobody looks at."""
    words = [token for token in statement if token.lastgroup != "comment"]
    if not words or words[0].lastgroup != "word" or words[0].group() in NO_CALL or words[-1].group() != ")":
        return False
    depth = 0
    before = None
    for token in words:
        text = token.group()
        if depth == 0:
            if text in ("=", "?", ",", "<<", ">>", "{") or text == "*" and before is not None:
                return False
            if before is not None and before.lastgroup == "word" and token.lastgroup == "word" and before.group() != "emit":
                return False  # a declaration
        depth += {"(": 1, "[": 1, ")": -1, "]": -1}.get(text, 0)
        before = token
    return any(token.group() == "(" for token in words)


def statements(tokens):
    """The tokens between semicolons and braces."""
    current = []
    depth = 0
    for token in tokens:
        text = token.group()
        if token.lastgroup == "operator":
            depth += {"(": 1, ")": -1}.get(text, 0)
            if text in "{}" or text == ";" and depth == 0:
                yield current, text
                current = []
                if text in "{}":
                    depth = max(depth, 0)
                continue
        if token.lastgroup != "comment":
            current.append(token)
    yield current, ""


def spaced(source, token):
    return source[token.start() - 1:token.start()].isspace() and source[token.end():token.end() + 1].isspace()


def token_places(source, statement, index):
    token = statement[index]
    text = token.group()
    begin, end = token.span()
    if token.lastgroup == "number":
        yield Place("constant", begin, end, larger(text))
    elif token.lastgroup == "character" and len(text) == 3 and text[1].isalnum():
        yield Place("constant", begin + 1, end - 1, chr(ord(text[1]) + 1))
    elif token.lastgroup == "word" and text in ("true", "false"):
        yield Place("constant", begin, end, "false" if text == "true" else "true")
    elif token.lastgroup == "text":
        yield from text_places(begin + 1, text[1:-1])
    elif token.lastgroup == "raw":
        opening = text.index("(") + 1
        yield from text_places(begin + opening, text[opening:text.rindex(")")])
    elif token.lastgroup == "operator":
        for kind, changes in OPERATORS.items():
            if text in changes and (text in UNSPACED or spaced(source, token)):
                yield Place(kind, begin, end, changes[text])
        following = source[end:end + 1]
        if text == "!" and (following.isalnum() or following in "_(m"):
            yield Place("logic", begin, end, "")


def code_places(source, calls_too):
    """A list for each change that can be drawn: a literal's many letters are one."""
    tokens = [token for token in TOKEN.finditer(source) if token.lastgroup not in ("blank", "directive")]
    for statement, ending in statements(tokens):
        if any(token.group() in SILENT for token in statement):
            continue
        for index in range(len(statement)):
            found = list(token_places(source, statement, index))
            if found:
                yield found
        if calls_too and ending == ";" and is_call(statement):
            begin, end = statement[0].start(), statement[-1].end()
            yield [Place("call", begin, end, blank_between(source, begin, end))]


def form_places(source):
    for match in UI_TEXT.finditer(source):
        if match.group(1):
            yield text_places(match.start(1), match.group(1))
        else:
            yield [Place("constant", match.start(2), match.end(2), larger(match.group(2)))]


def places(path, source):
    """All changes of a file: lists of places, of which one is drawn."""
    if path.endswith(".ui"):
        return list(form_places(source))
    return list(code_places(source, calls_too=path.endswith(".cpp")))
