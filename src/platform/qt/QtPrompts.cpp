#include "platform/qt/QtPrompts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QHeaderView>
#include <QMessageBox>
#include <QTreeView>

#include "platform/qt/Colour.h"
#include "platform/qt/FontChoice.h"
#include "platform/qt/ToolIcon.h"

namespace platform::qt {
namespace {

constexpr int IconSize = 40;  // pixels

QMessageBox::StandardButtons ButtonsOf(PromptButtons buttons) {
  switch (buttons) {
    case PromptButtons::OkCancel:
      return QMessageBox::Ok | QMessageBox::Cancel;
    case PromptButtons::YesNo:
      return QMessageBox::Yes | QMessageBox::No;
    case PromptButtons::YesNoCancel:
      return QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel;
    default:
      return QMessageBox::Ok;
  }
}

/// The drawing that a box bears; the style's own would be coarse on screens of many pixels.
QIcon IconOf(PromptIcon icon) {
  switch (icon) {
    case PromptIcon::Critical:
      return ToolIcon("critical");
    case PromptIcon::Question:
      return ToolIcon("question");
    case PromptIcon::Exclamation:
      return ToolIcon("exclamation");
    case PromptIcon::Information:
      return ToolIcon("about");
    default:
      return {};
  }
}

QMessageBox::StandardButton ButtonOf(PromptAnswer answer) {
  return answer == PromptAnswer::Ok       ? QMessageBox::Ok
         : answer == PromptAnswer::Cancel ? QMessageBox::Cancel
         : answer == PromptAnswer::Yes    ? QMessageBox::Yes
                                          : QMessageBox::No;
}

/// What closing the box without a button means.
PromptAnswer AnswerOfClosing(PromptButtons buttons) {
  return buttons == PromptButtons::Ok      ? PromptAnswer::Ok
         : buttons == PromptButtons::YesNo ? PromptAnswer::No
                                           : PromptAnswer::Cancel;
}

QString FilterText(const FileFilter& filter) {
  QStringList patterns;
  for (const std::string& pattern : filter.Patterns)
    patterns += pattern == "*.*" ? QStringLiteral("*") : QString::fromStdString(pattern);
  return QString::fromStdString(filter.Description) + QStringLiteral(" (") + patterns.join(QLatin1Char(' ')) +
         QLatin1Char(')');
}

/// The extension that a name without one gets; "" where the filter names none.
QString SuffixOf(const FileFilter& filter) {
  const QString pattern = filter.Patterns.empty() ? QString() : QString::fromStdString(filter.Patterns.front());
  const QString suffix = pattern.startsWith(QLatin1String("*.")) ? pattern.mid(2) : QString();
  return suffix.contains(QLatin1Char('*')) || suffix.contains(QLatin1Char('?')) ? QString() : suffix;
}

/// Makes the toolkit's own chooser wide enough to read sizes, kinds and times. The desktop's chooser, where there is
/// one, knows best itself.
void WidenColumns(QFileDialog& dialog) {
  const auto* list = dialog.findChild<QTreeView*>(QStringLiteral("treeView"));
  if (!list) return;
  QHeaderView& header = *list->header();
  const char* samples[] = {"a name of a file of some length", "1023.99 KiB", "plain text document",
                           "26 Sep 2026 23:59:59"};
  int width = 0;
  for (int column = 0; column < header.count() && column < 4; ++column) {
    const int needed = list->fontMetrics().horizontalAdvance(QLatin1String(samples[column])) + 24;
    if (header.sectionSize(column) < needed) header.resizeSection(column, needed);
    width += header.sectionSize(column);
  }
  dialog.resize(dialog.size().expandedTo(QSize(width * 5 / 4, width * 3 / 4)));
}

}  // namespace

PromptAnswer QtPrompts::Show(const MessageBox& box) {
  QMessageBox dialog(QApplication::activeWindow());
  dialog.setTextFormat(Qt::PlainText);  // file names may look like markup
  dialog.setText(QString::fromStdString(box.Text));
  dialog.setWindowTitle(QString::fromStdString(box.Title));
  dialog.setIconPixmap(IconOf(box.Icon).pixmap({IconSize, IconSize}, dialog.devicePixelRatio()));
  dialog.setStandardButtons(ButtonsOf(box.Buttons));
  for (QAbstractButton* button : dialog.buttons()) button->setIcon({});
  dialog.setDefaultButton(ButtonOf(box.Default));
  const PromptAnswer closing = AnswerOfClosing(box.Buttons);
  dialog.setEscapeButton(ButtonOf(closing));
  const int button = dialog.exec();
  for (const PromptAnswer answer : {PromptAnswer::Ok, PromptAnswer::Cancel, PromptAnswer::Yes, PromptAnswer::No})
    if (button == ButtonOf(answer)) return answer;
  return closing;
}

std::string QtPrompts::AskOpenFile(const FileQuestion& question) {
  return Ask(question, false);
}

std::string QtPrompts::AskSaveFile(const FileQuestion& question) {
  return Ask(question, true);
}

std::string QtPrompts::Ask(const FileQuestion& question, bool forSaving) {
  QFileDialog dialog(QApplication::activeWindow(), QString::fromStdString(question.Title),
                     question.Folder.empty() ? m_lastFolder : QString::fromStdString(question.Folder));
  dialog.setAcceptMode(forSaving ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(forSaving ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  QStringList filters;
  for (const FileFilter& filter : question.Filters) filters += FilterText(filter);
  if (!filters.isEmpty()) dialog.setNameFilters(filters);
  const auto useSuffix = [&](const QString& selected) {
    const auto place = filters.indexOf(selected);
    if (forSaving && place >= 0) dialog.setDefaultSuffix(SuffixOf(question.Filters[static_cast<std::size_t>(place)]));
  };
  if (!filters.isEmpty()) dialog.selectNameFilter(filters.value(static_cast<qsizetype>(question.Selected)));
  useSuffix(dialog.selectedNameFilter());
  QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, useSuffix);
  if (!question.SuggestedName.empty()) dialog.selectFile(QString::fromStdString(question.SuggestedName));
  WidenColumns(dialog);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return "";
  if (question.Folder.empty()) m_lastFolder = dialog.directory().absolutePath();
  return dialog.selectedFiles().constFirst().toStdString();
}

std::optional<FontRecord> QtPrompts::AskFont(const FontRecord& initial) {
  bool accepted = false;
  const QFont font = QFontDialog::getFont(&accepted, FontOf(initial), QApplication::activeWindow());
  if (!accepted) return std::nullopt;
  FontRecord chosen = initial;
  chosen.Name = font.family().toStdString();
  // The chooser knows whole points alone: a size with a fraction stays when its row was left selected.
  if (font.pointSizeF() > 0 && qRound(font.pointSizeF()) != qRound(initial.Size)) chosen.Size = font.pointSizeF();
  chosen.Bold = font.bold();
  chosen.Italic = font.italic();
  chosen.Strikethrough = font.strikeOut();
  chosen.Underline = font.underline();
  return chosen;
}

std::optional<rich_text::ColourValue> QtPrompts::AskColour(rich_text::ColourValue initial) {
  const QColor chosen = QColorDialog::getColor(ColourOf(initial), QApplication::activeWindow());
  return chosen.isValid() ? std::optional(ValueOf(chosen)) : std::nullopt;
}

}  // namespace platform::qt
