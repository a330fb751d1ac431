// A template written from nothing with the keyboard alone.

#include "templates/Loader.h"
#include "tests/ui/template_editor/FormFixture.h"

namespace tests {
namespace {

using TemplateKeys = FormTest;

TEST_F(TemplateKeys, ATemplateIsWrittenWithTheKeyboardAlone) {
  NewTemplate();
  Play("<Alt+T>Tiny<Alt+X>.tny<Alt+D><Ctrl+A>.(<Alt+V><Alt+F><Ctrl+A>tiny.hdf<Alt+E>tiny \"%s\"");
  Play("<Ctrl+PgDown><Alt+N>Blue<Tab><Ctrl+A>#FF0000<Return><Alt+N><Ctrl+A>Red<Tab><Ctrl+A>#0000ff<Alt+A>");
  Play("<Alt+C><Home><Down>");  // the first colour is selected although nothing was
  Play("<Alt+W>rem<Alt+I><Alt+L><Alt+A>");
  Play("/*<Tab><Space><Tab><Right>*/<Alt+A>");  // over that word, not including itself, until a word
  Play("<Ctrl+PgDown><Alt+W>doc<Alt+D>-><Alt+L><Alt+W><Alt+W>open<Return>title<Tab>");
  Play("<Right><Right><Right><Right><Right><Alt+A><Alt+D><Alt+A><Alt+W><Alt+A>");
  Play("<Alt+C>say<Alt+D>(<Alt+I>(text)<Alt+D><Return><Alt+W><Alt+A><Ctrl+PgDown>");
  if (QApplication::focusWidget()->objectName() != QStringLiteral("InitialText")) Play("<Tab>");
  Play("say(x<Return><Tab>y<Ctrl+Z>");
  Play("<Ctrl+PgDown><Alt+N>d<Alt+S>doc<Ctrl+PgDown><Alt+V>1.0<Alt+A>Me<Alt+D>today<Alt+C>No comment");
  m_prompts.ExpectSaveFile("Save Template", m_folder.Path("tiny.def"));
  Play("<Ctrl+S>");
  ASSERT_EQ(m_prompts.Unasked(), 0U);

  templates::TemplateFields fields;
  templates::CollectedMessages messages;
  const auto result = templates::LoadTemplate(m_folder.Path("tiny.def"), fields, {}, messages);
  EXPECT_TRUE(messages.Problems.empty());
  EXPECT_EQ(result.InitialText, "say(x\r\n\t");
  EXPECT_EQ(fields.TName + '|' + fields.DefaultExtension + '|' + fields.ExecuteCommand, "Tiny|tny|tiny \"%s\"");
  EXPECT_EQ(fields.TVer + '|' + fields.TAuthor + '|' + fields.TDate + '|' + fields.TComments,
            "1.0|Me|today|No comment");
  EXPECT_TRUE(fields.CaseSensitive);
  std::string delimeters;
  for (const std::string& delimeter : fields.Delimeters) delimeters += delimeter;
  EXPECT_EQ(delimeters, ".(-> \r\n");
  EXPECT_EQ(fields.Colours, (std::vector<rich_text::ColourValue>{0xFF0000, 0x0000FF}));

  ASSERT_EQ(fields.ColWords.Count(), 2U);
  const auto rem = fields.ColWords.Item("rem"), comment = fields.ColWords.Item("/*");
  EXPECT_TRUE(rem->EndPoint == 1 && rem->Colour == 2 && rem->IncludeWord);
  EXPECT_TRUE(comment->EndPoint == 2 && comment->EndWord == "*/" && comment->Colour == 2 && !comment->IncludeWord)
      << comment->EndPoint << ' ' << comment->EndWord << ' ' << comment->Colour << comment->IncludeWord;
  ASSERT_EQ(fields.Words.Count(), 2U);
  const auto list = fields.Words.Item("doc")->Actions.Item("->"), tip = fields.Words.Item("say")->Actions.Item("(");
  ASSERT_EQ(list->NumberOfWords(), 2);
  EXPECT_EQ(list->Action, templates::WrdAct::List);
  EXPECT_EQ(list->WordList(1) + std::to_string(list->IconList(1)), "open1");
  EXPECT_EQ(list->WordList(2) + std::to_string(list->IconList(2)), "title6");
  EXPECT_EQ(tip->Action, templates::WrdAct::Tooltip);
  EXPECT_EQ(tip->tipText, "(text) ");
  ASSERT_EQ(fields.Synonyms.Count(), 1U);
  EXPECT_EQ(fields.Synonyms.Item("d")->Synonym, "doc");

  // The menu of templates has it, and a new document begins with its text.
  m_frame.ActiveBar_ToolClick("Template1");
  ASSERT_NE(m_frame.ActiveDocument(), nullptr);
  EXPECT_EQ(m_frame.ActiveDocument()->TextArea().Text(), "say(x\r\n\t");
}

TEST_F(TemplateKeys, EveryFieldIsReachedByItsKey) {
  NewTemplate();
  const std::vector<std::tuple<int, char, const char*>> keys = {
      {0, 'T', "TemplateName"}, {0, 'X', "DefaultExt"},     {0, 'D', "DelimetersBox"}, {0, 'V', "CaseSense"},
      {0, 'F', "hdfFile"},      {0, 'E', "SaveExecute"},    {1, 'N', "ColName"},       {1, 'C', "ColourList"},
      {1, 'W', "colWordName"},  {1, 'I', "ColWordInclude"}, {1, 'E', "oEndOfWord"},    {1, 'L', "oEndOfLine"},
      {1, 'O', "ColWordList"},  {2, 'W', "ActWordName"},    {2, 'D', "DelimBox"},      {2, 'I', "ToolTipBox"},
      {2, 'L', "ShowList"},     {2, 'T', "ShowTip"},        {2, 'S', "AddSynonym"},    {4, 'A', "SynList"},
      {5, 'V', "VersionText"},  {5, 'A', "AuthorBox"},      {5, 'D', "DateBox"},       {5, 'C', "Comments"}};
  for (const auto& [page, key, name] : keys) {
    ShowPage(page);
    Child<QTabWidget>("TabStrip").tabBar()->setFocus();
    Play(std::string("<Alt+") + key + '>');
    EXPECT_EQ(QApplication::focusWidget()->objectName().toStdString(), name);
  }
  EXPECT_EQ(QApplication::activePopupWidget(), nullptr) << "no menu has opened";
  ShowPage(3);
  Play("<Alt+H>");
  ASSERT_NE(QApplication::activePopupWidget(), nullptr) << "letters that the page does not use are the menus'";
  QApplication::activePopupWidget()->close();
}

TEST_F(TemplateKeys, TabWalksEveryPageInReadingOrder) {
  NewTemplate();
  const std::vector<std::pair<int, std::string>> pages = {
      {0, "TemplateName DefaultExt DelimetersBox CaseSense hdfFile SaveExecute optFixed "},
      {1, "ColName ColHex ColBrowse colAdd ColourList colWordName ColWordInclude oEndOfWord colEndWord ColWordList "},
      {2, "ActWordName ActAdd ClearButton ActWordList DelimBox DelimAdd DelimetersList ShowTip ToolTipBox "},
      {4, "lstAss btnNew SynList "},
      {5, "VersionText AuthorBox DateBox Comments "}};
  for (const auto& [page, order] : pages) {
    ShowPage(page);
    const QWidget* tabs = Child<QTabWidget>("TabStrip").tabBar();
    Child<QTabWidget>("TabStrip").tabBar()->setFocus();
    std::string walked;
    for (Play("<Tab>"); QApplication::focusWidget() != tabs && walked.size() < 500; Play("<Tab>"))
      walked += QApplication::focusWidget()->objectName().toStdString() + ' ';
    EXPECT_EQ(walked, order);
  }
}

}  // namespace
}  // namespace tests
