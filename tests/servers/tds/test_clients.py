"""Clients of others against the test server: each logs in, asks and gets the same rows, so that the server is no invention of its own.

python3 test_clients.py NODE_MODULES"""

import json
import os
import subprocess
import sys
import unittest

from here import HERE
from server_process import ServerProcess

FILES = ["--ddl", os.path.join(HERE, "schema.sql"), "--load", os.path.join(HERE, "rows.sql")]
QUERY = "SELECT idPESS, NOME_PESS, LIMI_CRED, NUME_FILH FROM PESS ORDER BY idPESS"
NAMES = ["JOÃO DA SILVA", "joana", "ANDRÉ – 100€"]
MODULES = ""


def run(command, text="", **more):
    environment = dict(os.environ, LC_ALL="C.UTF-8", **more)
    done = subprocess.run(command, input=text, capture_output=True, text=True, timeout=30, env=environment)
    return done.stdout, done.stderr


def login(port, user="vorta"):
    return ["-U", user, "-P", "vorta", "-D", "VORTA", "-S", f"127.0.0.1:{port}"]


class Clients(unittest.TestCase):
    def setUp(self):
        self.server = ServerProcess(*FILES)
        self.addCleanup(self.server.__exit__)

    def tsql(self, text, port=None, version="7.4"):
        command = ["tsql", "-H", "127.0.0.1", "-p", str(port or self.server.port), "-U", "vorta", "-P", "vorta", "-D", "VORTA", "-o", "qh"]
        return run(command, text + "\ngo\nexit\n", TDSVER=version)

    def tedious(self, *statements, port=None):
        output, errors = run(["node", os.path.join(HERE, "query_tedious.js"), MODULES, str(port or self.server.port), *statements])
        self.assertEqual(errors, "")
        return [json.loads(line) for line in output.splitlines()]

    def test_tsql(self):
        output, _ = self.tsql(QUERY)
        rows = [line.split("\t") for line in output.splitlines() if "\t" in line]
        self.assertEqual([row[1].rstrip() for row in rows], NAMES)
        self.assertEqual([row[2] for row in rows], ["1234.50", "-0.05", "NULL"])

    def test_tsql_over_older_versions_of_the_protocol(self):
        for version in ("7.1", "7.2", "7.3"):
            with self.subTest(version):
                output, _ = self.tsql("SELECT NOME_PESS, DATA_INCL FROM PESS WHERE idPESS = 1", version=version)
                self.assertIn("JOÃO DA SILVA", output)
                self.assertIn("2026", output)

    def test_tsql_gets_errors(self):
        _, errors = self.tsql("SELECT * FROM NADA")
        self.assertIn("Msg 208 (severity 16, state 1)", errors)
        self.assertIn("Invalid object name 'NADA'.", errors)
        _, errors = self.tsql("INSERT INTO PESS (NOME_PESS) VALUES ('D'AVILA')")
        self.assertIn("Msg 102", errors)
        self.assertIn("Msg 105", errors)

    def test_fisql(self):
        output, _ = run(["fisql", *login(self.server.port)], QUERY + "\ngo\nexit\n")
        for name in NAMES:
            self.assertIn(name, output)
        self.assertIn("3 rows affected", output)

    def test_bsqldb(self):
        output, _ = run(["bsqldb", "-t", "|", *login(self.server.port)], QUERY + "\ngo\n")
        self.assertEqual([line.split("|")[1].rstrip() for line in output.splitlines() if "|" in line], NAMES)

    def test_tedious_reads_all_types(self):
        (answer,) = self.tedious("SELECT * FROM PESS ORDER BY idPESS")
        first, second, third = answer["rows"]
        self.assertEqual(
            first,
            [1, "JOÃO DA SILVA", "JOÃO", "A1", "2026-11-20T00:00:00.000Z", None, 1234.5, 3, "9007199254740993", "ação", 1],
        )
        self.assertEqual(second[:8], [2, "joana  ", "JÔ", "a2", "2026-01-31T00:00:00.000Z", "2026-11-19T00:00:00.000Z", -0.05, -7])
        self.assertEqual(third[2:], [None] * 9)
        self.assertEqual(answer["names"][:2], ["idPESS", "NOME_PESS"])

    def test_tedious_writes_and_gets_errors(self):
        answers = self.tedious(
            "INSERT INTO PESS (NOME_PESS) VALUES ('NOVA')",
            "SELECT @@IDENTITY AS 'MAXROWID'",
            "UPDATE PESS SET NOME_CONH = 'X' WHERE idPESS > 2",
            "INSERT INTO EMPR_CNFG (NOME_PARA) VALUES ('PESS_TELA_CLIENTE')",
            "UPDATE PESS SET NUME_FILH = 'X'",
            "DELETE FROM PESS WHERE idPESS = 4",
        )
        self.assertEqual([answers[0]["count"], answers[2]["count"], answers[5]["count"]], [1, 2, 1])
        self.assertEqual(answers[1]["rows"], [[4]])
        self.assertEqual([answers[3]["error"], answers[4]["error"]], [2627, 245])

    def test_all_clients_are_refused(self):
        with ServerProcess("--refuse-login") as refusing:
            _, errors = self.tsql("SELECT 1", port=refusing.port)
            self.assertIn("Msg 18456", errors)
            self.assertEqual(self.tedious("SELECT 1", port=refusing.port), [{"login": "Login failed for user 'vorta'."}])

    def test_a_connection_is_lost_where_asked(self):
        with ServerProcess(*FILES, "--drop-on", "UPDATE") as dropping:
            answers = self.tedious("SELECT COUNT(*) 'QT' FROM PESS", "UPDATE PESS SET NOME_CONH = 'X'", port=dropping.port)
            self.assertEqual(answers[0]["rows"], [[3]])
            self.assertIn(answers[1]["error"], ("ECONNRESET", "ESOCKET"))

    def test_a_connection_is_lost_behind_what_has_run_and_once(self):
        update, ask = "UPDATE PESS SET NOME_CONH = 'X' WHERE idPESS = 1", "SELECT NOME_CONH FROM PESS WHERE idPESS = 1"
        with ServerProcess(*FILES, "--drop-behind", "UPDATE", "--drop-once") as dropping:
            self.assertIn(self.tedious(update, port=dropping.port)[0]["error"], ("ECONNRESET", "ESOCKET"))
            answers = self.tedious(ask, update.replace("'X'", "'Y'"), ask, port=dropping.port)
            self.assertEqual([answers[0]["rows"], answers[2]["rows"]], [[["X"]], [["Y"]]])


