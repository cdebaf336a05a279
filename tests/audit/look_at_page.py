#!/usr/bin/env python3
"""Opens the page of an audit in a real browser, with hostile names in it, and looks at what the browser made of it.

usage: look_at_page.py AUDIT_TEST [BROWSER]     ends with 77, a skip, where no browser is
"""

import html.parser
import os
import pathlib
import subprocess
import sys
import tempfile


class Page(html.parser.HTMLParser):
    """The tree that the browser has built, as far as the checks ask for it."""

    def __init__(self):
        super().__init__()
        self.tags, self.ids, self.handlers, self.title, self.text = [], [], [], "", ""
        self.inside = []

    def handle_starttag(self, tag, attributes):
        self.tags.append(tag)
        self.ids += [value for name, value in attributes if name == "id"]
        self.handlers += [name for name, _ in attributes if name.startswith("on")]
        if tag not in ("meta", "br", "img"):
            self.inside.append(tag)

    def handle_endtag(self, tag):
        while self.inside and self.inside.pop() != tag:
            pass

    def handle_data(self, data):
        if "title" in self.inside:
            self.title += data
        elif "style" not in self.inside:
            self.text += data


def main():
    program, browser = sys.argv[1], sys.argv[2] if len(sys.argv) > 2 else ""
    if not browser or not os.path.exists(browser):
        print("SKIPPED: there is no browser on this machine (apt-get install chromium)")
        sys.exit(77)
    with tempfile.TemporaryDirectory() as folder:
        page = pathlib.Path(folder, "achados.html")
        subprocess.run([program, "--gtest_filter=Report.APageShowsTextsAsTheyAreAndFetchesNothing", "--gtest_brief=1"],
                       env={**os.environ, "VORTA_TEST_PAGE": str(page)}, check=True)
        seen = subprocess.run(
            [browser, "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
             f"--user-data-dir={folder}/profile", f"--log-net-log={folder}/net.json", "--enable-logging=stderr",
             "--virtual-time-budget=2000", "--dump-dom", page.as_uri()],
            capture_output=True, text=True, timeout=100, check=True)
        screen = pathlib.Path(folder, "achados.png")
        subprocess.run([browser, "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
                        f"--user-data-dir={folder}/profile", f"--screenshot={screen}", "--window-size=1200,900",
                        page.as_uri()], capture_output=True, timeout=100, check=True)
        painted = screen.stat().st_size
        asked = pathlib.Path(folder, "net.json").read_text(encoding="utf-8", errors="replace")
    dom = Page()
    dom.feed(seen.stdout)
    faults = []
    if dom.title != "Conferência <PRD>":
        faults.append(f"the title is {dom.title!r}")
    for tag in ("script", "img", "iframe", "object"):
        if tag in dom.tags:
            faults.append(f"a {tag} has come to life")
    if dom.handlers or "intruso" in dom.ids:
        faults.append(f"a name has become a part of the page: {dom.handlers} {dom.ids}")
    for name in ("<script>document.title='tomada'</script>", "INTRUSO</h1>", "onmouseover=", "<img src=",
                 "&lt;b&gt; %1 %2 AÇÚCAR & CIA"):
        if name not in dom.text:
            faults.append(f"the page does not show {name!r}")
    if dom.tags.count("details") != 1 or dom.tags.count("table") != 2:
        faults.append(f"the page has {dom.tags.count('details')} parts and {dom.tags.count('table')} tables")
    if "exemplo.invalid" in asked:
        faults.append("the browser has asked another machine for something")
    if "Refused to" in seen.stderr:
        faults.append("the page's own policy has refused something: " + seen.stderr)
    if painted < 10_000:
        faults.append(f"the painted page has {painted} bytes")
    print("\n".join(faults) if faults else f"the browser shows the page, {painted} bytes painted")
    sys.exit(1 if faults else 0)


main()
