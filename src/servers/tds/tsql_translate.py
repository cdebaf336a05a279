"""From the tokens of a T-SQL query to a text for the store (SQLite) and the types of its columns."""

import re
from dataclasses import dataclass, field

from tsql import FUNCTIONS, KNOWN_WORDS, OTHER_RESERVED, Reader, clauses, split, syntax_error
from tsql_types import FIXED_TYPES, Numeric, SqlError, Text, type_of

SELECT_CLAUSES = ("select", "from", "where", "group", "having", "order")
COMPARISONS = {"=", "<>", "!=", "<", ">", "<=", ">="}
RENAMED = {"len": "tds_len", "isnull": "ifnull", "substring": "substr", "left": "tds_left", "right": "tds_right"}
JOINS = {"join", "inner", "left", "right", "full", "outer", "cross"}


@dataclass
class Column:
    name: str
    type: object
    nullable: bool = True
    identity: bool = False
    primary: bool = False


@dataclass
class Table:
    name: str
    columns: list = field(default_factory=list)

    def column(self, name):
        return next((c for c in self.columns if c.name.lower() == name.lower()), None)

    @property
    def identity(self):
        return next((c for c in self.columns if c.identity), None)


def quoted(name):
    return "[" + name.replace("]", "") + "]"


def literal(value):
    if value is None:
        return "NULL"
    return repr(value) if isinstance(value, (int, float)) else "'" + str(value).replace("'", "''") + "'"