class Parser(unittest.TestCase):
    """The witness for statements does refuse what is no T-SQL."""

    def parse(self, statement):
        path = os.path.join(MODULES, "..", "one_statement.sql")
        with open(path, "w", encoding="utf-8") as file:
            file.write(statement + "\n")
        return subprocess.run(["node", os.path.join(HERE, "parse_transactsql.js"), MODULES, path], capture_output=True, timeout=30).returncode

    def test_parser(self):
        self.assertEqual(self.parse("SELECT TOP 5 idPESS FROM PESS, VEND WHERE (NOT VEND.DATA_DESA IS NULL) ORDER BY idPESS DESC"), 0)
        self.assertEqual(self.parse("SELECT @@IDENTITY AS 'MAXROWID'"), 0)
        for wrong in (
            "SELECT FIRST 5 idPESS FROM PESS",
            "SELECT GEN_ID(GEN_PESS, 1) FROM RDB$GENERATORS WHERE RDB$GENERATOR_NAME = 'GEN_PESS'; ",
            "INSERT INTO PESS (NOME_PESS) VALUES ('D'AVILA')",
            "INSERT INTO CLIE (IDPESS DATA_INCL) VALUES ('1', '20260101')",
        ):
            self.assertEqual(self.parse(wrong), 1, wrong)


if __name__ == "__main__":
    MODULES = os.path.abspath(sys.argv.pop(1))
    unittest.main()
