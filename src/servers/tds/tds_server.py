#!/usr/bin/env python3
"""A server of the tabular data stream on loopback, for the tests of the register's SQL Server side.

It speaks T-SQL as far as the register sends it and keeps its rows in SQLite files that die with it. It prints "PORT n" when it
listens and ends when its standard input closes, so that no test leaves one behind. See README.md for its options."""

import argparse
import json
import re
import select
import socket
import sys
import tempfile
import threading
import time

import tds_wire as wire
from tsql_base import Base, Session
from tsql_types import COLLATIONS, SqlError, use_collation

REQUESTS = {5: "TRANSACTION BEGIN", 7: "TRANSACTION COMMIT", 8: "TRANSACTION ROLLBACK"}
DATE_FORMATS = {"us_english": "mdy", "brazilian": "dmy"}


class Answer:
    """Writes the results of a batch as they come. A final DONE is held back until it is known whether anything follows."""

    def __init__(self, channel, version, session):
        self.channel, self.version, self.session = channel, version, session
        self.held, self.encoders = None, []

    def columns(self, columns):
        self._release()
        self.channel.send(wire.column_metadata(columns, self.version))
        self.encoders = [kind.encoder(self.version) for _, kind in columns]

    def row(self, values):
        self.channel.send(b"\xd1" + b"".join([encode(value) for encode, value in zip(self.encoders, values)]))

    def done(self, command, count):
        self._release()
        self.held = (wire.DONE_COUNT if count is not None else 0, command, count or 0)

    def error(self, error):
        self._release()
        line = getattr(error, "line", 1)
        while error:
            self.channel.send(
                wire.message(0xAA, error.number, error.state, error.severity, error.text, line, self.version)
            )
            error = error.also
        self.held = (wire.DONE_ERROR, 0xFD, 0)

    def change(self, data):
        self._release()
        self.channel.send(data)

    def finish(self):
        status, command, count = self.held or (0, 0, 0)
        if self.session.trancount:
            status |= wire.DONE_INXACT
        self.channel.send(wire.done(status, command, count, self.version), last=True)

    def _release(self):
        if self.held:
            status, command, count = self.held
            self.channel.send(wire.done(status | wire.DONE_MORE, command, count, self.version))
            self.held = None


