#include "platform/qt/HelpBrowser.h"

#include <QEvent>
#include <QRegularExpression>
#include <QScrollBar>
#include <algorithm>

#include "platform/qt/Text.h"
#include "platform/qt/ToolIcon.h"

namespace platform::qt {
namespace {

constexpr int PageMargin = 20, IconSize = 16;

QPixmap IconPicture(const QString& name, qreal ratio) {
  const int side = qRound(IconSize * ratio);
  QPixmap picture = ToolIcon(name.toStdString()).pixmap(QSize(side, side), 1.0);
  picture.setDevicePixelRatio(ratio);
  return picture;
}

}  // namespace

HelpBrowser::HelpBrowser(HelpCollection& collection, Shell& shell, QWidget* parent)
    : QTextBrowser(parent), m_collection(collection), m_shell(shell) {
  setObjectName(QStringLiteral("HelpPage"));
  setAccessibleName(tr("Help page"));
  setOpenLinks(false);
  setFrameShape(QFrame::NoFrame);
  document()->setDocumentMargin(PageMargin);
  connect(this, &QTextBrowser::anchorClicked, this, &HelpBrowser::Follow);
}

void HelpBrowser::Follow(const QUrl& link) {
  const QUrl whole = source().resolved(link);
  if (whole.scheme() == QLatin1String("qthelp"))
    setSource(whole);
  else
    m_shell.ShellExecute(whole.toString(QUrl::FullyEncoded).toStdString(), "");
}

QVariant HelpBrowser::loadResource(int, const QUrl& name) {
  if (name.scheme() == QLatin1String("icon")) return IconPicture(name.path(), devicePixelRatioF());
  const QUrl whole = source().resolved(name);
  if (whole.scheme() != QLatin1String("qthelp")) return {};  // a page brings nothing in from elsewhere
  return m_collection.Data(whole);
}

// What setSource does on its own fails without a word where a page cannot be read.
void HelpBrowser::doSetSource(const QUrl& name, QTextDocument::ResourceType type) {
  const bool readable = !m_collection.Data(name).isEmpty();
  QTextBrowser::doSetSource(name, type);
  document()->setDocumentMargin(PageMargin);
  if (!readable)
    setHtml(tr("<h1>This page cannot be read</h1><p>The help file is damaged, or it has no page of this name: %1.</p>")
                .arg(name.toString().toHtmlEscaped()));
}

void HelpBrowser::Mark(const std::vector<std::string>& words, bool scroll) {
  QList<QTextEdit::ExtraSelection> marks;
  QTextCharFormat look;
  look.setBackground(palette().color(QPalette::Highlight));
  look.setForeground(palette().color(QPalette::HighlightedText));
  for (const std::string& word : words) {
    const QRegularExpression beginning(
        QStringLiteral("(?<!\\w)") + QRegularExpression::escape(Text(word)),
        QRegularExpression::CaseInsensitiveOption | QRegularExpression::UseUnicodePropertiesOption);
    for (QTextCursor at = document()->find(beginning); !at.isNull(); at = document()->find(beginning, at))
      marks.push_back({at, look});
  }
  setExtraSelections(marks);
  if (!scroll || marks.isEmpty()) return;
  const auto first = std::min_element(marks.begin(), marks.end(), [](const auto& a, const auto& b) {
    return a.cursor.position() < b.cursor.position();
  });
  QTextCursor start = first->cursor;
  start.clearSelection();
  setTextCursor(start);
}

// The style sheet takes its colours from the desktop's palette while a page is read.
void HelpBrowser::changeEvent(QEvent* event) {
  QTextBrowser::changeEvent(event);
  if (event->type() != QEvent::PaletteChange || source().isEmpty()) return;
  const int place = verticalScrollBar()->value();
  reload();
  verticalScrollBar()->setValue(place);
}

}  // namespace platform::qt
