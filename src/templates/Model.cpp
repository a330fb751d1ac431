#include "templates/Model.h"

#include <algorithm>

namespace templates {

void WrdAct::SetNumberOfWords(std::int16_t count) {
  m_numberOfWords = count;
  if (count <= 0) return;
  m_words.assign(static_cast<std::size_t>(count), {});
  m_icons.assign(static_cast<std::size_t>(count), 0);
}

std::size_t WrdAct::Index(int place) const {
  if (place < 1 || static_cast<std::size_t>(place) > m_words.size())
    throw platform::Failure(platform::Failure::OutOfRange, "a place outside the word list");
  return static_cast<std::size_t>(place) - 1;
}

const std::string& WrdAct::WordList(int place) const {
  return m_words[Index(place)];
}

void WrdAct::SetWordList(int place, std::string text) {
  m_words[Index(place)] = std::move(text);
}

std::int32_t WrdAct::IconList(int place) const {
  return m_icons[Index(place)];
}

void WrdAct::SetIconList(int place, std::int32_t icon) {
  m_icons[Index(place)] = icon;
}

void WrdAct::FillWordList(std::vector<std::string>& list) const {
  list.assign(m_words.begin(), m_words.begin() + std::max<std::int16_t>(m_numberOfWords, 0));
}

void WrdAct::FillIconList(std::vector<std::int32_t>& list) const {
  list.assign(m_icons.begin(), m_icons.begin() + std::max<std::int16_t>(m_numberOfWords, 0));
}

void WrdAct::AddTo(KeyedCollection<WrdAct>& target) {
  target.Add(shared_from_this(), Delimeter);
}

void Word::AddTo(KeyedCollection<Word>& target) {
  target.AddIfAbsent(shared_from_this(), Name);
}

void colWord::AddTo(KeyedCollection<colWord>& target) {
  target.AddIfAbsent(shared_from_this(), StartWord);
}

bool TemplateFields::IsDelimeter(std::string_view text) const {
  if (text.empty()) return false;
  const auto first = text.substr(0, rich_text::CharacterBytes(text.front()));
  return std::find(Delimeters.begin(), Delimeters.end(), first) != Delimeters.end();
}

std::vector<std::string> ExtensionsOf(std::string_view list) {
  if (list.find(';') == std::string_view::npos) return {std::string(list)};
  std::vector<std::string> extensions;
  while (true) {
    const std::size_t end = std::min(list.find(';'), list.size());
    const std::string_view entry = list.substr(0, end);
    if (const std::size_t first = entry.find_first_not_of(' '); first != std::string_view::npos)
      extensions.emplace_back(entry.substr(first, entry.find_last_not_of(' ') - first + 1));
    if (end == list.size()) return extensions;
    list.remove_prefix(end + 1);
  }
}

bool NamesExtension(std::string_view list, std::string_view extension) {
  const std::string wanted = rich_text::LowerCase(extension);
  const auto extensions = ExtensionsOf(list);
  return std::any_of(extensions.begin(), extensions.end(),
                     [&](const std::string& entry) { return rich_text::LowerCase(entry) == wanted; });
}

std::string FileOfExtension(const std::vector<Template>& list, std::string_view extension) {
  for (const Template& record : list)
    if (NamesExtension(record.Extension, extension)) return record.FileName;
  return "";
}

}  // namespace templates