class Connection(threading.Thread):
    def __init__(self, server, client):
        super().__init__(daemon=True)
        self.server, self.options, self.client = server, server.options, client
        self.channel, self.session, self.version, self.transactions = wire.Channel(client), None, 0x74, 0

    def run(self):
        try:
            if self._login():
                while True:
                    self._serve(*self.channel.receive())
        except (wire.Gone, OSError):
            pass
        finally:
            if self.session:
                self.session.close()
            self.client.close()

    # --- login ---------------------------------------------------------------------------------------------------------------------

    def _login(self):
        kind, data = self.channel.receive()
        if kind == wire.PRELOGIN:
            time.sleep(self.options.slow_login)
            self.channel.send(wire.prelogin_answer(), last=True)
            kind, data = self.channel.receive()
        if kind != wire.LOGIN7:
            raise wire.Gone
        login = wire.read_login(data)
        self.version = min(max(login.version, 0x71), 0x74)
        self.server.note(f"LOGIN {login.user} {login.database} {self.version:x}")
        refusal = self._refusal(login)
        if refusal:
            for number, state, severity, text in refusal:
                self.channel.send(wire.message(0xAA, number, state, severity, text, 1, self.version))
            self.channel.send(wire.done(wire.DONE_ERROR, 0, 0, self.version), last=True)
            return False
        base = self.server.bases[(login.database or self.options.database[0]).lower()]
        self.session = Session(base, DATE_FORMATS[self.options.language], login.user)
        if login.packet_size >= 512:
            self.channel.packet_size = min(login.packet_size, 32767)
        changed = f"Changed database context to '{base.name}'."
        self.channel.send(
            wire.database_change(base.name)
            + wire.message(0xAB, 5701, 2, 0, changed, 1, self.version)
            + wire.collation_change()
            + wire.language_change()
            + wire.login_ack(self.version)
            + wire.packet_size_change(self.channel.packet_size)
            + wire.done(0, 0, 0, self.version),
            last=True,
        )
        return True

    def _refusal(self, login):
        failed = (18456, 1, 14, f"Login failed for user '{login.user}'.")
        wrong = (login.user.lower(), login.password) != (self.options.user.lower(), self.options.password)
        if self.options.refuse_login or wrong:
            return [failed]
        if login.database and login.database.lower() not in self.server.bases:
            opened = f'Cannot open database "{login.database}" requested by the login. The login failed.'
            return [(4060, 1, 11, opened), failed]
        return None

    # --- requests ------------------------------------------------------------------------------------------------------------------

    def _serve(self, kind, data):
        if kind == wire.ATTENTION:
            self.channel.send(wire.done(wire.DONE_ATTENTION, 0, 0, self.version), last=True)
        elif kind == wire.SQL_BATCH:
            self._batch(wire.without_headers(data, self.version).decode("utf-16-le"))
        elif kind == wire.TRANSACTION:
            self._transaction(wire.without_headers(data, self.version))
        else:
            answer = Answer(self.channel, self.version, self.session)
            answer.error(SqlError(2812, "Could not find stored procedure: this server answers batches only.", state=62))
            answer.finish()

    def _batch(self, text):
        self.server.note(text)
        self.server.count(text, self)
        if self.options.slow and self._interrupted(self.options.slow):
            return
        answer = Answer(self.channel, self.version, self.session)
        open_before = self.session.trancount
        try:
            self.session.run(text, answer)
        except SqlError as error:
            self.server.note(f"-- refused {error.number}")
            answer.error(error)
        self.server.behind(text, self)
        self._tell_transaction(open_before, answer)
        answer.finish()

    def _interrupted(self, seconds):
        """Waits; a client that gives up meanwhile sends an attention and hears nothing else."""
        if not select.select([self.client], [], [], seconds)[0]:
            return False
        kind, _ = self.channel.receive()
        self.channel.send(wire.done(wire.DONE_ATTENTION if kind == wire.ATTENTION else 0, 0, 0, self.version), last=True)
        return True

    def _descriptor(self):
        return self.transactions.to_bytes(8, "little")

    def _tell_transaction(self, open_before, answer):
        """A transaction begun or ended by a text is told to clients that track it."""
        if self.version < 0x72 or bool(open_before) == bool(self.session.trancount):
            return
        if self.session.trancount:
            self.transactions += 1
            data = wire.transaction_change(8, self._descriptor(), b"")
        else:
            data = wire.transaction_change(9, b"", self._descriptor())
        held, answer.held = answer.held, None
        answer.change(data)
        answer.held = held

    def _transaction(self, data):
        request = int.from_bytes(data[:2], "little")
        answer = Answer(self.channel, self.version, self.session)
        name = REQUESTS.get(request, "TRANSACTION ?")
        self.server.note(name)
        self.server.count(name, self)
        try:
            if request == wire.BEGIN_TRANSACTION:
                self._begin(answer)
            elif request in (wire.COMMIT_TRANSACTION, wire.ROLLBACK_TRANSACTION):
                commits = request == wire.COMMIT_TRANSACTION
                self.session.commit() if commits else self.session.rollback()
                answer.change(wire.transaction_change(9 if commits else 10, b"", self._descriptor()))
                name_length = data[2]
                if len(data) > 3 + name_length and data[3 + name_length] & 1:
                    self._begin(answer)
            else:
                raise SqlError(3988, f"Transaction manager request {request} is not known here.")
        except SqlError as error:
            answer.error(error)
        self.server.behind(name, self)
        answer.finish()

    def _begin(self, answer):
        self.session.begin()
        self.transactions += 1
        answer.change(wire.transaction_change(8, self._descriptor(), b""))


