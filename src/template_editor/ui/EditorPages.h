#pragma once
// The pages of the template editor's window that are made of fields, buttons and lists. Each places the controls that
// the form makes for it, and shows what the form does not: options, captions, swatches and pictures. The form must
// outlive them.

#include <QButtonGroup>
#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QListWidget>
#include <QToolButton>

#include "template_editor/ui/EditorForm.h"
#include "template_editor/ui/Swatch.h"

class QBoxLayout;
class QGridLayout;
class QTreeView;

namespace template_editor::ui {

class GeneralPage : public QWidget {
 public:
  GeneralPage(EditorForm& form, QWidget* parent);

 private:
  QWidget* Delimeters();
  QWidget* RunCommand();
  QGroupBox* Fonts();
  void ShowRest();

  EditorForm& m_form;
  QCheckBox* m_caseSense;
  QLabel* m_delimLabel = nullptr;
  QButtonGroup* m_fonts;  ///< ids are the file's numbers
};

class ColourWordsPage : public QWidget {
 public:
  ColourWordsPage(EditorForm& form, QWidget* parent);

 private:
  QGroupBox* Palette();
  QGroupBox* Words();
  QGroupBox* Until();
  RowSource PaletteRows();
  RowSource WordRows();
  const templates::PaletteColour* ColourOfRow(std::size_t row) const;
  void ShowRest();

  EditorForm& m_form;
  SwatchBox* m_colourShown = nullptr;
  QLabel* m_colourName = nullptr;
  QCheckBox* m_include = nullptr;
  QButtonGroup* m_until;  ///< ids are the file's numbers
};

class ActionWordsPage : public QWidget {
 public:
  ActionWordsPage(EditorForm& form, QWidget* parent);

  /// Gives ClearButton its caption of letters one below the other.
  void StackClear();

 private:
  QGroupBox* Words();
  QGroupBox* Delimeters();
  QGroupBox* Actions();
  QGroupBox* WordList();
  QWidget* Icons();
  QGroupBox* Information();
  void ShowRest();

  EditorForm& m_form;
  QGroupBox *m_delimetersFrame = nullptr, *m_actionFrame = nullptr, *m_wordListFrame = nullptr;
  QButtonGroup *m_actions, *m_icons;  ///< ids are the file's numbers
  QLabel *m_toolTipLabel, *m_word = nullptr, *m_delimeter = nullptr, *m_toolTip = nullptr;
};

class SynonymsPage : public QWidget {
 public:
  SynonymsPage(EditorForm& form, QWidget* parent);

  /// The page has been brought to the front: lists the template's action words and fits the columns to their texts.
  void Opened();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void FitColumns();
  void Take(int actionWord);

  EditorForm& m_form;
  QTreeView* m_rows;
  QListWidget* m_actionWords;
};

class AboutPage : public QWidget {
 public:
  AboutPage(EditorForm& form, QWidget* parent);
};

/// Three buttons Add, Remove and Change in a row; `what` says of what, for screen readers.
struct ButtonRow {
  Button Add, Remove, Change;
};
QBoxLayout* MakeButtonRow(EditorForm& form, const ButtonRow& buttons, const QString& what, QWidget* parent);

/// An option of a group.
void AddOption(QButtonGroup& group, int id, const char* name, const QString& caption, QBoxLayout& layout);

/// Keeps a widget from growing with its text: it gets as much room as its neighbours leave, and shows what fits.
void DoNotGrow(QWidget& widget);

}  // namespace template_editor::ui
