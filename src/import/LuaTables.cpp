#include "import/LuaTables.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "import/LuaTokens.h"

namespace import {
namespace {

constexpr std::size_t LongestText = 1'000'000;

const LuaValue Nothing;

/// What a file, with those that it takes in, may cost.
struct Budget {
  std::size_t Bytes = MostBytes;  ///< of texts that are made of other texts
  int Files = 10;                 ///< to be taken in
  int CopiedTables = 100;
};

class Reader {
 public:
  Reader(LuaFile& file, std::string_view text, std::string name, const NeighbourFiles& neighbours, Budget& left)
      : m_file(file), m_tokens(text), m_name(std::move(name)), m_neighbours(neighbours), m_left(left) {}

  void Run();

 private:
  void Advance() {
    m_token = m_tokens.Next();
    if (m_token.Kind == LuaToken::Sort::Bad) Fail(m_token.Line, m_token.Text);
  }
  bool Take(std::string_view mark) {
    if (!m_token.Is(mark)) return false;
    Advance();
    return true;
  }
  bool AtEnd() const { return m_token.Kind == LuaToken::Sort::End || m_token.Kind == LuaToken::Sort::Bad; }
  void Fail(std::size_t line, std::string why) {
    if (m_file.Error.empty()) m_file.ErrorLine = line, m_file.Error = std::move(why);
  }
  void Lose(std::size_t line, std::string what) { m_file.Losses.push_back({m_name, line, std::move(what)}); }

  void Statement();
  void Assign(const std::string& name);
  void Insert(std::size_t line);
  void RunFile(std::size_t line);
  void SkipBlock();
  void SkipStatement(std::size_t line);
  std::optional<LuaValue> Expression(std::size_t depth);
  std::optional<LuaValue> Simple(std::size_t depth);
  std::optional<LuaValue> TableOf(std::size_t depth);
  bool Field(LuaTable& table, std::size_t depth);

  /// Pays for bytes that are made anew; false when there is nothing left to pay with.
  bool Pay(std::size_t bytes) {
    const bool enough = bytes <= m_left.Bytes;
    if (enough) m_left.Bytes -= bytes;
    return enough;
  }

