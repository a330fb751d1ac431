#!/usr/bin/env python3
"""A language of the user's own: its template is written in the editor, and used."""

import desktop

TEMPLATE = """N: Recipes
X: recipe
D: ,.()+
S: True
C: #0000FF
C: #008000
L: # 1  2 True
L: take 0  1 True
W: "oven" 1
2 "." 2
""
bake 5
heat 5
"""
RECIPE = "take flour # a pound\nflour\n"


class Templates(desktop.Path):
    def test_a_template_is_written_and_used(self):
        draft = self.file("draft.def", "")
        kept = self.home / ".local/share/quillmark/Recipes.def"
        with self.step("write it without a template"):
            editor = self.start(draft)
            editor.dialog("Select Template").press("Cancel")
            editor.wait_ready("draft.def")
            self.desktop.type(TEMPLATE)
            editor.wait_text(TEMPLATE.replace("\n", "\r\n"))  # the line ends of a new text without a template
        with self.step("save it among the templates"):
            self.desktop.keys("ctrl+shift+s")
            editor.choose_file("Save Script", kept)
            editor.wait_title("Recipes.def")
            desktop.wait(kept.exists, "the template on the disk")
            self.desktop.keys("ctrl+q")
            editor.wait_end()
        with self.step("its files are coloured by it"):
            editor = self.start(self.file("bread.recipe", RECIPE), title="bread.recipe")
            editor.wait_status("Using 'Recipes' Template")
            colours = [editor.area().colour_at(RECIPE.index(word)) for word in ("take", "flour", "#")]
            self.assertEqual(colours, ["255,0,0", None, "0,128,0"], "colours are blue, green and red in a template")
        with self.step("its words are completed"):
            self.desktop.keys("ctrl+End")
            self.desktop.type("oven.")
            desktop.wait_equal(editor.listed, ["bake", "heat"], "the list of words")
            self.desktop.type("h")
            desktop.wait_equal(editor.listed_word, "heat", "the selected word")
            self.desktop.keys("Tab")
            editor.wait_text(RECIPE + "oven.heat")
        with self.step("it is among those for new files"):
            editor.choose("File", "New", "Recipes")
            editor.wait_title("Untitled")
            editor.wait_status("Using 'Recipes' Template")

    def test_a_template_is_made_in_the_template_editor(self):
        kept = self.home / ".local/share/quillmark/Rules.def"
        with self.step("name and extension"):
            editor = self.start(title="Untitled")
            editor.choose("File", "New", "Template")
            editor.wait_title("Untitled (Template)")
            form = editor.frame
            form.fill("Template Name", "Rules")
            form.fill("Default Extension", "rule")
        with self.step("a colour and a word in it"):
            self.desktop.click(form.find("page tab", "Colour Words"))
            palette = form.find("panel", "Colour Palette")
            palette.fill("Name", "Red")
            palette.fill("Colour", "#0000FF")
            palette.press("Add colour")
            words = form.find("panel", "Colour Words")
            self.desktop.click(palette.find("list item", "Red"))
            words.fill("Word", "never")
            words.check("Includes itself")
            words.press("Add colour word")
            words.find("list item", "never")
        with self.step("an action word with a list"):
            self.desktop.click(form.find("page tab", "Action Words"))
            form.find("panel", "Action Words").fill("Word", "do")
            form.find("panel", "Word Delimeters").fill("Delimiter", ".")
            form.choose("Show Word List")
            entries = form.find("panel", "Word List")
            entries.fill("Word", "nothing")
            entries.press("Add list entry")
            form.find("panel", "Word Delimeters").press("Add delimiter")
            form.find("panel", "Action Words").press("Add action word")
            form.find("panel", "Action Words").find("list item", "do")
        with self.step("an initial text"):
            self.desktop.click(form.find("page tab", "Initial Text"))
            text = form.find("text", "Initial text")
            self.desktop.click(text)
            desktop.wait(lambda: text.has("FOCUSED"), "the keyboard in the initial text")
            self.desktop.type("never again\n")
        with self.step("save"):
            self.desktop.keys("ctrl+s")
            editor.choose_file("Save Template", kept)
            editor.wait_title("Rules.def (Template)")
            desktop.wait(kept.exists, "the template on the disk")
        with self.step("use it at once"):
            editor.choose("File", "New", "Rules")
            editor.wait_title("Untitled")
            editor.wait_keyboard()
            desktop.wait_equal(lambda: editor.text.split(), ["never", "again"], "the first words of a new file")
            desktop.wait_equal(lambda: editor.area().colour_at(0), "255,0,0", "the colour of the word")
            self.desktop.keys("ctrl+End")
            self.desktop.type("do.")
            desktop.wait_equal(editor.listed, ["nothing"], "the list of words")


if __name__ == "__main__":
    desktop.main()
