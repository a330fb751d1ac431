#!/usr/bin/env python3
"""Typing, completing, finding, replacing and undoing."""

import desktop

SCRIPT = "// counts the rows\nvar row = 'first';\nrow = row + 1;\n"


class Editing(desktop.Path):
    def test_open_type_and_complete(self):
        with self.step("open"):
            editor = self.start(self.file("rows.js", SCRIPT), title="rows.js")
            editor.wait_text(SCRIPT)
            editor.wait_status("Using 'JavaScript' Template")
            colours = [editor.area().colour_at(SCRIPT.index(word)) for word in ("//", "var", "row =", "first'")]
            self.assertEqual(colours, ["0,128,0", "0,0,230", None, "160,20,20"], "comment, keyword, name, text")
        with self.step("type"):
            self.desktop.keys("ctrl+End")
            self.desktop.type("// more\n")
            editor.wait_text(SCRIPT + "// more\n")
            editor.wait_title("rows.js *")
            desktop.wait_equal(lambda: editor.area().colour_at(len(SCRIPT)), "0,128,0", "the colour of what was typed")
        with self.step("a list opens after an action word"):
            self.desktop.type("document.")
            first = desktop.wait(editor.listed, "the list of words")
            self.assertIn("addEventListener", first)
        with self.step("the list follows what is typed"):
            self.desktop.type("getElementB")
            desktop.wait_equal(editor.listed_word, "getElementById", "the selected word")
        with self.step("complete"):
            self.desktop.keys("Tab")
            editor.wait_text(SCRIPT + "// more\ndocument.getElementById")
            desktop.wait(lambda: not editor.listed(), "the list to close")
        with self.step("a click chooses another word"):
            self.desktop.type("(document.")
            desktop.wait(editor.listed, "the list of words")
            self.desktop.click(editor.listed_row("anchors"), count=2)
            editor.wait_text(SCRIPT + "// more\ndocument.getElementById(document.anchors")

    def test_find_replace_all_and_undo(self):
        text = "row Row rows row\nthrow row\n"
        with self.step("open"):
            editor = self.start(self.file("words.js", text), title="words.js")
        with self.step("find"):
            self.desktop.keys("ctrl+f")
            find = editor.dialog("Find")
            find.fill("Find What:", "row")
            find.check("Match Case")
            find.check("Find Whole Word Only")
            for start in (0, text.index("row\n")):
                find.press("Find Next")
                desktop.wait_equal(lambda: editor.area().selection, (start, start + 3), "what is found")
        with self.step("find next without the dialog"):
            self.desktop.keys("Escape")
            find.wait_closed("the dialog")
            self.desktop.keys("F3")
            desktop.wait_equal(lambda: editor.area().selection, (len(text) - 4, len(text) - 1), "what is found")
        with self.step("replace all"):
            self.desktop.keys("ctrl+h")
            replace = editor.dialog("Replace")
            desktop.wait_equal(lambda: replace.find("text", "Find What:").text, "row", "the word that is remembered")
            replace.fill("Replace With:", "line")
            replace.press("Replace All")
            said = editor.dialog("Replace", saying="Replace Complete.  3 replacements were made.")
            said.press("OK")
            editor.wait_text("line Row rows line\nthrow line\n")
            editor.dialog("Replace").press("Cancel")
        with self.step("undo takes all of it back at once"):
            editor.wait_keyboard()
            self.desktop.keys("ctrl+z")
            editor.wait_text(text)
        with self.step("redo by the toolbar"):
            self.desktop.click(editor.frame.find("tool bar", "Toolbar").find("push button", "Redo"))
            editor.wait_text("line Row rows line\nthrow line\n")


if __name__ == "__main__":
    desktop.main()
