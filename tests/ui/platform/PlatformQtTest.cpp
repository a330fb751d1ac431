// Message boxes, file choosers, fonts and the event loop of the real platform.

#include <gtest/gtest.h>

#include <QColorDialog>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>

#include "platform/qt/FontChoice.h"
#include "platform/qt/QtEventLoop.h"
#include "platform/qt/QtPrompts.h"
#include "tests/ui/Widgets.h"

namespace tests {
namespace {

using namespace platform;
using qt::QtPrompts;

TEST(QtPrompts, ShowsTheBoxAsAskedAndGivesTheAnswer) {
  QtPrompts prompts;
  const MessageBox box{"Save changes to \"<b>x</b>\" before closing?", "Title", PromptButtons::YesNoCancel,
                       PromptIcon::Question, PromptAnswer::Cancel};
  InModalWindow<QMessageBox>([&](QMessageBox& shown) {
    EXPECT_EQ(shown.text().toStdString(), box.Text);
    EXPECT_EQ(shown.textFormat(), Qt::PlainText);
    EXPECT_EQ(shown.windowTitle(), QStringLiteral("Title"));
    EXPECT_FALSE(shown.iconPixmap().isNull());
    EXPECT_EQ(shown.defaultButton(), shown.button(QMessageBox::Cancel));
    EXPECT_EQ(shown.buttons().size(), 3);
    shown.button(QMessageBox::No)->click();
  });
  EXPECT_EQ(prompts.Show(box), PromptAnswer::No);
  struct Closing {
    PromptButtons Buttons;
    PromptAnswer Default, Answer;
  };
  for (const Closing& c : {Closing{PromptButtons::YesNoCancel, PromptAnswer::Yes, PromptAnswer::Cancel},
                           Closing{PromptButtons::OkCancel, PromptAnswer::Ok, PromptAnswer::Cancel},
                           Closing{PromptButtons::YesNo, PromptAnswer::Yes, PromptAnswer::No},
                           Closing{PromptButtons::Ok, PromptAnswer::Ok, PromptAnswer::Ok}}) {
    InModalWindow<QMessageBox>([](QMessageBox& shown) { shown.close(); });
    EXPECT_EQ(prompts.Show({"x", "y", c.Buttons, PromptIcon::None, c.Default}), c.Answer);
  }
}

TEST(QtPrompts, FontAndColourChoosersStartWithWhatIsAndGiveWhatIsChosen) {
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  QtPrompts prompts;
  FontRecord font{.Name = "DejaVu Sans", .Size = 12.5, .Bold = true, .Underline = true, .Fixed = true};
  InModalWindow<QFontDialog>([](QFontDialog& shown) {
    EXPECT_TRUE(shown.currentFont().bold() && shown.currentFont().underline());
    QFont changed = shown.currentFont();
    changed.setStrikeOut(true);
    shown.setCurrentFont(changed);
    shown.accept();
  });
  const std::optional<FontRecord> chosen = prompts.AskFont(font);
  font.Strikethrough = true;
  ASSERT_TRUE(chosen.has_value());
  EXPECT_EQ(*chosen, font);
  InModalWindow<QFontDialog>([](QFontDialog& shown) { shown.reject(); });
  EXPECT_EQ(prompts.AskFont(font), std::nullopt);

  InModalWindow<QColorDialog>([](QColorDialog& shown) {
    EXPECT_EQ(shown.currentColor(), QColor(1, 2, 3));
    shown.setCurrentColor(QColor(0xAB, 0xCD, 0xEF));
    shown.accept();
  });
  EXPECT_EQ(prompts.AskColour(0x030201), 0xEFCDABU);
  InModalWindow<QColorDialog>([](QColorDialog& shown) { shown.reject(); });
  EXPECT_EQ(prompts.AskColour(0x030201), std::nullopt);
}

TEST(QtPrompts, FileChoosersUseTheFiltersAndRememberTheFolder) {
  QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
  const QTemporaryDir folder;
  QtPrompts prompts;
  FileQuestion question{"Save Script",
                        {{"JavaScript File", {"*.js", "*.mjs"}}, {"All Files", {"*.*"}}},
                        folder.path().toStdString(),
                        "new"};
  InModalWindow<QFileDialog>([](QFileDialog& shown) {
    EXPECT_EQ(shown.nameFilters(),
              (QStringList{QStringLiteral("JavaScript File (*.js *.mjs)"), QStringLiteral("All Files (*)")}));
    EXPECT_EQ(shown.acceptMode(), QFileDialog::AcceptSave);
    QMetaObject::invokeMethod(&shown, "accept");
  });
  EXPECT_EQ(prompts.AskSaveFile(question), folder.filePath(QStringLiteral("new.js")).toStdString());
  question.Folder.clear();
  InModalWindow<QFileDialog>([&](QFileDialog& shown) {
    EXPECT_EQ(shown.directory().absolutePath(), folder.path());
    shown.reject();
  });
  EXPECT_EQ(prompts.AskOpenFile(question), "");
}

TEST(FontChoice, AMissingFixedFaceGetsAFixedSubstitute) {
  EXPECT_TRUE(qt::IsFixedWidth(qt::FamilyFor({.Name = "No Such Face 123", .Fixed = true})));
  EXPECT_FALSE(qt::FamilyFor({.Name = "No Such Face 123"}).isEmpty());
  const QString installed = qt::FamilyFor({.Name = "DejaVu Sans"});
  EXPECT_EQ(installed, QStringLiteral("DejaVu Sans"));
  EXPECT_FALSE(qt::IsFixedWidth(installed));
}

TEST(QtEventLoop, DoEventsDeliversWhatIsPending) {
  qt::QtEventLoop loop;
  bool delivered = false;
  QTimer::singleShot(0, [&] { delivered = true; });
  const auto before = loop.Milliseconds();
  loop.DoEvents();
  EXPECT_TRUE(delivered);
  EXPECT_GE(loop.Milliseconds(), before);
}

}  // namespace
}  // namespace tests
