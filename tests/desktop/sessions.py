#!/usr/bin/env python3
"""From one start to the next: a second start, preferences, and text that was not saved."""

import desktop


class Sessions(desktop.Path):
    def test_a_second_start_hands_its_file_over(self):
        with self.step("the first start"):
            editor = self.start(self.file("one.js", "var one;\n"), title="one.js")
        with self.step("the second start ends, and the first has its file"):
            second = self.start(f"{self.file('two.py', 'import os' + chr(10) + 'print(os.name)' + chr(10))}:2:7")
            second.wait_end()
            self.assertEqual(second.process.returncode, 0)
            editor.wait_title("two.py")
            editor.wait_status("(Line 2, Col 7)")
            editor.wait_keyboard()
        with self.step("both are there"):
            self.desktop.click(editor.frame.find("page tab", "one.js"))
            editor.wait_title("one.js")
            editor.wait_text("var one;\n")

    def test_preferences_are_kept(self):
        path = self.file("one.js", "// note\n")
        with self.step("change options and place"):
            editor = self.start(path, title="one.js")
            self.desktop.keys("ctrl+comma")
            options = editor.dialog("Quillmark Options")
            options.fill("Tab Width:", "3")
            options.choose("None")
            options.press("OK")
            options.wait_closed("the options")
            editor.place(100, 80, 700, 500)
        with self.step("move the help"):
            editor.choose("Help", "Contents")
            editor.help()
            window = self.desktop.ask("xdotool", "getactivewindow").strip()
            self.desktop.ask("xdotool", "windowsize", window, "640", "400", "windowmove", window, "60", "90")
            desktop.wait_equal(lambda: editor.help().extents()[2:], (640, 400), "the size of the help")
            place = editor.help().extents()
            self.desktop.keys("Escape")
        with self.step("end"):
            editor.wait_keyboard()
            self.desktop.keys("ctrl+q")
            editor.wait_end()
        with self.step("the next start has them"):
            editor = self.start(path, title="one.js")
            desktop.wait_equal(editor.size, (700, 500), "the size of the window")
            self.assertIsNone(editor.area().colour_at(0), "without highlighting nothing is coloured")
            editor.choose("Edit", "Options")
            options = editor.dialog("Quillmark Options")
            desktop.wait_equal(lambda: options.find("text", "Tab Width:").text, "3", "the width of a tab")
            desktop.wait(lambda: options.find("radio button", "None").has("CHECKED"), "no highlighting in the options")
            self.desktop.keys("Escape")
            editor.wait_keyboard()
            editor.choose("Help", "Contents")
            desktop.wait_equal(lambda: editor.help().extents(), place, "the place of the help")

    def test_unsaved_text_survives_a_kill(self):
        with self.step("type and be killed"):
            path = self.file("one.js", "var one;\n")
            editor = self.start(path, title="one.js")
            self.desktop.type("// kept~")
            editor.wait_text("// kept~var one;\n")
            state = self.home / ".local/state/quillmark"
            desktop.wait(lambda: any(b"~" in journal.read_bytes() for journal in state.glob("*.journal")),
                         "the last key in the journal")
            editor.kill()
        with self.step("the next start offers it"):
            editor = self.start()
            editor.dialog("Quillmark", saying="one.js").press("Yes")
            editor.wait_ready("one.js *")
            editor.wait_text("// kept~var one;\n")
            self.wait_file(path, "var one;\n")
        with self.step("save it"):
            self.desktop.keys("ctrl+s")
            self.wait_file(path, "// kept~var one;\n")


if __name__ == "__main__":
    desktop.main()
