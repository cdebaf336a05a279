"""T-SQL as the register speaks it: tokens, statements of a batch, and their translation for the store behind the server."""

import re
from dataclasses import dataclass

from tsql_types import SqlError

TOKEN = re.compile(
    r"""(?P<blank>\s+|--[^\n]*|/\*.*?\*/)
      |(?P<text>[nN]?'(?:[^']|'')*')
      |(?P<open>'.*)
      |(?P<quoted>\[[^\]]*\]|"[^"]*")
      |(?P<number>\d+\.\d*(?:[eE][+-]?\d+)?|\.\d+|\d+)
      |(?P<word>@@?\w+|[^\W\d][\w$#]*)
      |(?P<sign><>|!=|<=|>=|[(),.;=<>*+\-/%!])
      |(?P<other>.)""",
    re.X | re.S,
)

# Words that no table or column may have without brackets; of these the statements below know the first group.
KNOWN_WORDS = set(
    """select from where and or not null is like in exists between order by group having distinct top as on join inner left right
    outer full cross union all insert into values update set delete create table index unique primary key constraint default
    identity asc desc case when then else end begin tran transaction commit rollback if exec execute use print drop collate
    clustered nonclustered count convert cast current_timestamp save go percent truncate""".split()
)
OTHER_RESERVED = set(
    """add alter any authorization backup break browse bulk cascade check checkpoint close coalesce column compute contains
    containstable continue cursor database dbcc deallocate declare deny disk distributed double dump errlvl escape except exit
    external fetch file fillfactor for foreign freetext function goto grant holdlock identity_insert identitycol intersect kill
    lineno load merge national nocheck nullif of off offsets open option over plan precision proc procedure public raiserror
    read readtext reconfigure references replication restore restrict return revert revoke rowcount rowguidcol rule schema
    securityaudit session_user setuser shutdown some statistics system_user tablesample textsize to trigger try_convert tsequal
    updatetext user view waitfor while with within writetext""".split()
)
FUNCTIONS = set(
    """count sum max min avg upper lower len ltrim rtrim substring isnull coalesce nullif replace abs round getdate left right
    convert cast db_name suser_sname serverproperty""".split()
)
STARTERS = set("select insert update delete create drop set begin commit rollback if exec execute use print save truncate".split())


@dataclass
class Token:
    kind: str
    text: str
    line: int

    @property
    def lower(self):
        return self.text.lower() if self.kind == "word" else self.text

    @property
    def name(self):
        """An identifier without its brackets."""
        return self.text[1:-1] if self.kind == "quoted" else self.text

    @property
    def value(self):
        """The content of a text literal."""
        return self.text[self.text.index("'") + 1 : -1].replace("''", "'")

    def is_word(self, *words):
        return self.kind == "word" and self.text.lower() in words

    def is_name(self):
        return self.kind == "quoted" or (self.kind == "word" and not self.text.startswith("@"))


def syntax_error(token):
    if token is None:
        return SqlError(102, "Incorrect syntax near the end of the statement.", severity=15)
    if token.kind == "word" and token.lower in KNOWN_WORDS | OTHER_RESERVED:
        return SqlError(156, f"Incorrect syntax near the keyword '{token.text}'.", severity=15)
    near = token.value if token.kind == "text" else token.name
    return SqlError(102, f"Incorrect syntax near '{near}'.", severity=15)


def tokens_of(text):
    tokens, line = [], 1
    for match in TOKEN.finditer(text):
        kind, piece = match.lastgroup, match.group()
        if kind == "open":
            unclosed = SqlError(105, f"Unclosed quotation mark after the character string '{piece[1:]}'.", severity=15)
            near = tokens[-1] if tokens and tokens[-1].kind in ("word", "number") else None
            if near is None:
                raise unclosed
            near_error = syntax_error(near)
            near_error.also = unclosed
            raise near_error
        if kind == "other":
            raise SqlError(102, f"Incorrect syntax near '{piece}'.", severity=15)
        if kind != "blank":
            tokens.append(Token(kind, piece, line))
        line += piece.count("\n")
    return tokens


def statements_of(tokens):
    """The statements of a batch: separated by semicolons or by the word that starts the next one."""
    statements, current, depth = [], [], 0
    for token in tokens:
        if token.text == "(":
            depth += 1
        elif token.text == ")":
            depth -= 1
        if token.text == ";" and depth == 0:
            if current:
                statements.append(current)
            current = []
            continue
        if current and depth == 0 and token.is_word(*STARTERS) and not _belongs(current, token):
            statements.append(current)
            current = []
        current.append(token)
    if current:
        statements.append(current)
    return statements


def _belongs(current, token):
    first, last = current[0], current[-1]
    if token.is_word("set"):
        return first.is_word("update") and not any(t.is_word("set") for t in current)
    if token.is_word("select"):
        return (first.is_word("insert") and not any(t.is_word("select", "values") for t in current)) or last.is_word("all", "union")
    if first.is_word("if"):
        return not any(t.is_word(*(STARTERS - {"if"})) for t in current)
    return False


def split(tokens, separator=","):
    """The parts of a list at its own depth."""
    parts, current, depth = [], [], 0
    for token in tokens:
        depth += (token.text == "(") - (token.text == ")")
        if token.text == separator and depth == 0:
            parts.append(current)
            current = []
        else:
            current.append(token)
    parts.append(current)
    return parts


def clauses(tokens, words):
    """The pieces of a statement by the words that open them, at depth 0: {"select": [...], "from": [...]}."""
    found, name, depth = {}, None, 0
    for token in tokens:
        if depth == 0 and token.is_word(*words) and token.lower not in found:
            name = token.lower
            found[name] = []
            continue
        depth += (token.text == "(") - (token.text == ")")
        if depth < 0:
            raise syntax_error(token)
        if name is None:
            raise syntax_error(token)
        found[name].append(token)
    if depth:
        raise syntax_error(None)
    return found


class Reader:
    """Walks the tokens of one statement."""

    def __init__(self, tokens):
        self.tokens, self.at = tokens, 0

    def peek(self):
        return self.tokens[self.at] if self.at < len(self.tokens) else None

    def next(self):
        token = self.peek()
        if token is None:
            raise syntax_error(self.tokens[-1])
        self.at += 1
        return token

    def accept(self, *texts):
        token = self.peek()
        if token and token.kind in ("word", "sign") and token.text.lower() in texts:
            self.at += 1
            return token
        return None

    def expect(self, text):
        token = self.next()
        if token.kind not in ("word", "sign") or token.text.lower() != text:
            raise syntax_error(token)
        return token

    def table(self):
        """A table's name; owner and database in front of it are dropped."""
        token = self.next()
        if not token.is_name() or (token.kind == "word" and token.lower in KNOWN_WORDS | OTHER_RESERVED):
            raise syntax_error(token)
        while self.accept("."):
            if self.peek() and self.peek().text != ".":
                token = self.next()
        return token.name

    def group(self):
        """The tokens between a pair of parentheses."""
        self.expect("(")
        start, depth = self.at, 1
        while depth:
            token = self.next()
            depth += (token.text == "(") - (token.text == ")")
        return self.tokens[start : self.at - 1]

    def rest(self):
        rest = self.tokens[self.at :]
        self.at = len(self.tokens)
        return rest
