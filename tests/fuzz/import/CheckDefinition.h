#pragma once
// What every fuzzer of a reader of definitions does with what the reader gives: a template is made of it, which must
// load without a bad line.

#include <cstdio>

#include "import/TemplateMaker.h"
#include "rich_text/Encoding.h"
#include "templates/Loader.h"
#include "templates/Writer.h"
#include "tests/fuzz/Fuzzer.h"

namespace fuzz {

inline void CheckDefinition(import::ReadDefinition read) {
  if (!read.Error.empty()) return;
  read.Read.HasNumbers = false;  // a thousand lines that are always the same
  const std::string text = templates::WriteTemplate(import::MakeTemplate(std::move(read.Read), "d").Template, "d");
  templates::TemplateFields fields;
  templates::CollectedMessages messages;
  std::string helpFile;
  templates::LoadTemplateText(text, "x.def", fields, {}, messages, helpFile);
  for (const templates::LoadProblem& problem : messages.Problems)
    std::fprintf(stderr, "%s: %s\n", problem.Line.c_str(), problem.Reason.c_str());
  Require(messages.Problems.empty());
}

}  // namespace fuzz
