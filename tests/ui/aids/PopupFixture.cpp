#include "tests/ui/aids/PopupFixture.h"

#include <QHash>
#include <QKeyEvent>

namespace tests {
namespace {

struct NamedKey {
  int Key;
  const char* Text;
};

/// The key of one character or of a name in angle brackets.
NamedKey KeyOf(const QString& key) {
  static const QHash<QString, NamedKey> names = {
      {QStringLiteral("<Tab>"), {Qt::Key_Tab, "\t"}},      {QStringLiteral("<Enter>"), {Qt::Key_Return, "\r"}},
      {QStringLiteral("<Esc>"), {Qt::Key_Escape, "\x1b"}}, {QStringLiteral("<BS>"), {Qt::Key_Backspace, "\b"}},
      {QStringLiteral("<Up>"), {Qt::Key_Up, ""}},          {QStringLiteral("<Down>"), {Qt::Key_Down, ""}},
      {QStringLiteral("<PageUp>"), {Qt::Key_PageUp, ""}},  {QStringLiteral("<PageDown>"), {Qt::Key_PageDown, ""}},
      {QStringLiteral("<Left>"), {Qt::Key_Left, ""}},
  };
  return names.value(key, {key.at(0).toUpper().unicode(), nullptr});
}

}  // namespace

void PopupFixture::Open(const std::string& name, const std::string& text) {
  FrameFixture::Open(name, text);
  Text().SetSelStart(Text().Length());
  QApplication::processEvents();
}

void PopupFixture::Send(QEvent::Type type, const QString& key, bool repeated) {
  const NamedKey named = KeyOf(key);
  QKeyEvent event(type, named.Key, Qt::NoModifier, named.Text ? QString::fromLatin1(named.Text) : key, repeated);
  QApplication::sendEvent(QApplication::focusWidget(), &event);
}

void PopupFixture::Type(const QString& keys) {
  for (qsizetype i = 0; i < keys.size();) {
    const qsizetype end = keys[i] == QLatin1Char('<') ? keys.indexOf(QLatin1Char('>'), i) + 1 : i + 1;
    const QString key = keys.mid(i, end - i);
    Press(key);
    Release(key);
    i = end;
  }
}

std::string PopupFixture::Selected() {
  const QModelIndexList rows = CList().selectionModel()->selectedIndexes();
  return rows.isEmpty() ? std::string() : rows.first().data().toString().toStdString();
}

}  // namespace tests
