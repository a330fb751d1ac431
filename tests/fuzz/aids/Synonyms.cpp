// Feeds any bytes to the reader of synonym files. What is read and can be written comes back the same.

#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "aids/SynonymFile.h"

namespace {

using Synonyms = templates::KeyedCollection<templates::Synonym>;

Synonyms Collected(const std::vector<templates::Synonym>& records) {
  Synonyms synonyms;
  for (const templates::Synonym& record : records) aids::ReplaceSynonym(synonyms, record);
  return synonyms;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto records = aids::ReadSynonyms({reinterpret_cast<const char*>(data), size});
  if (!records) return 0;
  const std::string written = aids::WriteSynonyms(Collected(*records), "");
  const auto again = aids::ReadSynonyms(written);
  if (!again || aids::WriteSynonyms(Collected(*again), "") != written) std::abort();
  return 0;
}
