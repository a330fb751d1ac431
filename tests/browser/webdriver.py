"""A browser without a window, told what to do by the WebDriver protocol through chromedriver on the loopback address."""

import base64
import contextlib
import http.client
import json
import os
import pathlib
import re
import shutil
import signal
import subprocess
import tempfile
import time

DRIVER, BROWSER = "/usr/bin/chromedriver", "/usr/bin/chromium"
FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
         "--disable-component-update", "--disable-sync", "--window-size=900,700"]
ELEMENT = "element-6066-11e4-a52e-4f735466cecf"  # the protocol's name for the id of an element
ENTER = "\ue007"
PATIENCE = 20  # seconds that a condition may take on a busy machine


class CannotStart(Exception):
    """The machine has no browser that starts."""


class Refused(Exception):
    """The browser answered a command with an error."""


class Browser(contextlib.AbstractContextManager):
    """A new browser with an empty profile; at its end both processes and the profile are gone."""

    def __init__(self):
        if not (os.access(DRIVER, os.X_OK) and os.access(BROWSER, os.X_OK)):
            raise CannotStart(f"{DRIVER} or {BROWSER} is missing")
        self.profile = tempfile.mkdtemp(prefix="quillmark-browser.")
        self.driver = subprocess.Popen([DRIVER, "--port=0"], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True,
                                       env={**os.environ, "HOME": self.profile}, start_new_session=True)
        try:
            self.connection = http.client.HTTPConnection("127.0.0.1", self.port(), timeout=60)
            self.session = "/session"
            options = {"binary": BROWSER, "args": [*FLAGS, f"--user-data-dir={self.profile}/profile"]}
            wanted = {"browserName": "chrome", "goog:chromeOptions": options, "goog:loggingPrefs": {"browser": "ALL"}}
            started = self.ask("POST", "", capabilities={"alwaysMatch": wanted})
            self.session += "/" + started["sessionId"]
        except (Refused, OSError, http.client.HTTPException) as error:
            self.__exit__()
            raise CannotStart(str(error)) from error

    def __exit__(self, *_):
        with contextlib.suppress(Refused, OSError, http.client.HTTPException, AttributeError):
            self.ask("DELETE", "")
        with contextlib.suppress(ProcessLookupError):
            os.killpg(self.driver.pid, signal.SIGKILL)
        self.driver.wait()
        self.driver.stdout.close()
        shutil.rmtree(self.profile, ignore_errors=True)

    def port(self):
        for line in self.driver.stdout:
            if found := re.search(r"started successfully on port (\d+)", line):
                return int(found.group(1))
        raise OSError(f"{DRIVER} ends at once")

    def ask(self, method, command, **content):
        body = json.dumps(content) if method == "POST" else None
        self.connection.request(method, self.session + command, body, {"Content-Type": "application/json"})
        answer = json.loads(self.connection.getresponse().read())["value"]
        if isinstance(answer, dict) and "error" in answer:
            raise Refused(f"{command}: {answer['message']}")
        return answer

    def open(self, address):
        self.ask("POST", "/url", url=address)

    def run(self, script):
        """What a piece of script in the page gives: a view of the page that no user has."""
        return self.ask("POST", "/execute/sync", script=script, args=[])

    def find(self, selector):
        return self.ask("POST", "/element", using="css selector", value=selector)[ELEMENT]

    def click(self, selector):
        self.ask("POST", f"/element/{self.find(selector)}/click")

    def type(self, text):
        """Presses and releases a key for each character, in whatever has the focus."""
        keys = [{"type": kind, "value": key} for key in text for kind in ("keyDown", "keyUp")]
        self.ask("POST", "/actions", actions=[{"type": "key", "id": "keyboard", "actions": keys}])

    def clear(self, selector):
        self.ask("POST", f"/element/{self.find(selector)}/clear")

    def text_in_frame(self, selector):
        """What is read in a frame, whatever page is in it."""
        self.ask("POST", "/frame", id={ELEMENT: self.find(selector)})
        try:
            return self.run("return document.body.innerText")
        finally:
            self.ask("POST", "/frame/parent")

    def complaints(self):
        """The errors of the page's scripts since the last call; what they log is left out."""
        return [entry["message"] for entry in self.ask("POST", "/se/log", type="browser") if entry["level"] == "SEVERE"]

    def picture(self, path):
        pathlib.Path(path).write_bytes(base64.b64decode(self.ask("GET", "/screenshot")))


def wait_for(condition):
    """The first value of the condition that counts as true, the last one when there is none in time; a page that is just
    changing has none."""
    end = time.monotonic() + PATIENCE
    value = None
    while not value and time.monotonic() < end:
        with contextlib.suppress(Refused):
            value = condition()
        time.sleep(0.01)
    return value
