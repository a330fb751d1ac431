// A document takes templates into use.

#include <gtest/gtest.h>

#include "tests/support/DocumentFixture.h"

namespace {

using platform::PromptAnswer;
using platform::PromptButtons;
using platform::PromptIcon;

constexpr const char* Definition =
    "T: 4\nif\r\n\nN: Sample\nX: smp;sam\nR: run \"%s\"\nD: ()\nF: 0\nC: #0000FF\nL: if 0  1 True\nW: \"if\" 0\n"
    "Y: \"wenn\" \"if\"\n";

class DocumentTemplateTest : public tests::DocumentFixture {
 protected:
  DocumentTemplateTest() { m_frame.Values.DefaultFontType = 1; }

  const templates::TemplateFields& Fields() const { return m_document.State().Template; }
  bool IsColoured() const { return m_control.TextRTF().find("\\red255") != std::string::npos; }

  std::string m_sample = m_folder.Write("Sample.def", Definition);
};

TEST_F(DocumentTemplateTest, FillsEverythingAndANewDocument) {
  m_document.SetTemplate(m_sample);
  EXPECT_EQ(Fields().TemplateFile, m_sample);
  EXPECT_EQ(Fields().ColourTable, "\\red255\\green0\\blue0;}");
  EXPECT_EQ(Fields().DefaultExtension, "smp");
  EXPECT_EQ(m_control.Text(), "if\r\n");
  EXPECT_TRUE(IsColoured());
  EXPECT_TRUE(m_document.State().Saved) << "the initial text is no edit";
  EXPECT_FALSE(m_document.State().DontChange);
  EXPECT_EQ(m_document.State().LineCount, 2u);
  EXPECT_EQ(m_frame.Bar.Panels["Template"], "Using 'Sample' Template");
  EXPECT_EQ(m_frame.Bar.Panels["DocSize"], "2 Lines");
  EXPECT_EQ(m_control.Font(), m_frame.Values.ProportionalFont);
  EXPECT_TRUE(m_frame.Enabled.at("SaveExec") && m_frame.Checked.at("fntProportional"));
  EXPECT_FALSE(m_frame.Enabled.at("save"));

  m_document.SetTemplate(m_folder.Write("Other.def", "T: 3\nnew\nN: Other\n"));
  EXPECT_EQ(m_control.Text(), "if\r\n") << "only an empty document gets the initial text";
  EXPECT_TRUE(IsColoured()) << "a template without colour words leaves the colours";
  EXPECT_EQ(Fields().UseFont, 0);
  EXPECT_EQ(m_control.Font(), m_frame.Values.FixedFont) << "the default type's font";
  EXPECT_FALSE(m_frame.Enabled.at("SaveExec"));
}

TEST_F(DocumentTemplateTest, NoneStopsAtOnce) {
  m_document.SetTemplate(m_sample);
  m_frame.Bar.Take();
  m_document.SetTemplate("*none*");
  EXPECT_EQ(Fields().ColourTable, "}");
  EXPECT_EQ(Fields().TName, "Sample");
  EXPECT_EQ(Fields().ColWords.Count(), 1u);
  EXPECT_EQ(m_frame.Bar.Take(), std::vector<std::string>{});
}

TEST_F(DocumentTemplateTest, AMissingFileAsks) {
  for (const std::string& missing : {std::string(), m_folder.Path("missing.def"), m_folder.Path()}) {
    m_frame.Questions.ExpectOpenFile("Select Template", m_sample);
    m_document.SetTemplate(missing);
    EXPECT_EQ(m_frame.AskedType, "Template Definition File|def");
    EXPECT_EQ(Fields().TemplateFile, m_sample);
    EXPECT_EQ(Fields().TName, "Sample");
  }
}

TEST_F(DocumentTemplateTest, CancellingTheChoiceLeavesNoTemplate) {
  m_document.SetTemplate(m_sample);
  m_frame.Bar.Take();
  m_frame.Questions.ExpectOpenFile("Select Template", "");
  m_document.SetTemplate("");
  EXPECT_EQ(Fields().TemplateFile, "*none*");
  EXPECT_EQ(Fields().TName, "");
  EXPECT_EQ(m_frame.Bar.Panels["Template"], "Using '<none>' Template");
  EXPECT_EQ(m_frame.Bar.Take().size(), 4u) << "coloured once more with the old words";
  EXPECT_TRUE(Fields().ColWords.Empty() && Fields().Words.Empty() && Fields().Synonyms.Empty());
  EXPECT_TRUE(Fields().Colours.empty() && Fields().Delimeters.empty() && Fields().ExecuteCommand.empty());
  EXPECT_EQ(Fields().UseFont, 0);
  EXPECT_EQ(m_control.Text(), "if\r\n");
  m_document.ColourScan();
  EXPECT_TRUE(m_frame.Bar.Take().empty()) << "the words are gone for the colouring too";
}

TEST_F(DocumentTemplateTest, OffersTheTemplateForTheExtension) {
  const struct {
    const char *File, *Extension;
    PromptAnswer Answer;
  } cases[] = {
      {"a.b.xyz", "xyz", PromptAnswer::Yes}, {"c.xyz", "xyz", PromptAnswer::No}, {"Makefile", "", PromptAnswer::Yes}};
  for (const auto& c : cases) {
    Open("x", c.File);
    m_document.SetTemplateChosen(true);
    m_frame.Associations.clear();
    m_frame.Questions.ExpectAssociating(c.Extension, c.Answer);
    m_document.SetTemplate(m_sample);
    const bool yes = c.Answer == PromptAnswer::Yes;
    const std::vector<std::string> expected = {std::string(c.Extension) + "  " + m_sample};
    EXPECT_EQ(m_frame.Associations, yes ? expected : std::vector<std::string>{}) << c.File;
    EXPECT_EQ(Fields().TemplateChosen, !yes) << c.File;
  }
  m_frame.Known["xyz"] = "Any.def";
  Open("x", "c.xyz");
  m_document.SetTemplate(m_sample);  // asks nothing
}

TEST_F(DocumentTemplateTest, AFontOutOfRangeMayCloseTheWindow) {
  const std::string bad = m_folder.Write("Bad.def", "T: 1\nx\nN: Bad\nF: 7\nQ: ?\nC: #0000FF\nL: if 0  1 True\n");
  const platform::MessageBox invalid = {"Invalid Line:\n\nF: 7", "Error Loading Template", PromptButtons::OkCancel,
                                        PromptIcon::Exclamation, PromptAnswer::Ok};
  const platform::MessageBox unknown = {"Unrezognized Line:\n\nQ: ?", "Error Loading Template", PromptButtons::Ok,
                                        PromptIcon::Exclamation, PromptAnswer::Ok};
  m_frame.Questions.Expect(invalid, PromptAnswer::Cancel);
  m_document.SetTemplate(bad);
  EXPECT_EQ(m_window.Closed, 1);
  EXPECT_EQ(m_control.Text(), "");
  EXPECT_TRUE(m_frame.Bar.Log.empty() && m_frame.Enabled.empty()) << "nothing goes on";

  m_frame.Questions.Expect(invalid, PromptAnswer::Ok);
  m_frame.Questions.Expect(unknown, PromptAnswer::Ok);
  m_document.SetTemplate(bad);
  EXPECT_EQ(m_window.Closed, 1);
  EXPECT_EQ(Fields().UseFont, 0);
  EXPECT_EQ(Fields().ColWords.Count(), 1u);
  EXPECT_EQ(m_control.Text(), "x");
}

TEST_F(DocumentTemplateTest, AnUnreadableFileIsTold) {
  m_document.SetTemplate(m_sample);
  m_folder.SetMode("Sample.def", 0);
  m_frame.Questions.Expect({"Could not read " + m_sample + "\n\nPermission denied", "Error Loading Template",
                            PromptButtons::Ok, PromptIcon::Exclamation, PromptAnswer::Ok});
  const tests::OrdinaryUser user;
  m_document.SetTemplate(m_sample);
  EXPECT_TRUE(Fields().ColWords.Empty());
  EXPECT_EQ(Fields().ColourTable, "}");
}

TEST_F(DocumentTemplateTest, TheUsersFontOverridesTheTemplates) {
  m_frame.Values.OverrideTemplateFonts = true;
  m_document.SetTemplate(m_sample);
  EXPECT_EQ(m_control.Font(), m_frame.Values.FixedFont);
  m_control.SetSelStart(2);
  m_control.SetVerticalScroll(1);
  const std::pair<std::int16_t, const platform::FontRecord*> fonts[] = {
      {1, &m_frame.Values.ProportionalFont}, {2, &m_frame.Values.FixedFont}, {3, &m_frame.Values.DosFont}};
  for (const auto& [useFont, font] : fonts) {
    m_document.SetUseFont(useFont);
    EXPECT_EQ(m_control.Font(), *font);
    EXPECT_EQ(m_frame.Checked.at("fntProportional"), useFont == 1);
    EXPECT_EQ(m_frame.Checked.at("fntFixedWidth"), useFont == 2);
    EXPECT_EQ(m_frame.Checked.at("fntDOS"), useFont == 3);
  }
  EXPECT_EQ(m_control.SelStart(), 2u);
  EXPECT_EQ(m_control.VerticalScroll(), 1u);
  EXPECT_TRUE(m_document.State().Saved);
}

TEST_F(DocumentTemplateTest, ToolsAreEnabledAsTheDocumentNeedsThem) {
  m_document.SetTemplate(m_folder.Write("JS.def", "N: JavaScript\nR: node\n"));
  for (const std::string_view tool : editor::DocumentTools())
    EXPECT_EQ(m_frame.Enabled.at(std::string(tool)), tool != "save" && tool != "miUndo" && tool != "miRedo") << tool;
  m_document.WordWrap(true);
  m_document.SetTemplate(m_folder.Write("Lower.def", "N: Javascript\n"));
  EXPECT_FALSE(m_frame.Enabled.at("GenPrev") || m_frame.Enabled.at("SaveExec"));
  EXPECT_TRUE(m_frame.Checked.at("miWordWrap") && m_control.WordWrap());
  m_document.WordWrap(false);
  m_document.Activated();
  EXPECT_FALSE(m_frame.Checked.at("miWordWrap") || m_control.WordWrap());

  m_window.Active = false;
  m_frame.Enabled.clear(), m_frame.Checked.clear(), m_frame.Bar.Panels.clear();
  m_document.SetTemplate(m_sample);
  m_control.SetSelText("x");
  EXPECT_TRUE(m_frame.Enabled.empty() && m_frame.Checked.empty() && m_frame.Bar.Panels.empty())
      << "bar and tools are another document's";
}

}  // namespace
