#!/usr/bin/env python3
"""Opening, saving, closing, and finding files again as they were left."""

import desktop

OLD = "var one = 1;\r\n"


class Files(desktop.Path):
    def test_save_and_close_with_changes(self):
        path = self.file("one.js", OLD)
        with self.step("save"):
            editor = self.start(path, title="one.js")
            self.desktop.type("x")
            editor.wait_title("one.js *")
            self.desktop.keys("ctrl+s")
            self.wait_file(path, "x" + OLD)
            editor.wait_title("one.js")
        with self.step("closing with changes asks, and Cancel goes on"):
            self.desktop.type("y")
            editor.wait_title("one.js *")
            self.desktop.keys("ctrl+w")
            editor.dialog("Quillmark", saying="Save changes to one.js before closing?").press("Cancel")
            editor.wait_keyboard()
            editor.wait_text("xy" + OLD)
        with self.step("No leaves the file as it is"):
            self.desktop.keys("ctrl+w")
            editor.dialog("Quillmark", saying="Save changes to one.js before closing?").press("No")
            desktop.wait(lambda: not editor.area(), "the document to close")
            self.wait_file(path, "x" + OLD)
        with self.step("Yes saves, and the program ends"):
            editor.choose("File", "1 one.js")
            editor.wait_title("one.js")
            editor.wait_keyboard()
            self.desktop.type("z")
            editor.wait_title("one.js *")
            self.desktop.keys("ctrl+q")
            editor.dialog("Quillmark", saying="Save changes to one.js before closing?").press("Yes")
            editor.wait_end()
            self.wait_file(path, "zx" + OLD)

    def test_a_new_document_is_saved_under_a_name(self):
        with self.step("new from the menu of templates"):
            editor = self.start(title="Untitled")
            self.desktop.click(editor.frame.find("page tab", "Untitled"))
            editor.choose("File", "New", "Python")
            editor.wait_status("Using 'Python' Template")
        with self.step("save under a name"):
            editor.wait_keyboard()
            first = editor.text
            self.assertIn("def ", first, "the template's first text")
            self.desktop.keys("ctrl+End")
            self.desktop.type("# mine")
            editor.wait_text(first + "# mine")
            self.desktop.keys("ctrl+s")
            editor.choose_file("Save Script", self.home / "fresh")
            editor.wait_title("fresh.py")
            self.wait_file(self.home / "fresh.py", first + "# mine")

    def test_open_by_the_dialog(self):
        path = self.file("two.css", "a { color: red; }\n")
        with self.step("the dialog shows the folder that the program was started in"):
            editor = self.start(title="Untitled")
            self.desktop.keys("ctrl+o")
            chooser = editor.dialog("Open Script")
            chooser.find("table cell", "two.css")
        with self.step("open"):
            self.desktop.type("two.css")
            self.desktop.keys("Return")
            editor.wait_title("two.css")
            editor.wait_text(path.read_text())

    def test_a_file_changed_by_another_program_is_asked_about(self):
        path = self.file("one.js", OLD)
        with self.step("No, the default answer, keeps what the other has written"):
            editor = self.start(path, title="one.js")
            self.desktop.type("x")
            editor.wait_title("one.js *")
            path.write_bytes(b"theirs")
            self.desktop.keys("ctrl+s")
            question = editor.dialog("Quillmark", saying="has been changed by another program")
            self.desktop.keys("Return")
            question.wait_closed("the question")
            self.assertEqual(path.read_bytes(), b"theirs")
        with self.step("Yes saves"):
            editor.wait_keyboard()
            self.desktop.keys("ctrl+s")
            editor.dialog("Quillmark", saying="has been changed by another program").press("Yes")
            self.wait_file(path, "x" + OLD)

    def test_a_file_reopened_has_the_template_that_it_was_given(self):
        path = self.file("notes.unheard", "// note\n")
        with self.step("an unknown extension asks for the template"):
            editor = self.start(path)
            editor.choose_file("Select Template", "JavaScript.def")
            editor.dialog("Quillmark", saying="Would you like to use this template for all .unheard files?").press("No")
            editor.wait_ready("notes.unheard")
            editor.wait_status("Using 'JavaScript' Template")
        with self.step("close and end"):
            self.desktop.keys("ctrl+w")
            desktop.wait(lambda: not editor.area(), "the document to close")
            self.desktop.keys("ctrl+q")
            editor.wait_end()
        with self.step("the next start remembers"):
            editor = self.start(path, title="notes.unheard")
            editor.wait_status("Using 'JavaScript' Template")
            self.assertEqual(editor.area().colour_at(0), "0,128,0")


if __name__ == "__main__":
    desktop.main()
