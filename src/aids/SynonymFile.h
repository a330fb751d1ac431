#pragma once
// Synonym files: a first line that names the format, a warning, and one record a line.
//
// Nothing makes the reading fail but a first line of another format: what stands behind the second line gives records
// or is passed over.

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "templates/Model.h"

namespace aids {

/// The file's text for the synonyms of a document with the path `curFileName`, "" for one without. A synonym with a
/// quote or a line end in it cannot be written and is left out.
std::string WriteSynonyms(const templates::KeyedCollection<templates::Synonym>& synonyms, std::string_view curFileName);

/// The records in the file's text, in order; nothing when its first line is another format's.
std::optional<std::vector<templates::Synonym>> ReadSynonyms(std::string_view text);

/// Adds a synonym under its word; one that had the word goes.
void ReplaceSynonym(templates::KeyedCollection<templates::Synonym>& synonyms, const templates::Synonym& synonym);

}  // namespace aids
