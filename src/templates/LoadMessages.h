#pragma once
// What a template's readers have to say about the file: each line that they do not understand, as a structure, handed
// to whoever listens: the user, one message box each, or a list. All texts are UTF-8; line numbers are 1-based.

#include <cstddef>
#include <string>
#include <vector>

#include "platform/Prompts.h"

namespace templates {

/// One line with a fault.
struct LoadProblem {
  enum class Sort {
    Unrecognized,  ///< no record begins with its first character
    BadFont,       ///< a font number out of range
    BadValue,      ///< any other value that does not convert; the line has no effect, or as little as Reason tells
  };

  Sort Kind = Sort::BadValue;
  std::string File;  ///< as it was given to the reader
  std::size_t LineNumber = 0;
  std::string Line;
  std::string Reason;      ///< a sentence
  bool MayCancel = false;  ///< whether the answer "no further" counts
};

class LoadMessages {
 public:
  virtual ~LoadMessages() = default;

  /// Takes notice of a problem; false to stop the reading, which counts only where MayCancel is true.
  virtual bool Report(const LoadProblem& problem) = 0;
};

/// Shows each problem in a message box "Error Loading Template".
class PromptMessages : public LoadMessages {
 public:
  /// The prompts must outlive it.
  explicit PromptMessages(platform::Prompts& prompts) : m_prompts(prompts) {}
  bool Report(const LoadProblem& problem) override;

 private:
  platform::Prompts& m_prompts;
};

/// Keeps the problems and always goes on.
class CollectedMessages : public LoadMessages {
 public:
  std::vector<LoadProblem> Problems;
  bool Report(const LoadProblem& problem) override;
};

}  // namespace templates
