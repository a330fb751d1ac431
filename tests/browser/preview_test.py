#!/usr/bin/env python3
"""preview_test.py DRIVER PICTURES: opens preview pages in Chromium and tries commands in their field.

DRIVER is preview_driver. A picture of each page lands in the folder PICTURES. Ends with 77 where no browser starts.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

from selenium import webdriver
from selenium.common.exceptions import WebDriverException
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys
from selenium.webdriver.support.wait import WebDriverWait

DRIVER, PICTURES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
CHROMIUM, CHROMEDRIVER = "/usr/bin/chromium", "/usr/bin/chromedriver"
FLAGS = ["--headless", "--no-sandbox", "--disable-gpu", "--disable-quic", "--no-first-run", "--disable-background-networking",
         "--disable-component-update", "--disable-sync", "--window-size=900,700"]
PATIENCE = 20  # seconds that a condition may take on a busy machine
WELCOME = pathlib.Path(__file__).resolve().parents[2] / "examples/welcome.js"
TITLE = "Quillmark Generated JavaScript Preview"
FIELD, BUTTON, FRAME = "input[name=Command]", "input[name=Exec]", "iframe[name=ScriptExec]"


def start_browser(home):
    """A browser without a window and with an empty profile."""
    options = webdriver.ChromeOptions()
    options.binary_location = CHROMIUM
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    for flag in [*FLAGS, f"--user-data-dir={home}/profile"]:
        options.add_argument(flag)
    return webdriver.Chrome(service=Service(CHROMEDRIVER, env={**os.environ, "HOME": home}), options=options)


class PreviewPage(unittest.TestCase):
    browser = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quillmark-preview.")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name, "a b %41 #1 ?x 'ä日")
        self.folder.mkdir()

    def tearDown(self):
        self.browser.save_screenshot(str(PICTURES / f"{self.id().rpartition('test_')[2]}.png"))

    def preview(self, script):
        """Opens the page of a script in the browser and gives what it complains of."""
        path = self.folder / "script.js"
        path.write_bytes(script.encode())
        address = subprocess.run([DRIVER, path, self.folder], capture_output=True, text=True, check=True, timeout=30).stdout
        self.assertRegex(address, r"^file:///\S+\n$")
        self.browser.get(address.strip())
        return " ".join(self.complaints())

    def complaints(self):
        """The errors of the page's scripts since the last call; what they log is left out."""
        return [entry["message"] for entry in self.browser.get_log("browser") if entry["level"] == "SEVERE"]

    def result(self):
        """What is read in the frame, whatever page is in it."""
        self.browser.switch_to.frame(self.browser.find_element(By.CSS_SELECTOR, FRAME))
        try:
            return self.browser.execute_script("return document.body.innerText")
        finally:
            self.browser.switch_to.parent_frame()

    def wait_for(self, condition, what):
        """A page that is just changing has no value, and is asked again."""
        wait = WebDriverWait(self.browser, PATIENCE, 0.01, [WebDriverException])
        return wait.until(lambda _: condition(), f"waited in vain for {what}")

    def execute(self, command, by_button=False):
        field = self.browser.find_element(By.CSS_SELECTOR, FIELD)
        field.clear()
        field.click()
        ActionChains(self.browser).send_keys(command if by_button else command + Keys.ENTER).perform()
        if by_button:
            self.browser.find_element(By.CSS_SELECTOR, BUTTON).click()

    def assert_result(self, expected):
        self.wait_for(lambda: self.result() == expected, f"the result {expected}")
        self.assertEqual(self.complaints(), [])

    def assert_complaint(self, expected):
        self.assertRegex(" ".join(self.wait_for(self.complaints, f"the complaint {expected}")), expected)
        self.assertEqual(self.result(), "")

    def test_functions_of_the_welcome_script_run_from_the_field(self):
        for by_button in (False, True):
            with self.subTest(by_button=by_button):
                self.preview(WELCOME.read_text(encoding="utf-8"))
                self.assertEqual(self.browser.execute_script("return document.title"), TITLE)
                self.execute("countTags([{tags: ['sea']}, {tags: ['sea', 'craft']}]).join()", by_button)
                self.assert_result("craft,1,sea,2")

    def test_letters_quotes_and_tags_in_script_and_command_stay_what_they_are(self):
        # Behind the harness's "<!--" a pair of script tags in a string does not end the script.
        complaints = self.preview("""function tags() { return '<script>1</script>' + '<!-- 2 -->' + '<i>three</i>'; }\r\n"""
                                  """function say(who) { return "He said \\"h&i\\" — '%41' — ä€日本 to " + who + tags(); }""")
        self.assertEqual(complaints, "")
        self.execute("""say("Åsa 'x' 100% 日 #1?")""")
        self.assert_result("""He said "h&i" — '%41' — ä€日本 to Åsa 'x' 100% 日 #1?three""")

    def test_a_letter_far_down_is_read_as_the_one_that_it_is(self):
        self.preview(f"// {'x' * 100_000}\nfunction city() {{ return 'Malmö'; }}")
        self.execute("city()")
        self.assert_result("Malmö")

    def test_a_script_that_fails_leaves_a_page_that_takes_commands(self):
        fine = "function fine() { return 'fine'; }\n"
        for script, complaint, has_function in ((fine + "function bad( {", "SyntaxError", False),
                                                (fine + "nothing.at.all();", "nothing is not defined", True),
                                                ("function fine() { return '</script>'; }", "SyntaxError", False)):
            with self.subTest(script=script):
                self.assertIn(complaint, self.preview(script))
                if not has_function:
                    self.execute("fine()")
                    self.assert_complaint("parent.fine is not a function")
                self.execute("fine()" if has_function else "document.title")
                self.assert_result("fine" if has_function else TITLE)

    def test_commands_follow_each_other(self):
        self.preview("var calls = 0;\nfunction call() { return ++calls; }\nfunction told() { return calls + ' calls'; }")
        for _ in range(2):  # their results are numbers, and a browser shows nothing but text
            self.execute("call()")
        self.execute("told()")
        self.assert_result("2 calls")
        # Chromium takes a frame that shows a text for a stranger's. It loads the page anew instead, and then obeys.
        again, expected = "told().length + ' letters'", "7 letters"
        self.execute(again)
        self.wait_for(lambda: self.result() == expected or "?Command=told" in self.browser.current_url, "the frame or the page")
        if self.result() != expected:
            self.complaints()
            self.execute(again)
        self.assert_result(expected)

    def test_markup_stands_in_the_page_above_the_field(self):
        self.preview("<script>function say(who) { return 'Hello ' + who; }</script><p>Grüße")
        self.assertIn("Grüße", self.browser.execute_script("return document.body.innerText"))
        self.execute("say('Zoë')")
        self.assert_result("Hello Zoë")

    def test_a_whole_page_is_shown_as_it_is(self):
        self.preview("<HTML><title>Its own</title><p>Nothing else")
        self.assertEqual(self.browser.execute_script("return [document.title, document.body.innerText, document.forms.length]"),
                         ["Its own", "Nothing else", 0])


if __name__ == "__main__":
    PICTURES.mkdir(parents=True, exist_ok=True)
    with tempfile.TemporaryDirectory(prefix="quillmark-browser.", ignore_cleanup_errors=True) as HOME:
        try:
            PreviewPage.browser = start_browser(HOME)
        except WebDriverException as error:
            print(f"No browser starts here: {error}")
            sys.exit(77)
        try:
            tests = unittest.main(argv=sys.argv[:1] + sys.argv[3:], exit=False)
        finally:
            PreviewPage.browser.quit()
    sys.exit(0 if tests.result.wasSuccessful() else 1)
