#!/usr/bin/env python3
"""Tries under Wine what is shipped for Windows: test_shipped.py PROGRAMS INSTALLER HOST_PESSOAS_BASE INSTALLATION [UNITTEST_ARGUMENT...]

PROGRAMS is the unpacked zip, INSTALLATION one that the host has made. WINEPREFIX names the prefix, in whose drive the tests work."""

import os
import re
import shutil
import subprocess
import sys
import time
import unittest

SECONDS_OF_AN_END = 60
WINE = "/usr/lib/wine/wine64"
PROGRAMS, INSTALLER, HOST_PESSOAS_BASE, INSTALLATION = map(os.path.abspath, sys.argv[1:5]) if len(sys.argv) > 4 else sys.exit(__doc__)
DRIVE = os.path.join(os.environ["WINEPREFIX"], "drive_c")
LINES = {
    "server_aplic.ini": "c:\\vorta\\^^\r\n",
    "server.ini": "servidor^VORTA^u^s^MS-SQL^^False^\r\n" * 3,
    "server_cep.ini": "servidor^CEP^u^s^MS-SQL^^False^\r\n",
    "paths.ini": "^^c:\\vorta\\imagens\\^c:\\vorta\\imagens\\detalhe\\^.bmp^.bmp^c:\\vorta\\imagens\\semfoto.bmp^^^c:\\vorta\\paginas\\^^^\r\n",
}


def wine(*words, seconds=300, **environment):
    done = subprocess.run([WINE, *words], capture_output=True, timeout=seconds, env={**os.environ, **environment})
    return done.returncode, done.stdout.decode("utf-8"), done.stderr.decode("utf-8", "replace")


def pessoas_base(*words, **environment):
    return wine(os.path.join(PROGRAMS, "pessoas-base.exe"), *words, **environment)


def files_below(folder):
    return {os.path.relpath(os.path.join(place, name), folder) for place, _, names in os.walk(folder) for name in names}


class Programs(unittest.TestCase):
    def setUp(self):
        self.home = os.path.join(DRIVE, "vorta")
        shutil.rmtree(self.home, ignore_errors=True)
        shutil.copytree(INSTALLATION, self.home, ignore=shutil.ignore_patterns("base", "firebird"))
        for name, lines in LINES.items():
            with open(os.path.join(self.home, "config", name), "w", encoding="utf-8", newline="") as file:
                file.write(lines)

    def tearDown(self):
        shutil.rmtree(self.home)

    def test_definitions_are_those_of_the_host(self):
        for engine in ("sqlserver", "firebird"):
            told = subprocess.run([HOST_PESSOAS_BASE, "ddl", engine], capture_output=True, check=True, text=True).stdout
            status, said, _ = pessoas_base("ddl", engine)
            self.assertEqual((status, said.replace("\r\n", "\n")), (0, told))
            self.assertIn("CREATE TABLE", told)

    def test_an_installation_is_checked_whichever_way_its_slashes_lean(self):
        for home in ("c:\\vorta", "c:/vorta", "c:\\vorta\\", "C:/VORTA/"):
            status, said, complaints = pessoas_base("check", "--home", home)
            self.assertEqual(status, 0, said + complaints)
            self.assertIn("pasta de imagens: c:/vorta/imagens/", said)
            # Nobody looks at rights there, so nothing is said of them.
            self.assertNotIn("chmod", said)
            self.assertNotIn("dono", said)

    def test_what_is_wrong_is_told(self):
        os.remove(os.path.join(self.home, "imagens", "semvinculo.bmp"))
        status, said, _ = pessoas_base("check", "--home", "c:\\vorta")
        self.assertEqual(status, 1)
        self.assertRegex(said, r"FALTA\s.*c:/vorta/imagens/semvinculo\.bmp")

    def test_a_missing_library_of_the_engine_is_told_in_the_programs_words(self):
        status, _, complaints = pessoas_base("create", "--home", "c:\\nova")
        shutil.rmtree(os.path.join(DRIVE, "nova"), ignore_errors=True)
        self.assertEqual(status, 1)
        self.assertIn("A biblioteca do Firebird não foi encontrada ou não pôde ser carregada (fbclient.dll).", complaints)
        status, _, complaints = pessoas_base("create", "--home", "c:\\nova", VORTA_FBCLIENT="c:\\motor\\fbclient.dll")
        shutil.rmtree(os.path.join(DRIVE, "nova"), ignore_errors=True)
        self.assertEqual(status, 1)
        self.assertRegex(complaints, r"carregada \(c:[\\/]motor[\\/]fbclient\.dll\)")


class Installer(unittest.TestCase):
    def setUp(self):
        self.place = os.path.join(DRIVE, "Program Files", "Vorta Pessoas")
        self.entries = os.path.join(DRIVE, "ProgramData", "Microsoft", "Windows", "Start Menu", "Programs")
        self.installation = os.path.join(DRIVE, "vorta", "config")
        os.makedirs(self.installation)
        with open(os.path.join(self.installation, "server.ini"), "w", encoding="utf-8") as file:
            file.write("^")

    def tearDown(self):
        shutil.rmtree(os.path.dirname(self.installation))
        shutil.rmtree(self.place, ignore_errors=True)

    def key(self):
        return wine("reg", "query", "HKLM\\Software\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\vorta-pessoas")

    def install(self):
        status, _, complaints = wine(INSTALLER, "/S")
        self.assertEqual(status, 0, complaints)

    def uninstall(self):
        uninstaller = os.path.join(self.place, "desinstalar.exe")
        status, _, complaints = wine(uninstaller, "/S")
        self.assertEqual(status, 0, complaints)
        # It goes on as a copy of itself, and takes itself away nearly last.
        for _ in range(SECONDS_OF_AN_END):
            if not os.path.exists(uninstaller) and self.key()[0] != 0:
                return
            time.sleep(1)
        self.fail("the uninstaller has come to no end")

    def test_puts_the_programs_where_they_belong(self):
        self.install()
        self.assertEqual(files_below(self.place) - {"desinstalar.exe"}, files_below(PROGRAMS))
        self.assertIn("Cadastro de Pessoas.lnk", os.listdir(self.entries))
        status, told, _ = self.key()
        self.assertEqual(status, 0)
        self.assertRegex(told, r"DisplayName\s+REG_SZ\s+Cadastro de Pessoas\s")
        self.assertTrue(re.search(r'UninstallString\s+REG_SZ\s+"C:\\Program Files\\Vorta Pessoas\\desinstalar\.exe"', told), told)
        status, _, _ = wine(os.path.join(self.place, "pessoas-base.exe"), "ddl", "sqlserver")
        self.assertEqual(status, 0)
        self.uninstall()

    def test_takes_away_its_own_and_nothing_else(self):
        self.install()
        with open(os.path.join(self.place, "fbclient.dll"), "w", encoding="utf-8") as file:
            file.write("of somebody else")
        self.uninstall()
        self.assertEqual(files_below(self.place), {"fbclient.dll"})
        self.assertNotIn("Cadastro de Pessoas.lnk", os.listdir(self.entries))
        self.assertEqual(files_below(os.path.dirname(self.installation)), {os.path.join("config", "server.ini")})
        os.remove(os.path.join(self.place, "fbclient.dll"))
        os.rmdir(self.place)  # nothing but that file has kept the folder

    def test_takes_away_the_folder_too(self):
        self.install()
        self.uninstall()
        self.assertFalse(os.path.exists(self.place))


if __name__ == "__main__":
    unittest.main(argv=[sys.argv[0], *sys.argv[5:]])
