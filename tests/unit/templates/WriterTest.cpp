#include "templates/Writer.h"

#include <gtest/gtest.h>

#include "tests/unit/SourceFile.h"
#include "tests/unit/templates/SampleTemplates.h"

namespace {

using namespace templates;

TEST(Writer, EveryByteOfAFile) {
  EXPECT_EQ(WriteTemplate(tests::FullTemplate(), "31/12/2024"),
            tests::SourceFile("tests/unit/templates/cases/full.def"));
  EXPECT_EQ(WriteTemplate(EditorTemplate{}, "d"), tests::SourceFile("tests/unit/templates/cases/new.def"));
}

TEST(Writer, NoValuePassesForARecord) {
  EditorTemplate source;
  source.Comments = "a\r\nN: other";
  source.Synonyms = {{"x\n", "y"}};
  const std::string text = WriteTemplate(source, "d");
  EXPECT_NE(text.find("M: a  N: other\r\n"), std::string::npos) << text;
  EXPECT_NE(text.find("Y: \"x \" \"y\"\r\n"), std::string::npos) << text;
}

}  // namespace
