# SPDX-FileCopyrightText: 2026 The rvopen authors
# SPDX-License-Identifier: MIT
"""The page of rvopen sheet --html in a browser, from disk and from a web server: page_test.py PROGRAM

Without chromium nothing is tested, and the exit code is 77."""

import fcntl
import http.server
import json
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import threading
import time
import unittest

PROGRAM = None
BROWSER = os.environ.get("CHROMIUM") or shutil.which("chromium") or shutil.which("chromium-browser")
SKIPPED = 77
EVIL = "</script><img onerror=alert(1) src=x>"
ORANGE = "#ff8000"
MANY = 10000
SECONDS = 30


def escaped(text):
    return text.replace("&", "&amp;").replace("<", "&lt;").replace(">", "&gt;").replace('"', "&quot;")


def colour(name, refname, rgb, category):
    return (f'<colour name="{escaped(name)}" refname="{refname}" cat="{category}"><diffuse enabled="1">'
            '<shaderColour><plainColour subcat="RGB"><param name="Colour" type="colour" '
            f'val="{rgb}"/></plainColour></shaderColour></diffuse></colour>')


ARCHIVE = ('<presets name="Mine" type="UserArchives"><colours name="Colours">'
           + colour("Orange", "c.orange", "1 0.5 0", "Warm") + colour("Größe É", "c.size", "0 0 1", "Cold")
           + colour(EVIL, "c.evil", "0 1 0", "Cold") + "</colours><cameras name=\"Cameras\">"
           + '<camera name="Above" refname="c.above" cat="Views">'
           + '<param name="Field Of View" type="float" val="30"/></camera></cameras></presets>')


def large(count):
    """Cameras, which are drawn fastest."""
    return ('<presets name="Large" type="UserArchives"><cameras name="Cameras">'
            + "".join(f'<camera name="Camera {i}" refname="c.{i}"/>' for i in range(count))
            + "</cameras></presets>")


class Browser:
    """Chromium without a window, told what to do through a pair of pipes."""

    def __init__(self, folder):
        from_us, self._to = os.pipe()
        self._from, to_us = os.pipe()

        def connect():
            # The numbers that the browser reads and writes, neither of which may be in the way.
            reading, writing = (fcntl.fcntl(end, fcntl.F_DUPFD, 10) for end in (from_us, to_us))
            os.dup2(reading, 3)
            os.dup2(writing, 4)

        # pylint: disable-next=subprocess-popen-preexec-fn
        self._process = subprocess.Popen(
            [BROWSER, "--headless=new", "--no-sandbox", "--disable-gpu", "--disable-dev-shm-usage",
             "--no-first-run", f"--user-data-dir={folder}", "--remote-debugging-pipe",
             "--window-size=1200,800", "about:blank"],
            stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
            preexec_fn=connect, close_fds=False)
        os.close(from_us)
        os.close(to_us)
        self._rest = b""
        self._number = 0
        self.complaints = []
        self._session = None
        target = self.call("Target.createTarget", url="about:blank")["targetId"]
        self._session = self.call("Target.attachToTarget", targetId=target, flatten=True)["sessionId"]
        for domain in ("Page", "Runtime", "Log"):
            self.call(f"{domain}.enable")

    def close(self):
        self._process.terminate()
        self._process.wait()
        os.close(self._to)
        os.close(self._from)

    def _message(self):
        while b"\0" not in self._rest:
            part = os.read(self._from, 1 << 20)
            if not part:
                raise RuntimeError("the browser went away")
            self._rest += part
        text, _, self._rest = self._rest.partition(b"\0")
        return json.loads(text)

    def call(self, method, **parameters):
        self._number += 1
        message = {"id": self._number, "method": method, "params": parameters}
        if self._session:
            message["sessionId"] = self._session
        os.write(self._to, json.dumps(message).encode() + b"\0")
        while True:
            answer = self._message()
            if answer.get("id") == self._number:
                if "error" in answer:
                    raise RuntimeError(f"{method}: {answer['error']}")
                return answer["result"]
            if answer.get("method") == "Runtime.exceptionThrown":
                self.complaints.append(answer["params"]["exceptionDetails"])
            elif answer.get("method") == "Runtime.consoleAPICalled":
                self.complaints.append(answer["params"]["args"])
            elif answer.get("method") == "Log.entryAdded":
                self.complaints.append(answer["params"]["entry"])
            elif answer.get("method") == "Page.javascriptDialogOpening":
                self.complaints.append("a dialog")

    def value(self, expression):
        result = self.call("Runtime.evaluate", expression=expression, returnByValue=True,
                           awaitPromise=True)
        if "exceptionDetails" in result:
            raise RuntimeError(f"{expression}: {result['exceptionDetails']}")
        return result["result"].get("value")

    def wait_for(self, expression):
        end = time.monotonic() + SECONDS
        while time.monotonic() < end:
            try:
                if self.value(expression):
                    return
            except RuntimeError:
                # The page before is gone, and the next one is not there yet.
                pass
            time.sleep(0.02)
        raise AssertionError(f"it does not come: {expression}")

    def go(self, url):
        # Another hash alone would not load it again.
        self.call("Page.navigate", url="about:blank")
        self.wait_for("location.href === 'about:blank'")
        self.call("Page.navigate", url=url)
        self.wait_for("document.readyState === 'complete' && "
                      "document.getElementById('status').textContent !== ''")

    def key(self, name, text=None):
        event = {"key": name, "code": name}
        if text:
            event["text"] = text
        codes = {"Enter": 13, "Escape": 27, "End": 35, "Home": 36, "ArrowLeft": 37, "ArrowUp": 38,
                 "ArrowRight": 39, "ArrowDown": 40}
        event["windowsVirtualKeyCode"] = codes.get(name, 0)
        self.call("Input.dispatchKeyEvent", type="keyDown", **event)
        self.call("Input.dispatchKeyEvent", type="keyUp", **event)

    def type(self, text):
        self.call("Input.insertText", text=text)


