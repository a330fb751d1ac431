#pragma once
// The word in which the caret stands.

#include <cstddef>

#include "platform/TextControl.h"
#include "templates/Model.h"

namespace aids {

/// [Start, End), bytes; empty between two delimiters.
struct WordRange {
  std::size_t Start = 0, End = 0;
  bool Empty() const { return End <= Start; }
};

/// From behind the nearest delimiter before the caret to the nearest one after it, or to the ends of the text.
WordRange WordAtCaret(const platform::TextControl& control, const templates::TemplateFields& fields);

}  // namespace aids
