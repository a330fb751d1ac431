#pragma once
// One of KDE's syntax definitions as its file has it: contexts, lists of words and classes, found by name.

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "import/Definition.h"
#include "import/Xml.h"

namespace import {

class KdeSource {
 public:
  /// Takes the document, which is that of a definition (IsDefinition).
  KdeSource(XmlElement root, std::string file);
  KdeSource(KdeSource&&) = default;  // the elements stay where they are
  KdeSource(const KdeSource&) = delete;

  static bool IsDefinition(const XmlElement& root);

  const std::string& File() const { return m_file; }
  const XmlElement& Root() const { return m_root; }

  /// The context of a name; null for none. The first one's name is FirstContext().
  const XmlElement* Context(std::string_view name) const;
  const std::string& FirstContext() const { return m_first; }

  /// The <list> of a name; null for none.
  const XmlElement* List(std::string_view name) const;

  /// What a rule or a context with this attribute is drawn as; nothing for the plain text and for what marks faults.
  std::optional<Role> RoleOf(const std::string& attribute) const;

 private:
  void TakeHighlighting(const XmlElement& highlighting);

  std::string m_file, m_first;
  XmlElement m_root;
  std::map<std::string, const XmlElement*, std::less<>> m_contexts, m_lists;
  std::map<std::string, Role> m_roles;
};

/// Where a rule leads: how many contexts are left, and which one is entered.
struct KdeTarget {
  bool Pops = false;
  std::string Name;      ///< of the context; "" when none is entered
  std::string Language;  ///< of the context, when it is one of another definition

  static KdeTarget Of(std::string_view context);
};

}  // namespace import
