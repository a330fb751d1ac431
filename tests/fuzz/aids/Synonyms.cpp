// The reader of synonym files: what is read and can be written comes back the same.

#include "aids/SynonymFile.h"
#include "tests/fuzz/Fuzzer.h"

namespace {

std::string Written(const std::vector<templates::Synonym>& records) {
  templates::KeyedCollection<templates::Synonym> synonyms;
  for (const templates::Synonym& record : records) aids::ReplaceSynonym(synonyms, record);
  return aids::WriteSynonyms(synonyms, "");
}

}  // namespace

void fuzz::Try(const std::string& bytes) {
  const auto records = aids::ReadSynonyms(bytes);
  if (!records) return;
  const auto again = aids::ReadSynonyms(Written(*records));
  Require(again && Written(*again) == Written(*records));
}
