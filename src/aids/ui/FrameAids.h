#pragma once
// What the frame's commands of the editing aids do: find and replace, word help, synonyms, preview and run. One for the
// whole program, made by the frame, which outlives it.

#include <string>

#include "aids/ui/FindReplace.h"
#include "editor/DocumentFrame.h"
#include "editor/ui/Mainwin.h"
#include "platform/qt/QtShell.h"

namespace aids::ui {

class FrameAids {
 public:
  /// `window` is the parent of all windows; the preview page goes into `programFolder`.
  FrameAids(QWidget& window, editor::DocumentFrame& frame, std::string programFolder);

  /// Gives a new document its aids.
  void Serve(editor::ui::Mainwin& document);

  // The commands, each for the document in front.
  void Find(editor::ui::Mainwin& document);
  void Replace(editor::ui::Mainwin& document);
  void FindNext(editor::ui::Mainwin& document);
  void AddSynonym(editor::ui::Mainwin& document);
  void EditSynonyms(editor::ui::Mainwin& document);
  void SaveSynonyms(editor::ui::Mainwin& document);
  void LoadSynonyms(editor::ui::Mainwin& document, const std::string& path);
  void ShowWordHelp(editor::ui::Mainwin& document);
  void GenerateJavaScriptPreview(editor::ui::Mainwin& document);
  void SaveExec(editor::ui::Mainwin& document);

 private:
  void OpenDialog(editor::ui::Mainwin& document);

  QWidget& m_window;
  editor::DocumentFrame& m_frame;
  std::string m_programFolder;
  platform::qt::QtShell m_shell;
  FindReplace m_findReplace;
};

}  // namespace aids::ui