NAMES = "[...document.querySelectorAll('.tile .name')].map(n => n.textContent)"
FOCUSED = "document.activeElement.textContent"


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.scratch = tempfile.TemporaryDirectory()
        cls.folder = pathlib.Path(cls.scratch.name).resolve()
        (cls.folder / "mine.rvx").write_text(ARCHIVE, encoding="utf-8")
        subprocess.run([PROGRAM, "sheet", "mine.rvx", "--html", "page", "--size", "64"],
                       cwd=cls.folder, check=True)
        cls.server = http.server.ThreadingHTTPServer(("127.0.0.1", 0), Quiet(cls.folder / "page"))
        threading.Thread(target=cls.server.serve_forever, daemon=True).start()
        cls.browser = Browser(cls.folder / "profile")

    @classmethod
    def tearDownClass(cls):
        cls.browser.close()
        cls.server.shutdown()
        cls.server.server_close()
        cls.scratch.cleanup()

    def tearDown(self):
        self.assertEqual(self.browser.complaints, [])

    def disk(self):
        return (self.folder / "page" / "index.html").as_uri()

    def urls(self):
        return self.disk(), f"http://127.0.0.1:{self.server.server_address[1]}/"

    def each(self, fragment=""):
        for url in self.urls():
            self.browser.go(url + fragment)
            yield self.browser

    def test_shows_all_with_pictures(self):
        for browser in self.each():
            self.assertEqual(browser.value(NAMES), ["Orange", "Größe É", EVIL, "Above"])
            browser.wait_for("[...document.querySelectorAll('.tile img')].length === 4 && "
                             "[...document.querySelectorAll('.tile img')]"
                             ".every(image => image.complete && image.naturalWidth === 64)")
            self.assertEqual(browser.value("document.title"), "Mine")

    def test_texts_are_no_markup(self):
        for browser in self.each("#ref=c.evil"):
            browser.wait_for("document.querySelectorAll('#values tr').length > 0")
            self.assertEqual(browser.value("document.getElementById('details-name').textContent"), EVIL)
            self.assertEqual(browser.value("document.querySelectorAll('[onerror]').length"), 0)

    def test_search_folds_accents_and_case(self):
        for browser in self.each():
            browser.key("/", "/")
            self.assertEqual(browser.value("document.activeElement.id"), "search")
            browser.type("GROSSE e")
            browser.wait_for(f"{NAMES}.length === 1")
            self.assertEqual(browser.value(NAMES), ["Größe É"])
            self.assertEqual(browser.value("document.getElementById('search').value"), "GROSSE e")
            self.assertEqual(browser.value("document.getElementById('status').textContent"),
                             "1 of 4 presets")

    def choose(self, name, value):
        self.browser.value(f"{{ const it = document.getElementById('{name}'); it.value = '{value}';"
                           " it.dispatchEvent(new Event('input', {bubbles: true})); }")

    def test_filters_by_kind_and_category(self):
        self.browser.go(self.disk())
        self.choose("kind", "colour")
        self.browser.wait_for(f"{NAMES}.length === 3")
        self.choose("category", "Cold")
        self.browser.wait_for(f"{NAMES}.length === 2")
        self.assertEqual(self.browser.value(NAMES), ["Größe É", EVIL])
        self.browser.value("document.getElementById('reset').click()")
        self.browser.wait_for(f"{NAMES}.length === 4")

    def test_filters_by_colour(self):
        self.browser.go(self.disk())
        self.choose("colour", ORANGE)
        self.browser.wait_for(f"{NAMES}.length === 1")
        self.assertEqual(self.browser.value(NAMES), ["Orange"])
        self.choose("within", "100")
        self.browser.wait_for(f"{NAMES}.length === 3")
        self.assertEqual(self.browser.value(NAMES)[0], "Orange")

    def test_measures_colours_as_published(self):
        self.browser.go(self.disk())
        for first, second, distance in (("[50,2.6772,-79.7751]", "[50,0,-82.7485]", 2.0425),
                                        ("[50,2.49,-0.001]", "[50,-2.49,0.0009]", 7.1792),
                                        ("[2.0776,0.0795,-1.135]", "[0.9033,-0.0636,-0.5514]", 0.9082)):
            self.assertAlmostEqual(
                self.browser.value(f"rvopenParts.colourDistance({first}, {second})"), distance, 4)

    def test_details_have_values_with_units(self):
        for browser in self.each("#ref=c.above"):
            browser.wait_for("document.querySelectorAll('#values tr').length > 0")
            text = browser.value("document.getElementById('details').innerText")
            for part in ("Above", "camera", "Views", "c.above", "mine.rvx",
                         "cameras[Cameras]/camera[Above]", "30 degrees"):
                self.assertIn(part, text)

    def test_keyboard(self):
        browser = self.browser
        browser.go(self.disk())
        browser.value("document.querySelector('.tile').focus()")
        browser.key("ArrowRight")
        self.assertEqual(browser.value(FOCUSED), "Größe É")
        browser.key("ArrowDown")
        self.assertEqual(browser.value(FOCUSED), "Above")
        browser.key("ArrowUp")
        browser.key("Home")
        self.assertEqual(browser.value(FOCUSED), "Orange")
        browser.key("ArrowLeft")
        self.assertEqual(browser.value(FOCUSED), "Orange")
        browser.key("Enter", "\r")
        browser.wait_for("!document.getElementById('details').hidden")
        self.assertEqual(browser.value("location.hash"), "#ref=c.orange")
        self.assertEqual(browser.value("document.activeElement.id"), "close")
        browser.key("Escape")
        self.assertTrue(browser.value("document.getElementById('details').hidden"))
        self.assertEqual(browser.value(FOCUSED), "Orange")

    def test_one_picture_is_in_the_order_of_the_tab_key(self):
        self.browser.go(self.disk())
        self.assertEqual(
            self.browser.value("document.querySelectorAll('.tile[tabindex=\"0\"]').length"), 1)

    def test_fits_into_narrow_screens(self):
        browser = self.browser
        for width in (320, 1200):
            browser.call("Emulation.setDeviceMetricsOverride", width=width, height=700,
                         deviceScaleFactor=1, mobile=False)
            browser.go(self.disk())
            self.assertLessEqual(browser.value("document.documentElement.scrollWidth"), width)
        browser.call("Emulation.clearDeviceMetricsOverride")

    def test_is_dark_where_that_is_wanted(self):
        grounds = []
        for scheme in ("light", "dark"):
            self.browser.call("Emulation.setEmulatedMedia",
                              features=[{"name": "prefers-color-scheme", "value": scheme}])
            self.browser.go(self.disk())
            grounds.append(self.browser.value("getComputedStyle(document.body).backgroundColor"))
        self.browser.call("Emulation.setEmulatedMedia", features=[])
        self.assertEqual(grounds, ["rgb(250, 250, 250)", "rgb(22, 24, 27)"])

    def test_thousands_come_in_parts(self):
        (self.folder / "large.rvx").write_text(large(MANY), encoding="utf-8")
        subprocess.run([PROGRAM, "sheet", "large.rvx", "--html", "large", "--size", "16"],
                       cwd=self.folder, check=True)
        browser = self.browser
        browser.go((self.folder / "large" / "index.html").as_uri())
        self.assertLess(browser.value("document.querySelectorAll('.tile').length"), MANY // 10)
        begin = browser.value("performance.now()")
        browser.value("document.getElementById('search').focus()")
        browser.type(f"{MANY - 1}")
        browser.wait_for(f"{NAMES}.length === 1")
        self.assertEqual(browser.value(NAMES), [f"Camera {MANY - 1}"])
        self.assertLess(browser.value("performance.now()") - begin, 2000)


class Quiet:
    """Makes what answers requests for files of a folder without a word of each."""

    def __init__(self, folder):
        self._folder = folder

    def __call__(self, *arguments):
        class Handler(http.server.SimpleHTTPRequestHandler):
            def log_message(self, *_):
                pass

        return Handler(*arguments, directory=str(self._folder))


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    if not BROWSER:
        print("skipped: there is no chromium, which scripts/setup --ci installs")
        sys.exit(SKIPPED)
    PROGRAM = str(pathlib.Path(sys.argv.pop(1)).resolve())
    unittest.main()
