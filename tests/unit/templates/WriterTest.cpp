#include "templates/Writer.h"

#include <gtest/gtest.h>

#include "templates/EditorReader.h"
#include "tests/unit/SourceFile.h"

namespace {

using namespace templates;

// full.def is written by hand and uses every record.
TEST(Writer, EveryByteOfAFile) {
  const std::string full = tests::SourceFile("tests/unit/templates/cases/full.def");
  CollectedMessages messages;
  EXPECT_EQ(WriteTemplate(ReadEditorTemplateText(full, "full.def", messages).Template, "31/12/2024"), full);
  EXPECT_EQ(WriteTemplate(EditorTemplate{}, "d"), tests::SourceFile("tests/unit/templates/cases/new.def"));
}

TEST(Writer, NoValuePassesForARecord) {
  EditorTemplate source;
  source.Comments = "a\r\nN: other";
  source.Extension = ".js;.mjs";
  source.Synonyms = {{"x\n", "y"}};
  const std::string text = WriteTemplate(source, "d");
  EXPECT_NE(text.find("M: a  N: other\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("X: js;.mjs\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Y: \"x \" \"y\"\r\n"), std::string::npos) << text;
}

}  // namespace
