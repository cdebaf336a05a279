"""Scenarios on a database that somebody gives to the player: it makes its tables there, leaves none behind, and touches a
database that has one of them not at all. The given database stands on the test server here.

test_given_server.py PLAYER INSTALLATION SCENARIOS_FOLDER"""

import os
import re
import signal
import subprocess
import sys
import tempfile
import time
import unittest

from here import HERE
from server_process import ServerProcess
from test_clients import run

PLAYED = ("^(launch/(title|history_environment|started_again)|person/(inclusion|inclusion_of_everything|alteration|branches)|"
          "roles/(customer|supplier)|search/postal_code_into_the_block)$")
FAILING = """sql "INSERT INTO PESS (IDPESS, NOME_PESS) VALUES (7, 'FICA')"
launch "1^1^PRD^False^"
expect query "SELECT NOME_PESS FROM PESS WHERE IDPESS = 7" "OUTRO"
"""


class GivenServer(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.wire, self.failing = (os.path.join(folder.name, name) for name in ("wire", "falha.roteiro"))
        with open(self.failing, "w", encoding="utf-8") as file:
            file.write(FAILING)
        self.server = ServerProcess("--trace", self.wire, "--collation", "Latin1_General_CI_AI")
        self.addCleanup(self.server.__exit__)
        self.given = f"server=127.0.0.1,{self.server.port};uid=vorta;pwd=vorta;database=VORTA"

    @staticmethod
    def command(server):
        return [PLAYER, "--engine", "sqlserver", "--home", HOME, "--server", server]

    def play(self, file, server=None):
        return subprocess.run([*self.command(server or self.given), file], capture_output=True, text=True, timeout=300)

    def named(self, words):
        """The tables that statements of a kind have named, in their order."""
        with open(self.wire, encoding="utf-8") as file:
            return re.findall(rf"^{words} (\w+)", file.read(), re.M)

    def assertNothingStays(self):
        made, removed = self.named("CREATE TABLE"), self.named("DROP TABLE")
        self.assertGreater(len(made), 40)
        self.assertEqual(sorted(made), sorted(removed))

    def tsql(self, text):
        command = ["tsql", "-H", "127.0.0.1", "-p", str(self.server.port), "-U", "vorta", "-P", "vorta", "-D", "VORTA", "-o", "qh"]
        return run(command, text + "\ngo\nexit\n")[0]

    def test_scenarios_leave_no_table(self):
        command = [sys.executable, os.path.join(HERE, "play_scenarios.py"), PLAYER, HOME, FOLDER, "--only", PLAYED, "--least", "10"]
        played = subprocess.run([*command, "--server", self.given], capture_output=True, text=True, timeout=300)
        self.assertEqual(played.returncode, 0, played.stdout + played.stderr)
        self.assertIn("10 passed, 0 failed", played.stdout)
        self.assertNothingStays()

    def test_a_failed_scenario_leaves_no_table(self):
        played = self.play(self.failing)
        self.assertEqual(played.returncode, 1, played.stderr)
        self.assertIn(':3: expected rows "OUTRO", was "FICA"', played.stdout)
        self.assertNothingStays()

    def test_a_run_that_is_told_to_end_leaves_no_table(self):
        with subprocess.Popen([*self.command(self.given), *[self.failing] * 50], stdout=subprocess.PIPE, text=True) as player:
            self.assertIn(self.failing, player.stdout.readline())
            time.sleep(0.5)  # into the next scenario
            player.send_signal(signal.SIGTERM)
            lines = player.stdout.read().splitlines()
        self.assertEqual(player.returncode, 1)
        self.assertLess(len(lines), 50)
        self.assertNothingStays()

    def test_a_database_with_a_table_of_somebody_else_is_not_touched(self):
        self.tsql("create table LOGR (nome varchar(10))\ngo\ninsert into LOGR (nome) values ('MINHA')")
        played = self.play(self.failing)
        self.assertEqual((played.returncode, played.stdout), (2, ""))
        self.assertIn("has a table LOGR already", played.stderr)
        self.assertEqual(self.named("(?:CREATE|DROP) TABLE"), [])
        self.assertIn("MINHA", self.tsql("select nome from LOGR"))

    def test_a_server_that_cannot_be_used_plays_nothing(self):
        for server in ("server=127.0.0.1,1;uid=vorta;pwd=vorta;database=VORTA", "server=x;uid=a;pwd=b", self.given + "x"):
            with self.subTest(server):
                played = self.play(self.failing, server=server)
                self.assertEqual((played.returncode, played.stdout), (2, ""))
                self.assertTrue(played.stderr.startswith("pessoas-roteiro: "), played.stderr)


if __name__ == "__main__":
    FOLDER, HOME, PLAYER = (os.path.abspath(sys.argv.pop()) for _ in range(3))
    unittest.main()
