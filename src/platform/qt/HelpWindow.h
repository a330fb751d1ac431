#pragma once
// The help window: contents, keywords and search beside the page. It is a window of its own, so that it can stand next
// to the one that the user works in, and stays usable while a dialog is open. Closing it hides it; it keeps its place,
// its size, its page and the way back.

#include <QMainWindow>

#include "platform/qt/HelpBrowser.h"
#include "platform/qt/HelpCollection.h"
#include "platform/qt/HelpNavigation.h"

namespace platform::qt {

class HelpWindow : public QMainWindow {
  Q_OBJECT

 public:
  /// Shows an open collection, which it takes over. The shell opens links that lead out of the help.
  HelpWindow(std::unique_ptr<HelpCollection> collection, Shell& shell);
  ~HelpWindow() override;

  /// Each brings the window to the front: with the contents, with the field of keywords, with a page
  /// ("PAGE.html#PLACE").
  void ShowContents();
  void ShowKeywords();
  void ShowPage(std::string_view page);

  HelpBrowser& Page() { return *m_page; }

 protected:
  void hideEvent(QHideEvent* event) override;

 private:
  void MakeTools();
  void MakeKeys();
  void BringToFront();
  void OpenFound(const QUrl& page, const std::vector<std::string>& words);
  void Zoom(int steps);

  std::unique_ptr<HelpCollection> m_collection;
  HelpNavigation* m_navigation;
  HelpBrowser* m_page;
  QByteArray m_place;
  int m_zoom = 0;
};

}  // namespace platform::qt