  LuaFile& m_file;
  LuaTokens m_tokens;
  std::string m_name;
  const NeighbourFiles& m_neighbours;
  Budget& m_left;
  LuaToken m_token;
};

void Reader::Run() {
  Advance();
  while (!AtEnd()) Statement();
}

void Reader::Statement() {
  if (m_token.Is(";")) return Advance();
  const LuaToken first = m_token;
  if (first.Kind != LuaToken::Sort::Name) return SkipStatement(first.Line);
  for (const char* block : {"function", "if", "for", "while", "do"})
    if (first.IsName(block)) {
      Lose(first.Line, "The " + first.Text + " that begins here is not run.");
      return SkipBlock();
    }
  Advance();
  if (first.IsName("local")) {
    if (m_token.IsName("function")) return SkipBlock();
    return;  // the assignment follows
  }
  if (Take("=")) return Assign(first.Text);
  if (first.IsName("dofile")) return RunFile(first.Line);
  if (first.IsName("table") && Take(".") && m_token.IsName("insert")) return Insert(first.Line);
  SkipStatement(first.Line);
}

void Reader::Assign(const std::string& name) {
  const std::size_t line = m_token.Line;
  if (auto value = Expression(0))
    m_file.Globals[name] = std::move(*value);
  else
    SkipStatement(line);
}

/// table.insert(Name, value)
void Reader::Insert(std::size_t line) {
  Advance();
  if (!Take("(") || m_token.Kind != LuaToken::Sort::Name) return SkipStatement(line);
  const auto target = m_file.Globals.find(m_token.Text);
  Advance();
  const bool known = target != m_file.Globals.end() && target->second.Table != nullptr;
  auto value = known && Take(",") ? Expression(1) : std::nullopt;
  if (!value || !Take(")")) return SkipStatement(line);
  // A table that another holds too, perhaps the value itself, is copied first, so that none ever holds itself.
  if (target->second.Table.use_count() > 1) {
    if (m_left.CopiedTables-- <= 0) return SkipStatement(line);
    target->second.Table = std::make_shared<LuaTable>(*target->second.Table);
  }
  LuaTable& table = *target->second.Table;
  if (value->Table != nullptr) table.Depth = std::max(table.Depth, value->Table->Depth + 1);
  if (table.Depth > MostNesting) return SkipStatement(line);
  table.Fields.push_back({"", std::move(*value)});
}

/// dofile(HL_LANG_DIR.."name.lang"): the folder's name is a global without a value, so the text is the file's name.
void Reader::RunFile(std::size_t line) {
  std::string name;
  while (!AtEnd() && !m_token.Is(")")) {
    if (m_token.Kind == LuaToken::Sort::Text) name = m_token.Text;
    Advance();
  }
  Take(")");
  const auto text = IsPlainFileName(name) && m_left.Files > 0 ? m_neighbours(name) : std::nullopt;
  if (!text) return Lose(line, "The file \"" + name + "\" that is to be taken in cannot be read.");
  --m_left.Files;
  Reader(m_file, *text, name, m_neighbours, m_left).Run();
}

/// Steps over a block up to its "end".
void Reader::SkipBlock() {
  const std::size_t line = m_token.Line;
  std::size_t open = 0;
  for (bool loopHead = false; !AtEnd(); Advance()) {
    const bool loop = m_token.IsName("for") || m_token.IsName("while");
    if (m_token.IsName("function") || m_token.IsName("if") || loop || m_token.IsName("repeat") ||
        (m_token.IsName("do") && !loopHead))
      ++open;
    loopHead = loop || (loopHead && !m_token.IsName("do"));
    if ((m_token.IsName("end") || m_token.IsName("until")) && --open == 0) return Advance();
  }
  Fail(line, "The block that begins here never ends.");
}

/// Steps over what is not understood, up to the next line that could begin a statement.
void Reader::SkipStatement(std::size_t line) {
  if (m_file.Error.empty()) Lose(line, "This statement is not understood and left out.");
  do Advance();
  while (!AtEnd() && !(m_token.FirstInLine && m_token.Kind == LuaToken::Sort::Name));
}

std::optional<LuaValue> Reader::Expression(std::size_t depth) {
  auto value = Simple(depth);
  while (value && Take("..")) {
    const auto more = Simple(depth);
    if (!more || more->Table != nullptr || value->Table != nullptr) return std::nullopt;
    if (value->Text.size() + more->Text.size() > LongestText || !Pay(more->Text.size())) return std::nullopt;
    value->Text += more->Text;
    value->Kind = LuaValue::Sort::Text;
  }
  return value;
}

std::optional<LuaValue> Reader::Simple(std::size_t depth) {
  LuaValue value;
  value.Line = m_token.Line;
  const LuaToken token = m_token;
  if (token.Is("{")) return TableOf(depth);
  if (token.Kind == LuaToken::Sort::Text || token.Kind == LuaToken::Sort::Number) {
    value.Kind = token.Kind == LuaToken::Sort::Text ? LuaValue::Sort::Text : LuaValue::Sort::Number;
    value.Text = token.Text;
  } else if (token.IsName("true") || token.IsName("false")) {
    value.Kind = LuaValue::Sort::Boolean;
    value.Truth = token.IsName("true");
  } else if (token.Kind == LuaToken::Sort::Name && !token.IsName("function")) {
    value = m_file.At(token.Text);
    if (!Pay(value.Text.size())) return std::nullopt;
  } else {
    return std::nullopt;
  }
  Advance();
  if (m_token.Is("(") || m_token.Is(".") || m_token.Is(":") || m_token.Is("[")) return std::nullopt;
  return value;
}

std::optional<LuaValue> Reader::TableOf(std::size_t depth) {
  LuaValue value;
  value.Kind = LuaValue::Sort::Table;
  value.Line = m_token.Line;
  value.Table = std::make_shared<LuaTable>();
  if (depth >= MostNesting) {
    Fail(value.Line, "Tables are nested more than " + std::to_string(MostNesting) + " deep.");
    return std::nullopt;
  }
  Advance();
  while (!Take("}")) {
    if (AtEnd()) {
      Fail(value.Line, "The table that begins here never ends.");
      return std::nullopt;
    }
    if (!Field(*value.Table, depth + 1)) return std::nullopt;
    if (!Take(",") && !Take(";") && !m_token.Is("}") && !AtEnd()) return std::nullopt;
  }
  if (value.Table->Depth <= MostNesting) return value;
  Fail(value.Line, "Tables are nested more than " + std::to_string(MostNesting) + " deep.");
  return std::nullopt;
}

/// One field: a value, name = value or [value] = value.
bool Reader::Field(LuaTable& table, std::size_t depth) {
  LuaField field;
  std::optional<LuaValue> value;
  if (Take("[")) {
    const auto key = Expression(depth);
    if (!key || key->Table != nullptr || !Take("]") || !Take("=")) return false;
    field.Key = key->Kind == LuaValue::Sort::Text ? key->Text : "";
    value = Expression(depth);
  } else if (m_token.Kind == LuaToken::Sort::Name) {
    const LuaToken name = m_token;
    const LuaValue& known = m_file.At(name.Text);
    Advance();
    if (Take("=")) {
      field.Key = name.Text;
      value = Expression(depth);
    } else if (m_token.Is(",") || m_token.Is("}") || m_token.Is(";")) {
      if (!Pay(known.Text.size())) return false;
      value = known;
      if (name.IsName("true") || name.IsName("false")) {
        value->Kind = LuaValue::Sort::Boolean;
        value->Truth = name.IsName("true");
      }
    }
  } else {
    value = Expression(depth);
  }
  if (!value) return false;
  if (value->Table != nullptr) table.Depth = std::max(table.Depth, value->Table->Depth + 1);
  field.Value = std::move(*value);
  table.Fields.push_back(std::move(field));
  return true;
}

/// The comments before the first statement, where an author writes who and what.
std::vector<std::string> LeadingComments(std::string_view text) {
  std::vector<std::string> comments;
  while (true) {
    const std::size_t start = text.find_first_not_of(" \t\r\n");
    if (start == std::string_view::npos || text.substr(start, 2) != "--") return comments;
    text.remove_prefix(start + 2);
    const bool isLong = text.starts_with("[[");
    const std::size_t end = std::min(isLong ? text.find("]]") : text.find('\n'), text.size());
    std::string_view comment = text.substr(isLong ? 2 : 0, end - (isLong && end >= 2 ? 2 : 0));
    while (!comment.empty()) {
      const std::size_t lineEnd = std::min(comment.find('\n'), comment.size());
      comments.emplace_back(comment.substr(0, lineEnd));
      comment.remove_prefix(std::min(lineEnd + 1, comment.size()));
    }
    text.remove_prefix(std::min(end + (isLong ? 2 : 1), text.size()));
  }
}

}  // namespace

const LuaValue& LuaTable::At(std::string_view key) const {
  const auto place =
      std::find_if(Fields.rbegin(), Fields.rend(), [&](const LuaField& field) { return field.Key == key; });
  return place == Fields.rend() ? Nothing : place->Value;
}

const LuaValue& LuaFile::At(std::string_view name) const {
  const auto place = Globals.find(name);
  return place == Globals.end() ? Nothing : place->second;
}

LuaFile ReadLuaTables(std::string_view text, const std::string& file, const NeighbourFiles& neighbours) {
  LuaFile read;
  read.Comments = LeadingComments(text);
  Budget left;
  Reader(read, text, file, neighbours, left).Run();
  return read;
}

}  // namespace import
