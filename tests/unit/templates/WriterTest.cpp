#include "templates/Writer.h"

#include <gtest/gtest.h>

#include "tests/unit/templates/SampleTemplates.h"

namespace {

using namespace templates;

std::string WithCrLf(std::string_view text) {
  std::string converted;
  for (char c : text) converted += c == '\n' ? std::string("\r\n") : std::string(1, c);
  return converted;
}

TEST(Writer, EveryByteOfAFile) {
  EXPECT_EQ(WriteTemplate(tests::FullTemplate(), "31/12/2024"),
            WithCrLf(R"FILE(;Generated using Quillmark 3.1 on 31/12/2024

T: 12
// ü
N: x


H: help/js.hdf
R: "node" "%s"
N: Java Script
X: js;mjs
D: ,.(ü
S: True
V: 2.1
A: Ann Ö
E: today
M: none; really
F: 2

C: #0000FF
;Red
C: #00A0B0
;

L: rem 1  2 True
L: /* 2 */ 1 False
W: "for each" 2
2 "." 2
""
get it 5
x 1
1 "(" 0
"(a, b)"
Y: "new" "for each"
Y: "new" "x"
)FILE"));
}

TEST(Writer, ANewTemplate) {
  EXPECT_EQ(WriteTemplate(EditorTemplate{}, "d"), WithCrLf(R"FILE(;Generated using Quillmark 3.1 on d

T: 0


H: .hdf
R: 
N: New Template
X: 
D: ,./*+-=()[]{}#!%?;:
S: False
V: 
A: 
E: 
M: 
F: 1


)FILE"));
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
