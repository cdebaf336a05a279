"""Runs a program with a test server of its own, whose connection string it finds in VORTA_TEST_SQLSERVER:
run_with_server.py [SERVER OPTION...] -- PROGRAM [ARGUMENT...]"""

import os
import subprocess
import sys

from server_process import ServerProcess


def main():
    divider = sys.argv.index("--")
    with ServerProcess(*sys.argv[1:divider]) as server:
        text = f"driver={{SQL Server}};server=127.0.0.1,{server.port};uid=vorta;pwd=vorta;database=VORTA"
        return subprocess.run(sys.argv[divider + 1 :], env=dict(os.environ, VORTA_TEST_SQLSERVER=text)).returncode


if __name__ == "__main__":
    sys.exit(main())
