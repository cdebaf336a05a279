"""The databases behind the server, and the session of one connection: T-SQL batches run on an SQLite file."""

import datetime
import os
import re
import sqlite3
import threading

from tsql import KNOWN_WORDS, OTHER_RESERVED, Reader, split, statements_of, syntax_error, tokens_of
from tsql_translate import Column, Query, Table, error_of_store, quoted
from tsql_types import SqlError, collate, like, type_of, type_of_value

NO_WAIT_LIMIT_MS = 60_000
VERSION = "Microsoft SQL Server test stand-in"
DONE_COMMANDS = {"select": 0xC1, "insert": 0xC3, "delete": 0xC4, "update": 0xC5}


class Base:
    """One database: a file, and the declared types that the file itself does not know."""

    def __init__(self, name, folder):
        self.name, self.path = name, os.path.join(folder, re.sub(r"\W", "_", name) + ".sqlite")
        self.tables, self.identities, self.lock = {}, {}, threading.Lock()

    def table(self, name):
        table = self.tables.get(name.lower())
        if table is None:
            raise SqlError(208, f"Invalid object name '{name}'.")
        return table

    def next_identity(self, table):
        """The next key of a table; as on the real server a rollback gives none back."""
        with self.lock:
            self.identities[table.name] = self.identities.get(table.name, 0) + 1
            return self.identities[table.name]

    def reseed(self, table, value):
        """A table that never had a row takes the number itself as its next key, any other the one behind it."""
        with self.lock:
            self.identities[table.name] = value if table.name in self.identities else value - 1

    def identity_given(self, table, value):
        with self.lock:
            self.identities[table.name] = max(self.identities.get(table.name, 0), value)

    def connect(self):
        connection = sqlite3.connect(self.path, isolation_level=None, check_same_thread=False)
        connection.execute("PRAGMA journal_mode=WAL")
        connection.execute("PRAGMA synchronous=OFF")
        return connection


