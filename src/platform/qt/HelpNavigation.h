#pragma once
// The left half of the help window: contents, keywords and the full-text search, each on a page of its own. Each says
// which page of the help the user wants.

#include <QLineEdit>
#include <QListWidget>
#include <QTabWidget>
#include <optional>

#include "platform/qt/HelpCollection.h"

class QHelpContentWidget;
class QHelpIndexWidget;
class QLabel;

namespace platform::qt {

class HelpNavigation : public QTabWidget {
  Q_OBJECT

 public:
  /// The collection is open and outlives it.
  HelpNavigation(HelpCollection& collection, QWidget* parent);

  void ShowContents();
  void ShowKeywords();  ///< with an empty field that has the keyboard
  void ShowSearch();    ///< the field with its words selected
  void TakeKeyboard();  ///< to where one types or chooses on the page in front

  /// Marks the page in the contents.
  void PageShown(const QUrl& page);

 Q_SIGNALS:
  void PageWanted(const QUrl& page);
  /// A page that the search found, with the words looked for.
  void FoundPageWanted(const QUrl& page, const std::vector<std::string>& words);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  QWidget* MakeContents();
  QWidget* MakeKeywords();
  QWidget* MakeSearch();
  void Search(const QString& query);
  void Open(const QListWidgetItem* hit);

  HelpCollection& m_collection;
  std::optional<HelpSearch> m_search;  ///< made when something is looked for first
  QUrl m_page;
  QHelpContentWidget* m_contents;
  QLineEdit* m_keyword;
  QHelpIndexWidget* m_keywords;
  QLineEdit* m_words;
  QLabel* m_count;
  QListWidget* m_hits;
};

}  // namespace platform::qt
