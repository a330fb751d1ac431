#pragma once
// The compiled help: a Qt Help collection that is only read, never written, so that it may lie in a folder of the
// system.

#include <QHelpEngine>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/HelpSearch.h"

namespace platform::qt {

class HelpCollection {
 public:
  /// Opens a collection; "" or why it cannot be shown, as a sentence for the user.
  std::string Open(const std::string& file);

  /// Contents and keywords; only while a collection is open.
  QHelpEngine& Engine() { return *m_engine; }

  /// The address of a page by its file name, perhaps with "#" and a place.
  static QUrl UrlOf(std::string_view page);
  /// The file name of a page by its address, with the place if there is one; "" for an address outside the help.
  static std::string PageOf(const QUrl& url);

  /// The bytes of a file of the help, none when it is not there.
  QByteArray Data(const QUrl& url) const { return m_engine->fileData(url.adjusted(QUrl::RemoveFragment)); }

  /// All pages, for the search.
  std::vector<HelpPage> Pages() const;

 private:
  std::unique_ptr<QHelpEngine> m_engine;
};

}  // namespace platform::qt
