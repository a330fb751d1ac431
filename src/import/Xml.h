#pragma once
// A small reader of XML: elements, attributes, text, CDATA, and the entities that the document itself declares. Nothing
// is fetched, and entities that multiply are stopped. All texts are UTF-8.

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace import {

struct XmlElement {
  std::string Name;
  std::vector<std::pair<std::string, std::string>> Attributes;
  std::vector<XmlElement> Children;
  std::string Text;  ///< that of the element itself, in one piece
  std::size_t Line = 0;

  /// An attribute's value; "" when there is none.
  const std::string& Attribute(std::string_view name) const;

  /// Whether an attribute says true, in one of the ways that are in use.
  bool Flag(std::string_view name) const;

  /// The first child of a name; null when there is none.
  const XmlElement* Child(std::string_view name) const;
};

struct XmlDocument {
  XmlElement Root;
  std::size_t ErrorLine = 0;
  std::string Error;  ///< "" or what is wrong, a sentence
};

/// Reads a document.
XmlDocument ReadXml(std::string_view text);

}  // namespace import
