// Whatever the bytes, every reader ends, reports lines that exist, and gives a usable template.

#include <gtest/gtest.h>

#include "rich_text/Encoding.h"
#include "templates/EditorReader.h"
#include "templates/HeaderScan.h"
#include "templates/HelpDefinition.h"
#include "templates/LineReader.h"
#include "templates/Loader.h"
#include "templates/Writer.h"
#include "tests/unit/templates/SampleTemplates.h"

namespace {

using namespace templates;

void ExpectProblemsInside(const CollectedMessages& messages, std::string_view text) {
  std::vector<std::size_t> starts;
  LineReader lines(text);
  std::vector<std::string_view> all;
  while (const auto line = lines.RawLine()) all.push_back(*line);
  for (const LoadProblem& problem : messages.Problems) {
    ASSERT_GE(problem.LineNumber, 1U);
    ASSERT_LE(problem.LineNumber, all.size());
    ASSERT_TRUE(all[problem.LineNumber - 1].ends_with(problem.Line)) << problem.Line;  // a text block may cut a line
  }
}

/// Every reader over the bytes; what the editor's reader makes of them must survive being written.
void ReadAll(const std::string& bytes) {
  const std::string text = rich_text::DecodeText(bytes).Text;
  TemplateFields fields;
  CollectedMessages messages, editorMessages;
  std::string helpFile;
  LoadTemplateText(text, "x.def", fields, {}, messages, helpFile);
  ExpectProblemsInside(messages, text);
  EditorTemplate read = ReadEditorTemplateText(text, "x.def", editorMessages).Template;
  ExpectProblemsInside(editorMessages, text);
  ASSERT_LE(fields.Words.Count(), read.Words.size());
  ASSERT_EQ(fields.Colours.size(), read.Palette.size());
  Template record;
  ScanTemplateHeader(text, record);
  KeyedCollection<HelpWord> helpWords;
  ReadHelpDefinitionText("Quillmark Help Definition File\n" + text, helpWords);

  const std::string written = WriteTemplate(read, "d");
  CollectedMessages ignored;
  const EditorTemplate again = ReadEditorTemplateText(written, "x.def", ignored).Template;
  ASSERT_EQ(again.InitialText, read.InitialText);
}

std::string RealTemplate() {
  std::mt19937 random(3);
  EditorTemplate source = tests::FullTemplate();
  const EditorTemplate more = tests::RandomTemplate(random);
  source.Words.insert(source.Words.end(), more.Words.begin(), more.Words.end());
  return WriteTemplate(source, "1/1/2024");
}

TEST(Garbage, TruncatedAtEveryByte) {
  const std::string whole = RealTemplate();
  for (std::size_t size = 0; size <= whole.size() && !testing::Test::HasFatalFailure(); ++size) {
    SCOPED_TRACE(size);
    ReadAll(whole.substr(0, size));
  }
}

TEST(Garbage, Mutations) {
  const std::string whole = RealTemplate();
  const std::vector<std::string> pieces = {"\n",   "\r",      "\"",    " ",        "T: 9\n", "W: \"x\" 32767\n",
                                           "C: #", "-1",      "99999", "\x80\xFF", "\n1 \"", "\nL: a b",
                                           ";",    "\nF: 7\n"};
  std::mt19937 random(11);
  for (int round = 0; round < 2000 && !testing::Test::HasFatalFailure(); ++round) {
    SCOPED_TRACE(round);
    std::string bytes = whole;
    for (unsigned changes = 1 + random() % 8; changes > 0; --changes) {
      const std::size_t place = random() % (bytes.size() + 1);
      if (random() % 2 == 0)
        bytes.insert(place, pieces[random() % pieces.size()]);
      else if (random() % 2 == 0)
        bytes.erase(place, random() % 9);
      else if (place < bytes.size())
        bytes[place] = static_cast<char>(random());
    }
    ReadAll(bytes);
  }
}

}  // namespace