class Server:
    def __init__(self, options, folder):
        self.options = options
        use_collation(options.collation)
        self.bases = {name.lower(): Base(name, folder) for name in options.database}
        self.trace = open(options.trace, "a", encoding="utf-8") if options.trace else None
        self.lock, self.statements, self.dropped = threading.Lock(), 0, False
        for name in options.ddl + options.load:
            self._load(name)
        self.listener = socket.create_server(("127.0.0.1", options.port))

    def _load(self, name):
        """A script with GO between its batches ("USE base" chooses the database), or rows as lines of JSON."""
        for base in self.bases.values():
            session = Session(base)
            with open(name, encoding="utf-8-sig") as file:
                if name.endswith(".jsonl"):
                    for line in file:
                        part = json.loads(line)
                        if part.get("database", base.name).lower() == base.name.lower():
                            session.load(part["table"], part["columns"], part["rows"], part.get("identity"))
                else:
                    self._script(session, file.read(), name)
            session.close()

    @staticmethod
    def _script(session, text, name):
        chosen = True
        for batch in re.split(r"^\s*GO\s*$", text, flags=re.M | re.I):
            use = re.match(r"\s*USE\s+\[?(\w+)\]?\s*;?\s*$", batch, re.I)
            if use:
                chosen = use[1].lower() == session.base.name.lower()
            elif chosen and batch.strip():
                try:
                    session.run(batch, Silence())
                except SqlError as error:
                    sys.exit(f"{name}: {error.number} {error.text} in: {batch.strip()[:200]}")

    def note(self, text):
        if self.trace:
            with self.lock:
                self.trace.write(text.replace("\n", " ") + "\n")
                self.trace.flush()

    def count(self, text, connection):
        """Drops the connection where the test wants it to be lost."""
        with self.lock:
            self.statements += 1
            reached = self.options.drop_after is not None and self.statements > self.options.drop_after
        if reached or (self.options.drop_on and re.search(self.options.drop_on, text)):
            self._drop(connection)

    def behind(self, text, connection):
        """Drops the connection in place of the answer to a request that has run."""
        if self.options.drop_behind and re.search(self.options.drop_behind, text):
            self._drop(connection)

    def _drop(self, connection):
        with self.lock:
            if self.options.drop_once and self.dropped:
                return
            self.dropped = True
        connection.client.shutdown(socket.SHUT_RDWR)
        raise wire.Gone

    def serve(self):
        print(f"PORT {self.listener.getsockname()[1]}", flush=True)
        while True:
            client, _ = self.listener.accept()
            client.setsockopt(socket.IPPROTO_TCP, socket.TCP_NODELAY, 1)
            Connection(self, client).start()


class Silence:
    """The answers of a script go nowhere."""

    def columns(self, _columns):
        pass

    def row(self, _values):
        pass

    def done(self, _command, _count):
        pass


def options_of(arguments):
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--port", type=int, default=0, help="0 takes a free one")
    parser.add_argument("--user", default="vorta")
    parser.add_argument("--password", default="vorta")
    parser.add_argument("--database", action="append", help="name of a database; may be given several times (default VORTA)")
    parser.add_argument("--ddl", action="append", default=[], metavar="FILE", help="table definitions, run in every database")
    parser.add_argument("--load", action="append", default=[], metavar="FILE", help="rows: a script, or .jsonl")
    parser.add_argument("--language", choices=sorted(DATE_FORMATS), default="us_english", help="of every login")
    parser.add_argument("--collation", choices=sorted(COLLATIONS), default="SQL_Latin1_General_CP1_CI_AS", help="of every text")
    parser.add_argument("--trace", metavar="FILE", help="every request as it came over the wire, a refusal behind it")
    parser.add_argument("--slow", type=float, default=0, metavar="SECONDS", help="before each answer to a batch")
    parser.add_argument("--slow-login", type=float, default=0, metavar="SECONDS", help="before the first answer")
    parser.add_argument("--refuse-login", action="store_true")
    parser.add_argument("--drop-after", type=int, metavar="N", help="drop the connection at the request behind the Nth")
    parser.add_argument("--drop-on", metavar="REGEX", help="drop the connection at a request that matches")
    parser.add_argument("--drop-behind", metavar="REGEX", help="drop it in place of the answer to a request that matches and has run")
    parser.add_argument("--drop-once", action="store_true", help="drop no second connection")
    parser.add_argument("--stay", action="store_true", help="do not end with standard input")
    options = parser.parse_args(arguments)
    options.database = options.database or ["VORTA"]
    return options


def main():
    options = options_of(sys.argv[1:])
    with tempfile.TemporaryDirectory(prefix="tds-") as folder:
        server = Server(options, folder)
        serving = threading.Thread(target=server.serve, daemon=True)
        serving.start()
        if options.stay:
            serving.join()
        else:
            sys.stdin.read()


if __name__ == "__main__":
    main()
