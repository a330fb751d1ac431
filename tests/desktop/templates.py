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
            editor.dialog("Save Script").fill("File name:", str(kept))
            self.desktop.keys("Return")
            editor.wait_title("Recipes.def")
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


if __name__ == "__main__":
    desktop.main()
