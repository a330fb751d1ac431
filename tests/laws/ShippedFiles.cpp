#include "ShippedFiles.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "rich_text/Encoding.h"
#include "templates/Loader.h"

namespace laws {
namespace {

namespace fs = std::filesystem;

const fs::path Source = QUILLMARK_SOURCE_DIR;

std::vector<fs::path> FilesBelow(const fs::path& folder) {
  std::vector<fs::path> files;
  if (!fs::is_directory(folder)) return files;
  for (const auto& entry : fs::recursive_directory_iterator(folder))
    if (entry.is_regular_file()) files.push_back(entry.path());
  std::sort(files.begin(), files.end());
  return files;
}

std::string DecodedFile(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  return rich_text::DecodeText(std::string(std::istreambuf_iterator<char>(file), {})).Text;
}

}  // namespace

bool ShippedText::BelongsTo(const ShippedTemplate& shipped) const {
  return Name == shipped.Name || Name.ends_with("." + shipped.Fields.DefaultExtension);
}

std::vector<ShippedTemplate> ShippedTemplates() {
  std::vector<ShippedTemplate> shipped;
  for (const fs::path& path : FilesBelow(Source / "data/templates")) {
    if (path.extension() != ".def") continue;
    templates::CollectedMessages messages;
    ShippedTemplate entry{path.filename().string(), {}};
    std::string helpFile;
    templates::LoadTemplateText(DecodedFile(path), entry.Name, entry.Fields, {}, messages, helpFile);
    shipped.push_back(std::move(entry));
  }
  return shipped;
}

std::vector<ShippedText> ShippedTexts() {
  std::vector<ShippedText> texts;
  for (const char* folder : {"examples", "data/templates"})
    for (const fs::path& path : FilesBelow(Source / folder))
      texts.push_back({path.filename().string(), DecodedFile(path)});
  return texts;
}

std::string Beginning(const std::string& text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  while (bytes > 0 && ((static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80 || text[bytes] == '\n')) --bytes;
  return text.substr(0, bytes);
}

}  // namespace laws
