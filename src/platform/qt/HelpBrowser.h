#pragma once
// The page of the help window: shows pages of the help alone, with the tools' icons; other links go to the desktop.

#include <QTextBrowser>

#include "platform/Shell.h"
#include "platform/qt/HelpCollection.h"

namespace platform::qt {

class HelpBrowser : public QTextBrowser {
  Q_OBJECT

 public:
  /// Both must outlive it.
  HelpBrowser(HelpCollection& collection, Shell& shell, QWidget* parent);

  /// Marks every place of these words (in lower case) in the page, and shows the first when `scroll` is set.
  void Mark(const std::vector<std::string>& words, bool scroll);

  QVariant loadResource(int type, const QUrl& name) override;

 protected:
  void doSetSource(const QUrl& name, QTextDocument::ResourceType type) override;
  void changeEvent(QEvent* event) override;

 private:
  void Follow(const QUrl& link);

  HelpCollection& m_collection;
  Shell& m_shell;
};

}  // namespace platform::qt
