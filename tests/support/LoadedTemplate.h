#pragma once
// A template as a document has it, written in a test.

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "templates/Loader.h"

namespace tests {

/// Loads a definition that has no fault; `initialText` gets the text that new documents start with.
inline templates::TemplateFields LoadedTemplate(std::string_view definition, std::string* initialText = nullptr) {
  templates::TemplateFields fields;
  templates::CollectedMessages messages;
  std::string helpFile;
  const templates::LoadResult loaded =
      templates::LoadTemplateText(definition, "test.def", fields, {}, messages, helpFile);
  for (const templates::LoadProblem& problem : messages.Problems)
    ADD_FAILURE() << "line " << problem.LineNumber << ": " << problem.Line << ": " << problem.Reason;
  if (initialText) *initialText = loaded.InitialText;
  return fields;
}

}  // namespace tests
