#include "import/KdeSource.h"

#include <utility>

#include "templates/Values.h"

namespace import {
namespace {

struct Style {
  std::string_view Name;
  Role Class;
};
/// The default styles, without the "ds" before their names. What is missing is drawn as plain text.
constexpr Style Styles[] = {
    {"Keyword", Role::Keyword},
    {"ControlFlow", Role::Keyword},
    {"Import", Role::Keyword},
    {"Operator", Role::Keyword},
    {"DataType", Role::Type},
    {"Extension", Role::Type},
    {"DecVal", Role::Literal},
    {"BaseN", Role::Literal},
    {"Float", Role::Literal},
    {"Constant", Role::Literal},
    {"Char", Role::Text},
    {"SpecialChar", Role::Text},
    {"String", Role::Text},
    {"VerbatimString", Role::Text},
    {"SpecialString", Role::Text},
    {"Comment", Role::Comment},
    {"Documentation", Role::Comment},
    {"CommentVar", Role::Comment},
    {"Annotation", Role::Directive},
    {"Attribute", Role::Directive},
    {"Preprocessor", Role::Directive},
    {"Function", Role::Function},
    {"BuiltIn", Role::Function},
    {"Variable", Role::Function},
    {"Others", Role::Function},
};

}  // namespace

KdeSource::KdeSource(XmlElement root, std::string file) : m_file(std::move(file)), m_root(std::move(root)) {
  if (const XmlElement* highlighting = m_root.Child("highlighting")) TakeHighlighting(*highlighting);
}

bool KdeSource::IsDefinition(const XmlElement& root) {
  return root.Name == "language" && root.Child("highlighting") != nullptr;
}

void KdeSource::TakeHighlighting(const XmlElement& highlighting) {
  for (const XmlElement& part : highlighting.Children) {
    if (part.Name == "list") m_lists.try_emplace(part.Attribute("name"), &part);
    for (const XmlElement& one : part.Children) {
      if (part.Name == "contexts" && one.Name == "context") {
        if (m_contexts.empty()) m_first = one.Attribute("name");
        m_contexts.try_emplace(one.Attribute("name"), &one);
      }
      if (part.Name != "itemDatas") continue;
      std::string_view style = one.Attribute("defStyleNum");
      if (style.starts_with("ds")) style.remove_prefix(2);
      for (const Style& known : Styles)
        if (known.Name == style) m_roles.try_emplace(one.Attribute("name"), known.Class);
    }
  }
}

const XmlElement* KdeSource::Context(std::string_view name) const {
  const auto place = m_contexts.find(name);
  return place == m_contexts.end() ? nullptr : place->second;
}

const XmlElement* KdeSource::List(std::string_view name) const {
  const auto place = m_lists.find(name);
  return place == m_lists.end() ? nullptr : place->second;
}

std::optional<Role> KdeSource::RoleOf(const std::string& attribute) const {
  const auto place = m_roles.find(attribute);
  return place == m_roles.end() ? std::nullopt : std::optional(place->second);
}

KdeTarget KdeTarget::Of(std::string_view context) {
  KdeTarget target;
  context = templates::Trimmed(context);
  while (context.starts_with("#pop")) {
    target.Pops = true;
    context.remove_prefix(4);
  }
  if (context.starts_with('!')) context.remove_prefix(1);
  if (const std::size_t mark = context.find("##"); mark != std::string_view::npos) {
    target.Language = context.substr(mark + 2);
    context = context.substr(0, mark);
  }
  if (context != "#stay") target.Name = context;
  return target;
}

}  // namespace import
