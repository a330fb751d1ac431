#include "import/Xml.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <map>

#include "import/Definition.h"
#include "rich_text/Encoding.h"

namespace import {
namespace {

constexpr std::size_t MostEntitySteps = 100'000;

bool IsBlank(char c) {
  return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool IsNameCharacter(char c) {
  return static_cast<unsigned char>(c) >= 0x80 || std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '_' ||
         c == ':' || c == '-' || c == '.';
}

class Reader {
 public:
  explicit Reader(std::string_view text) : m_text(text) {}

  XmlDocument Run() {
    Prolog();
    if (m_document.Error.empty()) Element(m_document.Root, 0);
    return std::move(m_document);
  }

 private:
  bool AtEnd() const { return m_at >= m_text.size(); }
  bool Sees(std::string_view what) const { return m_text.substr(m_at).starts_with(what); }
  bool Take(std::string_view what) {
    if (!Sees(what)) return false;
    m_at += what.size();
    return true;
  }
  void SkipBlanks() {
    while (!AtEnd() && IsBlank(m_text[m_at])) ++m_at;
  }
  std::size_t LineOf(std::size_t place);
  bool Fail(std::string why) {
    if (m_document.Error.empty()) {
      m_document.ErrorLine = LineOf(std::min(m_at, m_text.size()));
      m_document.Error = std::move(why);
    }
    return false;
  }
  bool SkipTo(std::string_view end, const char* what);
  std::string Name();
  void Prolog();
  bool Doctype();
  bool Declaration();
  bool Element(XmlElement& element, std::size_t depth);
  bool Attributes(XmlElement& element);
  bool Content(XmlElement& element, std::size_t depth);
  bool Quoted(std::string_view& value);
  bool Decode(std::string& result, std::string_view raw, std::size_t depth);
  bool Reference(std::string& result, std::string_view name, std::size_t depth);

  std::string_view m_text;
  std::size_t m_at = 0;
  std::size_t m_counted = 0, m_line = 1;  ///< the line of the offset m_counted
  std::map<std::string, std::string, std::less<>> m_entities;
  std::size_t m_stepsLeft = MostEntitySteps, m_bytesLeft = MostBytes;
  XmlDocument m_document;
};

/// The line of a place; places are asked for from the front to the back.
std::size_t Reader::LineOf(std::size_t place) {
  if (place > m_counted) {
    const std::string_view passed = m_text.substr(m_counted, place - m_counted);
    m_line += static_cast<std::size_t>(std::count(passed.begin(), passed.end(), '\n'));
    m_counted = place;
  }
  return m_line;
}

bool Reader::SkipTo(std::string_view end, const char* what) {
  const std::size_t place = m_text.find(end, m_at);
  if (place == std::string_view::npos) return Fail(std::string("The ") + what + " that begins here never ends.");
  m_at = place + end.size();
  return true;
}

std::string Reader::Name() {
  const std::size_t start = m_at;
  while (!AtEnd() && IsNameCharacter(m_text[m_at])) ++m_at;
  return std::string(m_text.substr(start, m_at - start));
}

/// What stands before the root element, the declarations of entities among it.
void Reader::Prolog() {
  while (true) {
    SkipBlanks();
    if (Sees("<?")) {
      if (!SkipTo("?>", "instruction")) return;
    } else if (Sees("<!--")) {
      if (!SkipTo("-->", "comment")) return;
    } else if (Take("<!DOCTYPE")) {
      if (!Doctype()) return;
    } else if (Sees("<")) {
      return;
    } else {
      Fail("The file is no XML: an element was expected here.");
      return;
    }
  }
}

bool Reader::Doctype() {
  bool inside = false;
  while (!AtEnd()) {
    std::string_view ignored;
    if (Sees("<!--")) {
      if (!SkipTo("-->", "comment")) return false;
    } else if (Take("<!ENTITY")) {
      if (!Declaration()) return false;
    } else if (m_text[m_at] == '"' || m_text[m_at] == '\'') {
      if (!Quoted(ignored)) return false;
    } else if (Sees("[") || Sees("]")) {
      inside = m_text[m_at++] == '[';
    } else if (m_text[m_at++] == '>' && !inside) {
      return true;
    }
  }
  return Fail("The document type never ends.");
}

/// <!ENTITY name "value">. What is declared as lying elsewhere is not fetched, so it stays unknown.
bool Reader::Declaration() {
  SkipBlanks();
  const std::string name = Name();
  SkipBlanks();
  if (!name.empty() && !AtEnd() && (m_text[m_at] == '"' || m_text[m_at] == '\'')) {
    std::string_view value;
    if (!Quoted(value)) return false;
    m_entities.try_emplace(name, value);
  }
  std::string_view ignored;
  while (!AtEnd() && m_text[m_at] != '>') {
    if (m_text[m_at] != '"' && m_text[m_at] != '\'')
      ++m_at;
    else if (!Quoted(ignored))
      return false;
  }
  return Take(">") || Fail("The declaration never ends.");
}

bool Reader::Quoted(std::string_view& value) {
  if (AtEnd() || (m_text[m_at] != '"' && m_text[m_at] != '\'')) return Fail("A value in quotes was expected here.");
  const char quote = m_text[m_at];
  const std::size_t end = m_text.find(quote, m_at + 1);
  if (end == std::string_view::npos) return Fail("The value that begins here never ends.");
  value = m_text.substr(m_at + 1, end - m_at - 1);
  m_at = end + 1;
  return true;
}

/// Appends a text with what its references stand for.
bool Reader::Decode(std::string& result, std::string_view raw, std::size_t depth) {
  if (raw.size() > m_bytesLeft) return Fail("The entities stand for too much text.");
  m_bytesLeft -= raw.size();
  while (true) {
    const std::size_t mark = raw.find('&');
    result += raw.substr(0, mark);
    if (mark == std::string_view::npos) return true;
    const std::size_t end = raw.find(';', mark);
    if (end == std::string_view::npos) return Fail("A \"&\" begins no entity.");
    if (!Reference(result, raw.substr(mark + 1, end - mark - 1), depth)) return false;
    raw.remove_prefix(end + 1);
  }
}

bool Reader::Reference(std::string& result, std::string_view name, std::size_t depth) {
  constexpr std::pair<std::string_view, char> Known[] = {
      {"lt", '<'}, {"gt", '>'}, {"amp", '&'}, {"quot", '"'}, {"apos", '\''}};
  for (const auto& [known, character] : Known)
    if (name == known) {
      result += character;
      return true;
    }
  if (name.starts_with('#')) {
    const bool hex = name.starts_with("#x");
    name.remove_prefix(hex ? 2 : 1);
    std::uint32_t value = 0;
    const auto [end, error] = std::from_chars(name.data(), name.data() + name.size(), value, hex ? 16 : 10);
    const bool isCharacter = value > 0 && value <= 0x10FFFF && (value < 0xD800 || value > 0xDFFF);
    if (error != std::errc{} || end != name.data() + name.size() || !isCharacter)
      return Fail("A number stands for no character.");
    rich_text::AppendUtf8(result, value);
    return true;
  }
  const auto entity = m_entities.find(name);
  if (entity == m_entities.end())
    return Fail("The entity \"" + std::string(name.substr(0, 40)) + "\" is not declared in the file; none is fetched.");
  if (m_stepsLeft-- == 0 || depth >= MostNesting) return Fail("The entities stand for too much text.");
  return Decode(result, entity->second, depth + 1);
}

bool Reader::Attributes(XmlElement& element) {
  while (true) {
    SkipBlanks();
    if (AtEnd()) return Fail("The element \"" + element.Name + "\" is cut off.");
    if (Sees(">") || Sees("/>")) return true;
    auto& [name, value] = element.Attributes.emplace_back(Name(), "");
    SkipBlanks();
    if (name.empty() || !Take("="))
      return Fail("The element \"" + element.Name + "\" has an attribute without a value.");
    SkipBlanks();
    std::string_view raw;
    if (!Quoted(raw) || !Decode(value, raw, 0)) return false;
  }
}

bool Reader::Element(XmlElement& element, std::size_t depth) {
  element.Line = LineOf(m_at);
  if (depth >= MostNesting) return Fail("Elements are nested more than " + std::to_string(MostNesting) + " deep.");
  ++m_at;  // "<"
  element.Name = Name();
  if (element.Name.empty()) return Fail("A \"<\" begins no element.");
  if (!Attributes(element)) return false;
  if (Take("/>")) return true;
  ++m_at;  // ">"
  return Content(element, depth);
}

bool Reader::Content(XmlElement& element, std::size_t depth) {
  while (!AtEnd()) {
    const std::size_t mark = std::min(m_text.find('<', m_at), m_text.size());
    if (!Decode(element.Text, m_text.substr(m_at, mark - m_at), 0)) return false;
    m_at = mark;
    if (Sees("<!--")) {
      if (!SkipTo("-->", "comment")) return false;
    } else if (Take("<![CDATA[")) {
      const std::size_t start = m_at;
      if (!SkipTo("]]>", "CDATA section")) return false;
      element.Text += m_text.substr(start, m_at - 3 - start);
    } else if (Sees("<?")) {
      if (!SkipTo("?>", "instruction")) return false;
    } else if (Take("</")) {
      if (Name() != element.Name)
        return Fail("The element \"" + element.Name + "\" is not the one that is closed here.");
      SkipBlanks();
      return Take(">") || Fail("The end of the element \"" + element.Name + "\" is cut off.");
    } else if (!AtEnd() && !Element(element.Children.emplace_back(), depth + 1)) {
      return false;
    }
  }
  return Fail("The element \"" + element.Name + "\" is never closed.");
}

}  // namespace

const std::string& XmlElement::Attribute(std::string_view name) const {
  static const std::string None;
  const auto place = std::find_if(Attributes.begin(), Attributes.end(),
                                  [&](const auto& attribute) { return attribute.first == name; });
  return place == Attributes.end() ? None : place->second;
}

bool XmlElement::Flag(std::string_view name) const {
  const std::string value = rich_text::LowerCase(Attribute(name));
  return value == "true" || value == "1";
}

const XmlElement* XmlElement::Child(std::string_view name) const {
  const auto place =
      std::find_if(Children.begin(), Children.end(), [&](const XmlElement& child) { return child.Name == name; });
  return place == Children.end() ? nullptr : &*place;
}

XmlDocument ReadXml(std::string_view text) {
  return Reader(text).Run();
}

}  // namespace import
