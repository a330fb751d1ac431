#!/usr/bin/env python3
"""preview_test.py DRIVER PICTURES: opens preview pages in Chromium and tries commands in their field.

DRIVER is preview_driver. A picture of each page lands in the folder PICTURES. Ends with 77 where no browser starts.
"""

import pathlib
import subprocess
import sys
import tempfile
import unittest

import webdriver

DRIVER, PICTURES = (pathlib.Path(argument).resolve() for argument in sys.argv[1:3])
WELCOME = pathlib.Path(__file__).resolve().parents[2] / "examples/welcome.js"
TITLE = "Quillmark Generated JavaScript Preview"
FIELD, BUTTON, FRAME = "input[name=Command]", "input[name=Exec]", "iframe[name=ScriptExec]"


class PreviewPage(unittest.TestCase):
    browser = None

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="quillmark-preview.")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name, "a b %41 #1 ?x 'ä日")
        self.folder.mkdir()

    def tearDown(self):
        self.browser.picture(PICTURES / f"{self.id().rpartition('test_')[2]}.png")

    def preview(self, script):
        """Opens the page of a script in the browser and gives what it complains of."""
        path = self.folder / "script.js"
        path.write_bytes(script.encode())
        address = subprocess.run([DRIVER, path, self.folder], capture_output=True, text=True, check=True, timeout=30).stdout
        self.assertRegex(address, r"^file:///\S+\n$")
        self.browser.open(address.strip())
        return " ".join(self.browser.complaints())

    def execute(self, command, by_button=False):
        self.browser.click(FIELD)
        self.browser.clear(FIELD)
        self.browser.click(FIELD)
        self.browser.type(command if by_button else command + webdriver.ENTER)
        if by_button:
            self.browser.click(BUTTON)

    def assert_result(self, expected):
        webdriver.wait_for(lambda: self.browser.text_in_frame(FRAME) == expected)
        self.assertEqual((self.browser.text_in_frame(FRAME), self.browser.complaints()), (expected, []))

    def assert_complaint(self, expected):
        complaints = webdriver.wait_for(self.browser.complaints)
        self.assertRegex(" ".join(complaints), expected)
        self.assertEqual(self.browser.text_in_frame(FRAME), "")

    def test_functions_of_the_welcome_script_run_from_the_field(self):
        for by_button in (False, True):
            with self.subTest(by_button=by_button):
                self.preview(WELCOME.read_text(encoding="utf-8"))
                self.assertEqual(self.browser.run("return document.title"), TITLE)
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
        webdriver.wait_for(lambda: self.browser.text_in_frame(FRAME) == expected
                           or "?Command=told" in self.browser.run("return location.href"))
        if self.browser.text_in_frame(FRAME) != expected:
            self.browser.complaints()
            self.execute(again)
        self.assert_result(expected)

    def test_markup_stands_in_the_page_above_the_field(self):
        self.preview("<script>function say(who) { return 'Hello ' + who; }</script><p>Grüße")
        self.assertIn("Grüße", self.browser.run("return document.body.innerText"))
        self.execute("say('Zoë')")
        self.assert_result("Hello Zoë")

    def test_a_whole_page_is_shown_as_it_is(self):
        self.preview("<HTML><title>Its own</title><p>Nothing else")
        self.assertEqual(self.browser.run("return [document.title, document.body.innerText, document.forms.length]"),
                         ["Its own", "Nothing else", 0])


if __name__ == "__main__":
    PICTURES.mkdir(parents=True, exist_ok=True)
    try:
        with webdriver.Browser() as PreviewPage.browser:
            tests = unittest.main(argv=sys.argv[:1] + sys.argv[3:], exit=False)
    except webdriver.CannotStart as error:
        print(f"No browser starts here: {error}")
        sys.exit(77)
    sys.exit(0 if tests.result.wasSuccessful() else 1)
