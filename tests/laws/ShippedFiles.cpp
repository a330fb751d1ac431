#include "ShippedFiles.h"

#include <algorithm>
#include <filesystem>

#include "platform/Files.h"
#include "tests/support/LoadedTemplate.h"

namespace laws {
namespace {

namespace fs = std::filesystem;

/// The files of a folder of the sources and of those in it, decoded.
std::vector<ShippedText> TextsBelow(const char* folder) {
  std::vector<fs::path> paths;
  for (const auto& entry : fs::recursive_directory_iterator(fs::path(QUILLMARK_SOURCE_DIR) / folder))
    if (entry.is_regular_file()) paths.push_back(entry.path());
  std::sort(paths.begin(), paths.end());
  std::vector<ShippedText> texts;
  for (const fs::path& path : paths)
    texts.push_back({path.filename(), rich_text::DecodeText(platform::ReadFile(path).Bytes).Text});
  return texts;
}

}  // namespace

bool ShippedText::BelongsTo(const ShippedTemplate& shipped) const {
  return Name == shipped.Name || Name.ends_with("." + shipped.Fields.DefaultExtension);
}

std::vector<ShippedTemplate> ShippedTemplates() {
  std::vector<ShippedTemplate> shipped;
  for (const ShippedText& file : TextsBelow("data/templates")) {
    if (!file.Name.ends_with(".def")) continue;
    shipped.push_back({file.Name, tests::LoadedTemplate(file.Text)});
    const templates::TemplateFields& fields = shipped.back().Fields;
    EXPECT_EQ(fields.ColWords.Empty(), fields.TName == "Plain text") << file.Name;
  }
  return shipped;
}

std::vector<ShippedText> ShippedTexts() {
  std::vector<ShippedText> texts = TextsBelow("examples");
  for (ShippedText& text : TextsBelow("data/templates")) texts.push_back(std::move(text));
  return texts;
}

std::string Beginning(const std::string& text, std::size_t bytes) {
  if (text.size() <= bytes) return text;
  while (bytes > 0 && ((static_cast<unsigned char>(text[bytes]) & 0xC0) == 0x80 || text[bytes] == '\n')) --bytes;
  return text.substr(0, bytes);
}

}  // namespace laws
