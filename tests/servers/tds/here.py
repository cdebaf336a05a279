"""Where this folder is; behind its import the modules of the server in src/servers/tds can be imported too."""

import os
import sys

HERE = os.path.dirname(os.path.abspath(__file__))
sys.path.insert(0, os.path.join(HERE, *[os.pardir] * 3, "src", "servers", "tds"))