class Query:
    """One SELECT: `text` for the store, `columns` as (name, type or None when only the value tells)."""

    def __init__(self, session, tokens):
        self.session = session
        self.scope = {}
        self.columns = []
        parts = self._unions(tokens)
        texts = []
        for number, (joint, part) in enumerate(parts):
            query = self._select(part) if number == 0 else Query(session, part).text
            texts.append((joint + " " if joint else "") + query)
        self.text = " ".join(texts)

    @staticmethod
    def _unions(tokens):
        parts, depth, joint = [("", [])], 0, None
        for token in tokens:
            depth += (token.text == "(") - (token.text == ")")
            if depth == 0 and token.is_word("union"):
                joint = "UNION"
                parts.append((joint, []))
            elif depth == 0 and joint and token.is_word("all") and not parts[-1][1]:
                parts[-1] = ("UNION ALL", [])
            else:
                parts[-1][1].append(token)
        return parts

    def _select(self, tokens):
        found = clauses(tokens, SELECT_CLAUSES)
        if "select" not in found:
            raise syntax_error(tokens[0] if tokens else None)
        source = self._from(found["from"]) if "from" in found else ""
        reader = Reader(found["select"])
        distinct = "DISTINCT " if reader.accept("distinct") else ""
        limit = self._top(reader)
        items = [self._item(item) for item in split(reader.rest())]
        text = f"SELECT {distinct}{', '.join(items)}{source}"
        for word, sql in (("where", "WHERE"), ("group", "GROUP"), ("having", "HAVING"), ("order", "ORDER")):
            if word in found:
                if not found[word]:
                    raise syntax_error(tokens[-1])
                text += f" {sql} {self.render(found[word])}"
        return text + limit

    @staticmethod
    def _top(reader):
        if not reader.accept("top"):
            return ""
        braces = reader.accept("(")
        count = reader.next()
        if count.kind != "number" or "." in count.text:
            raise syntax_error(count)
        if braces:
            reader.expect(")")
        return f" LIMIT {count.text}"

    # --- FROM ----------------------------------------------------------------------------------------------------------------------

    def _from(self, tokens):
        if not tokens:
            raise SqlError(102, "Incorrect syntax near 'from'.", severity=15)
        sources, conditions, reader, joint = [], [], Reader(tokens), ""
        while True:
            sources.append((joint, self._source(reader)))
            words = []
            while (token := reader.peek()) and token.is_word(*JOINS):
                words.append(reader.next().text)
            if words:
                joint = " " + " ".join(words) + " "
                continue
            if reader.accept("on"):
                start = reader.at
                depth = 0
                while (token := reader.peek()) and not (depth == 0 and (token.text == "," or token.is_word(*JOINS))):
                    depth += (token.text == "(") - (token.text == ")")
                    reader.at += 1
                conditions.append((len(sources) - 1, reader.tokens[start : reader.at]))
                while (token := reader.peek()) and token.is_word(*JOINS):
                    words.append(reader.next().text)
                if words:
                    joint = " " + " ".join(words) + " "
                    continue
            if reader.accept(","):
                joint = ", "
                continue
            if reader.peek():
                raise syntax_error(reader.peek())
            break
        on = {place: self.render(condition) for place, condition in conditions}
        return " FROM " + "".join(j + text + (f" ON {on[n]}" if n in on else "") for n, (j, text) in enumerate(sources))

    def _source(self, reader):
        token = reader.peek()
        if token and token.text == "(":
            inner = Query(self.session, reader.group())
            reader.accept("as")
            alias = reader.next().name
            self.scope[alias.lower()] = Table(alias, [Column(name, kind) for name, kind in inner.columns])
            return f"({inner.text}) AS {quoted(alias)}"
        table = self.session.base.table(reader.table())
        alias = None
        if reader.accept("as"):
            alias = reader.next().name
        elif (token := reader.peek()) and token.is_name() and token.lower not in KNOWN_WORDS | OTHER_RESERVED:
            alias = reader.next().name
        if reader.accept("with"):
            reader.group()
        self.scope[(alias or table.name).lower()] = table
        return quoted(table.name) + (f" AS {quoted(alias)}" if alias else "")

    # --- columns -------------------------------------------------------------------------------------------------------------------

    def _item(self, tokens):
        if not tokens:
            raise SqlError(102, "Incorrect syntax near ','.", severity=15)
        texts = [t.text for t in tokens]
        if texts == ["*"]:
            if not self.scope:
                raise SqlError(263, "Must specify table to select from.")
            self.columns += [(c.name, c.type) for table in self.scope.values() for c in table.columns]
            return "*"
        if len(tokens) == 3 and texts[1:] == [".", "*"]:
            table = self.scope.get(tokens[0].name.lower())
            if table is None:
                raise SqlError(4104, f'The multi-part identifier "{tokens[0].name}.*" could not be bound.')
            self.columns += [(c.name, c.type) for c in table.columns]
            return f"{quoted(tokens[0].name)}.*"
        tokens, alias = self._alias(tokens)
        column = self._reference(tokens)
        own_name = tokens[-1].name if column else ""
        self.columns.append((alias or own_name, column.type if column else self._expression_type(tokens)))
        return self.render(tokens) + (f" AS {quoted(alias)}" if alias else "")

    @staticmethod
    def _alias(tokens):
        """An alias may stand bare, in brackets, in double quotes or in apostrophes, with AS or without."""
        if len(tokens) < 2:
            return tokens, None
        last, before = tokens[-1], tokens[-2]
        name = last.value if last.kind == "text" else last.name
        if before.is_word("as") and (last.kind == "text" or last.is_name()):
            return tokens[:-2], name
        ends = before.text == ")" or before.kind in ("number", "text", "quoted") or (
            before.kind == "word" and (before.lower not in KNOWN_WORDS or before.is_word("end", "null"))
        )
        if ends and (last.kind == "text" or (last.is_name() and last.lower not in KNOWN_WORDS)):
            return tokens[:-1], name
        return tokens, None

    def _reference(self, tokens):
        """The column that these tokens name, if they name one."""
        if len(tokens) == 1 and tokens[0].is_name():
            found = [c for table in self.scope.values() if (c := table.column(tokens[0].name))]
            return found[0] if found else None
        if len(tokens) == 3 and tokens[1].text == "." and tokens[0].is_name() and tokens[2].is_name():
            table = self.scope.get(tokens[0].name.lower())
            return table.column(tokens[2].name) if table else None
        return None

    def _expression_type(self, tokens):
        first = tokens[0]
        if len(tokens) == 1:
            if first.kind == "text":
                return Text(max(len(first.value), 1))
            if first.kind == "number":
                return Numeric(18, len(first.text.partition(".")[2])) if "." in first.text else FIXED_TYPES["int"]
            if first.is_word("@@identity"):
                return Numeric(38, 0)
            if first.is_word("@@trancount", "@@rowcount", "@@spid"):
                return FIXED_TYPES["int"]
            if first.is_word("@@version"):
                return Text(300, wide=True)
        if len(tokens) > 2 and tokens[1].text == "(" and tokens[-1].text == ")":
            inner = tokens[2:-1]
            if first.is_word("count"):
                return FIXED_TYPES["int"]
            if first.is_word("getdate"):
                return FIXED_TYPES["datetime"]
            if first.is_word("max", "min", "isnull", "upper", "lower", "rtrim", "ltrim"):
                column = self._reference(split(inner)[0])
                return column.type if column else None
            if first.is_word("sum", "avg"):
                column = self._reference(inner)
                if column and isinstance(column.type, Numeric):
                    return Numeric(38, column.type.scale)
                return column.type if column else None
            if first.is_word("convert"):
                return self._declared(split(inner)[0])
        return None

    @staticmethod
    def _declared(tokens):
        reader = Reader(tokens)
        name = reader.next().name
        arguments = [t.text for t in reader.group() if t.text != ","] if reader.peek() else []
        return type_of(name, arguments)

    # --- expressions ---------------------------------------------------------------------------------------------------------------

    def render(self, tokens):
        """An expression for the store; a text compared with a column is converted to the column's type first."""
        out, target, between, i = [], None, False, 0
        while i < len(tokens):
            token = tokens[i]
            following = tokens[i + 1] if i + 1 < len(tokens) else None
            if token.text == "(" and following is not None and following.is_word("select"):
                end = self._closing(tokens, i)
                out.append("(" + Query(self.session, tokens[i + 1 : end]).text + ")")
                i = end
            elif token.kind == "text":
                kind = target or self._compared_behind(tokens, i)
                comparable = token.value if kind is None or isinstance(kind, Text) else kind.assign(token.value, self.session)
                out.append(literal(comparable))
            elif token.text in COMPARISONS or token.is_word("in", "between"):
                column = self._left_of(tokens, i)
                target, between = (column.type if column else None), token.is_word("between")
                out.append(token.text)
            elif token.kind == "word" and following is not None and following.text == "(" and token.lower in FUNCTIONS:
                text, i = self._call(tokens, i)
                out.append(text)
            elif token.kind == "word":
                if token.is_word("and") and between:
                    between = False
                elif token.is_word("and", "or", "like", "not"):
                    target = None
                out.append(self._word(token, following))
            elif token.kind == "quoted":
                out.append(quoted(token.name))
            elif token.text == "!":
                raise syntax_error(token)
            else:
                out.append(token.text)
            i += 1
        return " ".join(out).replace(" . ", ".")

    def _word(self, token, following):
        word = token.lower
        if word.startswith("@"):
            return literal(self.session.variable(word))
        if word == "current_timestamp":
            return literal(self.session.now())
        if following is not None and following.text == "(" and word not in KNOWN_WORDS | {"object_id"}:
            raise SqlError(195, f"'{token.text}' is not a recognized built-in function name.", severity=15)
        if word in KNOWN_WORDS:
            return token.text
        if word in OTHER_RESERVED:
            raise syntax_error(token)
        return token.text if word == "object_id" else quoted(token.text)

    def _call(self, tokens, i):
        end = self._closing(tokens, i + 1)
        name, inner = tokens[i].lower, tokens[i + 2 : end]
        if name == "getdate":
            return literal(self.session.now()), end
        if name in ("db_name", "suser_sname", "serverproperty"):
            return literal(self.session.fact(name)), end
        if name == "convert":
            parts = split(inner)
            return f"tds_assign({self.session.type_number(self._declared(parts[0]))}, {self.render(parts[1])})", end
        if name == "cast":
            place = next((n for n, t in enumerate(inner) if t.is_word("as")), None)
            if place is None:
                raise syntax_error(tokens[end])
            kind = self.session.type_number(self._declared(inner[place + 1 :]))
            return f"tds_assign({kind}, {self.render(inner[:place])})", end
        arguments = "*" if [t.text for t in inner] == ["*"] else self.render(inner)
        return f"{RENAMED.get(name, name)}({arguments})", end

    @staticmethod
    def _closing(tokens, i):
        depth = 0
        for place in range(i, len(tokens)):
            depth += (tokens[place].text == "(") - (tokens[place].text == ")")
            if depth == 0:
                return place
        raise syntax_error(tokens[-1])

    def _left_of(self, tokens, i):
        if i >= 1 and tokens[i - 1].is_word("not"):
            i -= 1
        if i >= 3 and tokens[i - 2].text == ".":
            return self._reference(tokens[i - 3 : i])
        return self._reference(tokens[i - 1 : i]) if i >= 1 else None

    def _compared_behind(self, tokens, i):
        if i + 2 >= len(tokens) or tokens[i + 1].text not in COMPARISONS:
            return None
        width = 3 if i + 3 < len(tokens) and tokens[i + 3].text == "." else 1
        column = self._reference(tokens[i + 2 : i + 2 + width])
        return column.type if column else None


