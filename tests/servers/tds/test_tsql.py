"""The ways of T-SQL that the register relies on, in the test server: each is what the engine's own documentation tells."""

import os
import tempfile
import unittest

from here import HERE
from tsql_base import Base, Session
from tsql_types import SqlError, use_collation


class Collected:
    def __init__(self):
        self.names, self.rows, self.counts = [], [], []

    def columns(self, columns):
        self.names = [name for name, _ in columns]

    def row(self, values):
        self.rows.append(tuple(values))

    def done(self, _command, count):
        self.counts.append(count)


class TransactSql(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.base = Base("VORTA", folder.name)
        self.session = self.connect()
        for name in ("schema.sql", "rows.sql"):
            with open(os.path.join(HERE, name), encoding="utf-8") as file:
                for batch in file.read().split("\nGO\n"):
                    self.session.run(batch, Collected())
        self.session.identity = None

    def connect(self, date_format="mdy"):
        session = Session(self.base, date_format)
        self.addCleanup(session.close)
        return session

    def rows(self, text, session=None):
        answer = Collected()
        (session or self.session).run(text, answer)
        return answer.rows

    def keys(self, condition):
        return [row[0] for row in self.rows(f"SELECT idPESS FROM PESS WHERE {condition} ORDER BY idPESS")]

    def assertRefused(self, number, text, session=None):
        with self.assertRaises(SqlError) as caught:
            self.rows(text, session)
        self.assertEqual(caught.exception.number, number, caught.exception.text)

    def test_comparison_is_blind_to_case_and_trailing_blanks_but_not_to_accents(self):
        self.assertEqual(self.keys("NOME_PESS = 'joão da silva   '"), [1])
        self.assertEqual(self.keys("NOME_PESS = 'JOAO DA SILVA'"), [])
        self.assertEqual(self.keys("NOME_PESS = 'JOANA'"), [2])
        self.assertEqual(self.keys("NOME_PESS <> 'JOANA'"), [1, 3])

    def test_order_puts_accented_letters_beside_their_base(self):
        self.assertEqual([r[0] for r in self.rows("SELECT idPESS FROM PESS ORDER BY NOME_PESS")], [3, 2, 1])

    def test_like(self):
        self.assertEqual(self.keys("NOME_PESS LIKE 'jo%'"), [1, 2])
        self.assertEqual(self.keys("NOME_PESS LIKE '%JOAO%'"), [])
        self.assertEqual(self.keys("NOME_PESS LIKE '_O%SILVA'"), [1])
        self.assertEqual(self.keys("NOME_PESS LIKE 'joana'"), [2])
        self.assertEqual(self.keys("NOME_PESS LIKE '[A-C]%'"), [3])
        self.assertEqual(self.keys("idPESS LIKE '%2%'"), [2])

    def test_the_other_collation_is_blind_to_accents_too(self):
        use_collation("Latin1_General_CI_AI")
        self.addCleanup(use_collation, "SQL_Latin1_General_CP1_CI_AS")
        self.assertEqual(self.keys("NOME_PESS = 'JOAO DA SILVA'"), [1])
        self.assertEqual(self.keys("NOME_PESS LIKE '%JOAO%'"), [1])
        self.assertEqual(self.keys("NOME_CONH LIKE 'jo'"), [2])

    def test_identity_belongs_to_its_connection(self):
        other = self.connect()
        self.rows("INSERT INTO PESS (NOME_PESS) VALUES ('X')")
        self.assertEqual(self.rows("SELECT @@IDENTITY AS 'MAXROWID'"), [(4,)])
        self.assertEqual(self.rows("SELECT @@IDENTITY AS 'MAXROWID'", other), [(None,)])
        self.rows("INSERT INTO EMPR_CNFG (NOME_PARA) VALUES ('Y')")
        self.assertEqual(self.rows("SELECT @@IDENTITY AS 'MAXROWID'"), [(None,)])

    def test_identity_begins_anew_where_it_is_told(self):
        self.rows("CREATE TABLE NOVA (idNOVA integer identity(1,1) not null, NOME varchar(10))")
        insert, keys = "INSERT INTO NOVA (NOME) VALUES ('A')", "SELECT idNOVA FROM NOVA ORDER BY idNOVA"
        self.rows("DBCC CHECKIDENT ('NOVA', RESEED, 7)")
        self.rows(insert)
        self.assertEqual(self.rows(keys), [(7,)], "no row was there before")
        self.rows("DBCC CHECKIDENT (NOVA, RESEED, 20)")
        self.rows(insert)
        self.assertEqual(self.rows(keys), [(7,), (21,)])
        self.rows("DELETE FROM NOVA")
        self.rows("DBCC CHECKIDENT ('NOVA', RESEED, 3)")
        self.rows(insert)
        self.assertEqual(self.rows(keys), [(4,)], "a row was there once")
        self.assertRefused(208, "DBCC CHECKIDENT ('NADA', RESEED, 3)")

    def test_identity_takes_no_value_of_its_own(self):
        self.assertRefused(544, "INSERT INTO PESS (idPESS, NOME_PESS) VALUES (9, 'X')")

    def test_keys_go_on_behind_the_highest_and_a_rollback_gives_none_back(self):
        self.session.begin()
        self.rows("INSERT INTO PESS (NOME_PESS) VALUES ('X')")
        self.session.rollback()
        self.rows("INSERT INTO PESS (NOME_PESS) VALUES ('Y'), ('Z')")
        self.assertEqual(self.keys("idPESS > 3"), [5, 6])
        self.assertEqual(self.rows("SELECT @@IDENTITY"), [(6,)])

    def test_aliases(self):
        answer = Collected()
        self.session.run("SELECT COUNT(*) 'QT', MAX(idPESS) AS maior, NOME_PESS [nome] FROM PESS GROUP BY NOME_PESS", answer)
        self.assertEqual(answer.names, ["QT", "maior", "nome"])

    def test_top(self):
        self.assertEqual(self.rows("SELECT TOP 2 idPESS FROM PESS ORDER BY idPESS DESC"), [(3,), (2,)])
        self.assertRefused(102, "SELECT TOP X idPESS FROM PESS")

    def test_dates(self):
        self.assertEqual(self.rows("SELECT DATA_INCL, DATA_DESA FROM PESS WHERE idPESS = 2"), [("2026-01-31", "2026-11-19 00:00:00")])
        self.assertEqual(self.keys("DATA_INCL = '20261120'"), [1])
        self.assertEqual(self.keys("DATA_INCL < '2026/11/20'"), [2])
        self.assertRefused(241, "UPDATE PESS SET DATA_INCL = '20260231'")
        self.assertRefused(242, "UPDATE PESS SET DATA_DESA = '20260231'")
        self.assertRefused(241, "UPDATE PESS SET DATA_INCL = 'ONTEM'")

    def test_dates_with_slashes_follow_the_language_of_the_login(self):
        brazilian = self.connect("dmy")
        self.assertRefused(242, "UPDATE PESS SET DATA_DESA = '2026/11/20'", brazilian)
        self.rows("SET DATEFORMAT ymd UPDATE PESS SET DATA_DESA = '2026/11/20' WHERE idPESS = 3", brazilian)
        self.assertEqual(self.rows("SELECT DATA_DESA FROM PESS WHERE idPESS = 3"), [("2026-11-20 00:00:00",)])

    def test_empty_text_into_numbers_and_dates(self):
        self.rows("UPDATE PESS SET NUME_FILH = '', idVEND = '', DATA_INCL = '' WHERE idPESS = 3")
        self.assertEqual(self.rows("SELECT NUME_FILH, idVEND, DATA_INCL FROM PESS WHERE idPESS = 3"), [(0, 0, "1900-01-01")])
        self.assertRefused(8114, "UPDATE PESS SET LIMI_CRED = ''")

    def test_texts_into_numbers(self):
        self.rows("UPDATE PESS SET LIMI_CRED = '10.555', NUME_FILH = ' 12 ' WHERE idPESS = 3")
        self.assertEqual(self.rows("SELECT LIMI_CRED, NUME_FILH FROM PESS WHERE idPESS = 3"), [(10.56, 12)])
        self.assertRefused(8114, "UPDATE PESS SET LIMI_CRED = '10,50'")
        self.assertRefused(245, "UPDATE PESS SET NUME_FILH = 'X'")
        self.assertRefused(244, "UPDATE PESS SET NUME_FILH = '40000'")
        self.assertRefused(245, "SELECT * FROM PESS WHERE idPESS = 'X'")
        self.assertEqual(self.keys("idPESS = '2'"), [2])
        self.assertEqual(self.keys("idPESS IN ('1', '3')"), [1, 3])

    def test_texts_too_long(self):
        self.assertRefused(8152, "UPDATE PESS SET PESS_CODI_EXTE = '123456789012345678901'")
        self.rows("UPDATE PESS SET PESS_CODI_EXTE = '12345678901234567890     ' WHERE idPESS = 3")
        self.assertEqual(self.keys(f"PESS_CODI_EXTE = '{'1' * 10_000}'"), [])

    def test_refusals_by_name(self):
        self.assertRefused(207, "SELECT NADA FROM PESS")
        self.assertRefused(208, "SELECT * FROM NADA")
        self.assertRefused(209, "SELECT idVEND FROM VEND, PESS WHERE PESS.idPESS = VEND.idPESS")
        self.assertRefused(195, "SELECT GEN_ID(GEN_PESS, 1) FROM PESS")
        self.assertRefused(102, "SELECT FIRST 5 idPESS FROM PESS")
        self.assertRefused(102, "INSERT INTO PESS (NOME_PESS) VALUES ('D'AVILA')")
        self.assertRefused(105, "SELECT * FROM PESS WHERE NOME_PESS = 'X")
        self.assertRefused(156, "SELECT * FROM PESS WHERE USER = 1")
        self.assertRefused(110, "INSERT INTO PESS (NOME_PESS) VALUES ('A', 'B')")
        self.assertRefused(515, "INSERT INTO EMPR_CNFG (VALO_PARA) VALUES ('A')")
        self.assertRefused(2627, "INSERT INTO EMPR_CNFG (NOME_PARA) VALUES ('pess_tela_cliente')")

    def test_transactions(self):
        other = self.connect()
        self.session.begin()
        self.rows("UPDATE PESS SET NOME_CONH = 'NOVO' WHERE idPESS = 3")
        self.assertEqual(self.rows("SELECT NOME_CONH FROM PESS WHERE idPESS = 3", other), [(None,)])
        self.rows("SET LOCK_TIMEOUT 50", other)
        self.assertRefused(1222, "UPDATE PESS SET NOME_CONH = 'OUTRO'", other)
        self.session.rollback()
        self.assertEqual(self.rows("SELECT NOME_CONH FROM PESS WHERE idPESS = 3"), [(None,)])
        self.rows("SET IMPLICIT_TRANSACTIONS ON UPDATE PESS SET NOME_CONH = 'NOVO' WHERE idPESS = 3 COMMIT TRAN")
        self.assertEqual(self.rows("SELECT NOME_CONH FROM PESS WHERE idPESS = 3", other), [("NOVO",)])
        self.rows("IF @@TRANCOUNT > 0 COMMIT BEGIN TRANSACTION")
        self.assertEqual(self.session.trancount, 1)

    def test_joins_and_subqueries(self):
        text = "SELECT PESS.idPESS FROM PESS INNER JOIN VEND ON VEND.idPESS = PESS.idPESS WHERE VEND.DATA_DESA IS NULL"
        self.assertEqual(self.rows(text), [(1,)])
        self.assertEqual(self.keys("idPESS IN (SELECT idPESS FROM VEND)"), [1])
        self.assertEqual(self.keys("NOT EXISTS (SELECT * FROM VEND V WHERE V.idPESS = PESS.idPESS)"), [2, 3])


if __name__ == "__main__":
    unittest.main()