class Session:
    """One connection's state: transaction, last identity, settings."""

    def __init__(self, base, date_format="mdy", user="sa"):
        self.base, self.date_format, self.user = base, date_format, user
        self.trancount, self.implicit, self.identity, self.rowcount = 0, False, None, 0
        self.identity_insert, self.failure, self.types = None, None, []
        self.store = base.connect()
        self.store.create_collation("CP1_CI_AS", collate)
        for name, arguments, function in (
            ("like", 2, like),
            ("tds_assign", 2, self._assign),
            ("tds_len", 1, lambda v: None if v is None else len(str(v).rstrip(" "))),
            ("tds_left", 2, lambda v, n: None if v is None else str(v)[:n]),
            ("tds_right", 2, lambda v, n: None if v is None else str(v)[-n:] if n else ""),
            ("object_id", 1, lambda v: 1 if str(v).split(".")[-1].strip("[]").lower() in base.tables else None),
            ("object_id", 2, lambda v, _: 1 if str(v).split(".")[-1].strip("[]").lower() in base.tables else None),
        ):
            self.store.create_function(name, arguments, function)
        self._set_lock_timeout(-1)

    def close(self):
        self.store.close()

    # --- what translations ask -----------------------------------------------------------------------------------------------------

    def type_number(self, kind):
        self.types.append(kind)
        return len(self.types) - 1

    def _assign(self, number, value):
        try:
            return None if value is None else self.types[number].assign(value, self)
        except SqlError as failure:
            self.failure = failure
            raise

    def variable(self, word):
        values = {
            "@@identity": self.identity, "@@trancount": self.trancount, "@@rowcount": self.rowcount, "@@version": VERSION,
            "@@spid": 51, "@@max_precision": 38, "@@microsoftversion": 0x0B000000,
        }  # fmt: skip
        if word not in values:
            raise SqlError(137, f'Must declare the scalar variable "{word}".', severity=15, state=2)
        return values[word]

    def fact(self, name):
        return {"db_name": self.base.name, "suser_sname": self.user}.get(name)

    @staticmethod
    def now():
        return datetime.datetime.now().replace(microsecond=0).isoformat(" ")

    # --- batches -------------------------------------------------------------------------------------------------------------------

    def run(self, batch, answer):
        """Runs a batch; `answer` hears columns(list), row(tuple), done(command, count or None). Raises SqlError at the first error."""
        statements = statements_of(tokens_of(batch))
        if not statements:
            answer.done(0, None)
        for statement in statements:
            self.types, self.failure = [], None
            try:
                self._statement(statement, answer)
            except SqlError as error:
                error.line = statement[0].line
                raise
            except sqlite3.Error as error:
                told = self.failure or self._store_error(error)
                told.line = statement[0].line
                raise told from error

    def _store_error(self, error):
        if isinstance(error, sqlite3.IntegrityError) and (m := re.search(r"failed: (\w+)\.(\w+)", str(error))):
            column = self.base.table(m[1]).column(m[2])
            if column.primary or column.identity:
                return SqlError(
                    2627,
                    f"Violation of PRIMARY KEY constraint 'PK_{m[1]}'. Cannot insert duplicate key in object 'dbo.{m[1]}'.",
                    severity=14,
                )
            return SqlError(2601, f"Cannot insert duplicate key row in object 'dbo.{m[1]}' with unique index.", severity=14)
        return error_of_store(str(error))

    def _statement(self, tokens, answer):
        first = tokens[0]
        run = getattr(self, "_run_" + first.lower, None) if first.kind == "word" else None
        if run is None:
            if first.is_name() and first.lower not in KNOWN_WORDS | OTHER_RESERVED and len(tokens) == 1:
                raise SqlError(2812, f"Could not find stored procedure '{first.name}'.", state=62)
            raise syntax_error(first)
        run(tokens, answer)

    # --- reading -------------------------------------------------------------------------------------------------------------------

    def _run_select(self, tokens, answer):
        query = Query(self, tokens)
        rows = self.store.execute(query.text)
        first = rows.fetchone()
        kinds = [
            (name, kind or (type_of_value(first[n]) if first and first[n] is not None else type_of("varchar", ["8000"])))
            for n, (name, kind) in enumerate(query.columns)
        ]
        answer.columns(kinds)
        count = 0
        while first is not None:
            answer.row(first)
            count += 1
            first = rows.fetchone()
        self.rowcount = count
        answer.done(DONE_COMMANDS["select"], count)

    # --- writing -------------------------------------------------------------------------------------------------------------------

    def _write(self, text, values=()):
        """A write of its own, or a part of the open transaction, which takes the store's lock with its first write only."""
        if self.implicit and not self.trancount:
            self.trancount = 1
        if self.trancount and not self.store.in_transaction:
            self.store.execute("BEGIN IMMEDIATE")
        return self.store.execute(text, values)

    def _wrote(self, command, count, answer):
        self.rowcount = count
        answer.done(DONE_COMMANDS[command], count)

    def _value(self, query, tokens, column, verb, table):
        """The text and the bound values of an expression assigned to a column."""
        single = tokens[0] if len(tokens) == 1 else None
        if not tokens:
            raise SqlError(102, "Incorrect syntax near ','.", severity=15)
        if single and single.is_word("null"):
            if not column.nullable:
                raise SqlError(
                    515,
                    f"Cannot insert the value NULL into column '{column.name}', table '{self.base.name}.dbo.{table.name}'; "
                    f"column does not allow nulls. {verb} fails.",
                    state=2,
                )
            return "NULL", []
        if single and single.kind in ("text", "number"):
            value = single.value if single.kind == "text" else single.text
            if single.kind == "number" and "." not in value:
                value = int(value)
            return "?", [column.type.assign(value, self)]
        return f"tds_assign({self.type_number(column.type)}, {query.render(tokens)})", []

    def _columns(self, table, names):
        found = []
        for name in names:
            column = table.column(name)
            if column is None:
                raise SqlError(207, f"Invalid column name '{name}'.")
            if column in found:
                raise SqlError(264, f"The column name '{name}' is specified more than once in the SET clause or column list.")
            found.append(column)
        return found

    def _run_insert(self, tokens, answer):
        reader = Reader(tokens)
        reader.next()
        reader.accept("into")
        table = self.base.table(reader.table())
        if reader.peek() and reader.peek().text == "(":
            columns = self._columns(table, [part[0].name for part in split(reader.group()) if part])
        else:
            columns = [c for c in table.columns if not c.identity]
        self._check_identity(table, columns)
        self._check_required(table, columns)
        if reader.peek() and reader.peek().is_word("select"):
            query = Query(self, reader.rest())
            if len(query.columns) != len(columns):
                raise SqlError(120, "The select list for the INSERT statement contains another number of items than the insert list.",
                               severity=15)  # fmt: skip
            rows = [([], ["?"] * len(columns), [None if v is None else c.type.assign(v, self) for c, v in zip(columns, row)])
                    for row in self.store.execute(query.text).fetchall()]  # fmt: skip
        else:
            rows = self._value_rows(reader, table, columns)
        own_key = table.identity is not None and table.identity not in columns
        names = ", ".join(quoted(c.name) for c in columns + ([table.identity] if own_key else []))
        for _, texts, values in rows:
            key = self.base.next_identity(table) if own_key else None
            marks = ", ".join(texts + (["?"] if own_key else []))
            self._write(f"INSERT INTO {quoted(table.name)} ({names}) VALUES ({marks})", values + ([key] if own_key else []))
            if table.identity and not own_key:
                key = values[texts[: columns.index(table.identity)].count("?")]
                self.base.identity_given(table, key)
            self.identity = key
        self._wrote("insert", len(rows), answer)

    def _value_rows(self, reader, table, columns):
        reader.expect("values")
        query, rows = Query.__new__(Query), []
        query.session, query.scope = self, {}
        while True:
            parts = split(reader.group())
            if len(parts) < len(columns):
                raise SqlError(109, "There are more columns in the INSERT statement than values specified in the VALUES clause. The number "
                               "of values in the VALUES clause must match the number of columns specified in the INSERT statement.",
                               severity=15)  # fmt: skip
            if len(parts) > len(columns):
                raise SqlError(110, "There are fewer columns in the INSERT statement than values specified in the VALUES clause. The number "
                               "of values in the VALUES clause must match the number of columns specified in the INSERT statement.",
                               severity=15)  # fmt: skip
            texts, values = [], []
            for part, column in zip(parts, columns):
                text, bound = self._value(query, part, column, "INSERT", table)
                texts.append(text)
                values += bound
            rows.append((None, texts, values))
            if not reader.accept(","):
                break
        if reader.peek():
            raise syntax_error(reader.peek())
        return rows

    def _check_identity(self, table, columns):
        if not table.identity:
            return
        given, allowed = table.identity in columns, self.identity_insert == table.name.lower()
        if given and not allowed:
            raise SqlError(
                544, f"Cannot insert explicit value for identity column in table '{table.name}' when IDENTITY_INSERT is set to OFF."
            )
        if allowed and not given:
            raise SqlError(545, f"Explicit value must be specified for identity column in table '{table.name}' when "
                           "IDENTITY_INSERT is set to ON.")  # fmt: skip

    def _check_required(self, table, columns):
        for column in table.columns:
            if not column.nullable and not column.identity and column not in columns:
                raise SqlError(
                    515,
                    f"Cannot insert the value NULL into column '{column.name}', table '{self.base.name}.dbo.{table.name}'; "
                    "column does not allow nulls. INSERT fails.",
                    state=2,
                )

    def _condition(self, reader, table):
        """The rest of an UPDATE or DELETE: nothing, or WHERE."""
        query = Query.__new__(Query)
        query.session, query.scope = self, {table.name.lower(): table}
        if reader.peek() is None:
            return ""
        reader.expect("where")
        rest = reader.rest()
        if not rest:
            raise syntax_error(None)
        return " WHERE " + query.render(rest)

    def _run_update(self, tokens, answer):
        reader = Reader(tokens)
        reader.next()
        table = self.base.table(reader.table())
        reader.expect("set")
        start, depth = reader.at, 0
        while (token := reader.peek()) and not (depth == 0 and token.is_word("where")):
            depth += (token.text == "(") - (token.text == ")")
            reader.at += 1
        query = Query.__new__(Query)
        query.session, query.scope = self, {table.name.lower(): table}
        settings, values = [], []
        for part in split(reader.tokens[start : reader.at]):
            if len(part) < 3 or part[1].text != "=":
                raise syntax_error(part[0] if part else reader.peek())
            (column,) = self._columns(table, [part[0].name])
            if column.identity:
                raise SqlError(8102, f"Cannot update identity column '{column.name}'.")
            text, bound = self._value(query, part[2:], column, "UPDATE", table)
            settings.append(f"{quoted(column.name)} = {text}")
            values += bound
        where = self._condition(reader, table)
        cursor = self._write(f"UPDATE {quoted(table.name)} SET {', '.join(settings)}{where}", values)
        self._wrote("update", cursor.rowcount, answer)

    def _run_delete(self, tokens, answer):
        reader = Reader(tokens)
        reader.next()
        reader.accept("from")
        table = self.base.table(reader.table())
        cursor = self._write(f"DELETE FROM {quoted(table.name)}{self._condition(reader, table)}")
        self._wrote("delete", cursor.rowcount, answer)

    # --- definitions ---------------------------------------------------------------------------------------------------------------

    def _run_create(self, tokens, answer):
        reader = Reader(tokens)
        reader.next()
        if reader.accept("table"):
            self._create_table(reader)
        else:
            unique = reader.accept("unique")
            reader.accept("clustered", "nonclustered")
            reader.expect("index")
            name = reader.next().name
            reader.expect("on")
            table = self.base.table(reader.table())
            columns = [part[0].name for part in split(reader.group())]
            self._columns(table, columns)
            self._write(
                f"CREATE {'UNIQUE ' if unique else ''}INDEX [{table.name}_{name}] ON {quoted(table.name)} "
                f"({', '.join(map(quoted, columns))})"
            )
        answer.done(0, None)

    def _create_table(self, reader):
        table = Table(reader.table())
        if table.name.lower() in self.base.tables:
            raise SqlError(2714, f"There is already an object named '{table.name}' in the database.", state=6)
        primary = []
        for part in split(reader.group()):
            words = Reader(part)
            if words.accept("constraint"):
                words.next()
            if words.accept("primary"):
                words.expect("key")
                words.accept("clustered", "nonclustered")
                primary = [column[0].name.lower() for column in split(words.group())]
                continue
            table.columns.append(self._column(words))
        for column in table.columns:
            if column.name.lower() in primary:
                column.primary, column.nullable = True, False
        keys = [c for c in table.columns if c.primary]
        lines = []
        for column in table.columns:
            lines.append(f"{quoted(column.name)} {column.type.sqlite}")
        if keys:
            lines.append(f"PRIMARY KEY ({', '.join(quoted(c.name) for c in keys)})")
        self._write(f"CREATE TABLE {quoted(table.name)} ({', '.join(lines)})")
        self.base.tables[table.name.lower()] = table

    @staticmethod
    def _column(words):
        name, kind = words.next().name, words.next().name
        arguments = [t.text for t in words.group() if t.text != ","] if words.peek() and words.peek().text == "(" else []
        column = Column(name, type_of(kind, arguments))
        while token := words.peek():
            words.next()
            if token.is_word("identity"):
                column.identity, column.nullable = True, False
                if words.peek() and words.peek().text == "(":
                    words.group()
            elif token.is_word("not"):
                words.expect("null")
                column.nullable = False
            elif token.is_word("primary"):
                words.expect("key")
                column.primary, column.nullable = True, False
            elif token.is_word("collate", "constraint"):
                words.next()
            elif not token.is_word("null", "clustered", "nonclustered"):
                raise syntax_error(token)
        return column

    def _run_drop(self, tokens, answer):
        reader = Reader(tokens)
        reader.next()
        reader.expect("table")
        table = self.base.table(reader.table())
        self._write(f"DROP TABLE {quoted(table.name)}")
        del self.base.tables[table.name.lower()]
        self.base.identities.pop(table.name, None)
        answer.done(0, None)

    def _run_dbcc(self, tokens, answer):
        reader = Reader(tokens)
        reader.next()
        reader.expect("checkident")
        name, mode, number = split(reader.group())
        table = self.base.table(name[0].value if name[0].kind == "text" else name[0].name)
        if len(mode) != 1 or not mode[0].is_word("reseed") or len(number) != 1 or number[0].kind != "number":
            raise syntax_error(mode[0])
        if table.identity is None:
            raise SqlError(7997, f"'{table.name}' does not contain an identity column.")
        self.base.reseed(table, int(number[0].text))
        answer.done(0, None)

    # --- settings and transactions -------------------------------------------------------------------------------------------------

    def _set_lock_timeout(self, milliseconds):
        self.store.execute(f"PRAGMA busy_timeout={NO_WAIT_LIMIT_MS if milliseconds < 0 else milliseconds}")

    def _run_set(self, tokens, answer):
        words = [t.text.lower() for t in tokens[1:]]
        name, value = words[0] if words else "", "".join(words[1:])
        if name == "lock_timeout":
            self._set_lock_timeout(int(value))
        elif name == "dateformat":
            self.date_format = value
        elif name == "implicit_transactions":
            self.implicit = value == "on"
        elif name == "identity_insert":
            table = self.base.table(tokens[-2].name)
            self.identity_insert = table.name.lower() if words[-1] == "on" else None
        answer.done(0, None)

    def begin(self):
        self.trancount += 1

    def commit(self):
        if not self.trancount:
            raise SqlError(3902, "The COMMIT TRANSACTION request has no corresponding BEGIN TRANSACTION.")
        self.trancount -= 1
        if not self.trancount and self.store.in_transaction:
            self.store.execute("COMMIT")

    def rollback(self):
        if not self.trancount:
            raise SqlError(3903, "The ROLLBACK TRANSACTION request has no corresponding BEGIN TRANSACTION.")
        self.trancount = 0
        if self.store.in_transaction:
            self.store.execute("ROLLBACK")

    def _run_begin(self, tokens, answer):
        if len(tokens) < 2 or not tokens[1].is_word("tran", "transaction"):
            raise syntax_error(tokens[-1])
        self.begin()
        answer.done(0, None)

    def _run_commit(self, _tokens, answer):
        self.commit()
        answer.done(0, None)

    def _run_rollback(self, _tokens, answer):
        self.rollback()
        answer.done(0, None)

    def _run_if(self, tokens, answer):
        place = next((n for n, t in enumerate(tokens) if n and t.is_word("commit", "rollback", "select", "insert", "update", "delete",
                                                                         "drop", "create", "begin", "set", "exec")), None)  # fmt: skip
        if place is None:
            raise syntax_error(tokens[-1])
        query = Query.__new__(Query)
        query.session, query.scope = self, {}
        if self.store.execute("SELECT " + query.render(tokens[1:place])).fetchone()[0]:
            self._statement(tokens[place:], answer)
        else:
            answer.done(0, None)

    def _run_use(self, tokens, answer):
        if tokens[-1].name.lower() != self.base.name.lower():
            raise SqlError(911, f"Database '{tokens[-1].name}' does not exist. Make sure that the name is entered correctly.")
        answer.done(0, None)

    def _run_print(self, _tokens, answer):
        answer.done(0, None)

    def _run_exec(self, tokens, answer):
        name = tokens[1].name.lower() if len(tokens) > 1 else ""
        if name.startswith("sp_datatype_info"):
            # The one catalogue question that ODBC drivers ask on their own: how precise a moment is.
            texts = ["type_name", "data_type", "precision", "literal_prefix", "literal_suffix", "create_params", "nullable",
                     "case_sensitive", "searchable", "unsigned_attribute", "money", "auto_increment", "local_type_name",
                     "minimum_scale", "maximum_scale", "sql_data_type", "sql_datetime_sub", "num_prec_radix",
                     "interval_precision", "usertype"]  # fmt: skip
            values = ["datetime", 93, 23, "'", "'", None, 1, 0, 3, None, 0, None, "datetime", 3, 3, 9, 3, None, None, 12]
            answer.columns([(n, type_of("varchar", ["128"]) if isinstance(v, str) else type_of("int", [])) for n, v in zip(texts, values)])
            answer.row(tuple(values))
            answer.done(DONE_COMMANDS["select"], 1)
        else:
            raise SqlError(2812, f"Could not find stored procedure '{name}'.", state=62)

    _run_execute = _run_exec

    # --- fast load -----------------------------------------------------------------------------------------------------------------

    def load(self, table_name, names, rows, identity=None):
        """Rows with their keys, past the parser; each value is assigned by its column's type. `identity` is the last key given."""
        table = self.base.table(table_name)
        columns = self._columns(table, names)
        marks = ", ".join("?" * len(columns))
        text = f"INSERT INTO {quoted(table.name)} ({', '.join(quoted(c.name) for c in columns)}) VALUES ({marks})"
        converted = ([None if v is None else c.type.assign(v, self) for c, v in zip(columns, row)] for row in rows)
        self.store.execute("BEGIN IMMEDIATE")
        self.store.executemany(text, converted)
        self.store.execute("COMMIT")
        if table.identity:
            highest = self.store.execute(f"SELECT MAX({quoted(table.identity.name)}) FROM {quoted(table.name)}").fetchone()[0]
            self.base.identities[table.name] = (highest or 0) if identity is None else identity