STORE_ERRORS = [
    (r"no such column: (?:.*\.)?(.+)", 207, "Invalid column name '{}'."),
    (r"table (\w+) has no column named (.+)", 207, "Invalid column name '{1}'."),
    (r"no such table: (.+)", 208, "Invalid object name '{}'."),
    (r"ambiguous column name: (?:.*\.)?(.+)", 209, "Ambiguous column name '{}'."),
    (r"near \"(.*)\": syntax error", 102, "Incorrect syntax near '{}'."),
    (r"no such function: (.+)", 195, "'{}' is not a recognized built-in function name."),
    (r"wrong number of arguments to function (\w+)\(\)", 174, "The {} function has a wrong number of arguments."),
    (r"table (.+) already exists", 2714, "There is already an object named '{}' in the database."),
    (r"index (.+) already exists", 1913, "The operation failed because an index with name '{}' already exists."),
    (r"database is locked.*", 1222, "Lock request time out period exceeded."),
]


def error_of_store(text):
    """The engine's own error for a failure of the store."""
    for pattern, number, words in STORE_ERRORS:
        if m := re.fullmatch(pattern, text):
            names = [name.strip("[]") for name in m.groups()]
            return SqlError(number, words.format(*names), severity=15 if number in (102, 195, 174) else 16)
    return SqlError(102, f"Incorrect syntax: {text}.", severity=15)
