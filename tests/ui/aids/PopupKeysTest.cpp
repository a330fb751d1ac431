// Typing code with the templates that ship while the completion list and the tooltip come and go.

#include <QApplication>
#include <QInputMethodEvent>
#include <random>

#include "tests/ui/aids/PopupFixture.h"

namespace tests {
namespace {

class PopupKeys : public PopupFixture {
 protected:
  PopupKeys() { Open("a.js", ""); }
};

/// What is seen then: "list" with its selected word, "tip".
TEST_F(PopupKeys, CodeIsCompletedAsItIsTypedAndTheTipComesWithItsCall) {
  struct Case {
    const char* Keys;
    std::string Text, Seen;
  };
  const Case cases[] = {
      {"document.", "document.", "list "},
      {"document.cre", "document.cre", "list createAttribute"},
      {"document.cre<Backspace><Backspace>", "document.c", "list characterSet"},
      {"document.cre<Tab>", "document.createAttribute", ""},
      {"document.createEle<Return>", "document.createElement\r\n", ""},
      {"  document.createEle<Return>x", "  document.createElement\r\n  x", ""},
      {"document.createEle('a');", "document.createElement('a');", ""},
      {"document.title.x", "document.title.x", ""},
      {"document.bo window.al", "document.body window.al", "list alert"},
      {"document.Cre", "document.Cre", "list "},
      {"document.zz<Tab>", "document.zz", ""},
      {"document.zz(1)", "document.zz(1)", ""},
      {"document.<Return>x", "document.\r\nx", ""},
      {"document.cre<Esc><Tab>x", "document.cre    x", ""},
      {"document.<Up>", "document.", "list activeElement"},
      {"document.<Down><Down><Tab>", "document.addEventListener", ""},
      {"document.<Down><Down><Up>", "document.", "list activeElement"},
      {"document.cre<Down>(", "document.createComment(", ""},
      {"document.<PgDown><PgUp>", "document.", "list activeElement"},
      {"document.wri<Down><Down><Tab>", "document.writeln", ""},  // past the last row the key is the caret's
      {"document.x<Backspace><Backspace>", "document", ""},
      {"document.<Left>", "document.", ""},
      {"document.<Shift+Esc>", "document.", "list "},
      {"xdocument.cre<Tab>", "xdocument.cre    ", ""},
      {"setTimeout(document.bo,1)", "setTimeout(document.body,1)", ""},
      {"prxyz(1)<Home>document.<Down><Down><Tab>_", "document.addEventListener_(1)", ""},  // the tail goes too
      {"setTimeout(", "setTimeout(", "tip"},
      {"x = setTimeout(", "x = setTimeout(", "tip"},
      {"setTimeout", "setTimeout", ""},
      {"setTimeout(f", "setTimeout(f", "tip"},
      {"setTimeout()", "setTimeout()", ""},
      {"setTimeout(<Esc>", "setTimeout(", ""},
      {"setTimeout(<Backspace>", "setTimeout", "tip"},
      {"setTimeout(<Backspace><Backspace>", "setTimeou", ""},
      {"setTimeout(a<Return>", "setTimeout(a\r\n", ""},
      {"xsetTimeout(", "xsetTimeout(", ""},
      {"setTimeout(document.", "setTimeout(document.", "list tip"},
      {"setTimeout(document.bo)", "setTimeout(document.body)", ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Keys);
    Text().SetText("");
    Play(c.Keys);
    EXPECT_EQ(Text().Text(), c.Text);
    std::string seen = List().isVisible() ? "list " + Selected() : "";
    if (Tip().isVisible()) seen += "tip";
    EXPECT_EQ(seen, c.Seen);
    Play("<Esc>");
    EXPECT_FALSE(List().isVisible() || Tip().isVisible());
  }
}

TEST_F(PopupKeys, AFastTypistLosesNothing) {
  const QString typed = QStringLiteral("document.cre");
  for (const QChar c : typed) Press(c);
  for (const QChar c : typed) Release(c);
  EXPECT_TRUE(List().isVisible());
  EXPECT_EQ(Selected(), "createAttribute");
  for (int i = 0; i < 4; ++i) Send(true, Qt::Key_Down, {}, i > 0);
  Send(false, Qt::Key_Down);
  EXPECT_EQ(Selected(), "createElementNS") << "a key held down goes on";
  for (const QChar c : {u'(', u'x'}) Press(c);
  for (const QChar c : {u'(', u'x'}) Release(c);
  EXPECT_EQ(Text().Text(), "document.createElementNS(x");
}

/// All keys are down before the first one goes up: the pop-up stands where its word is, or nowhere.
TEST_F(PopupKeys, APopupStandsAtItsWordHoweverFarTheTypistIs) {
  m_frame.ActiveDocument()->SetTemplate(m_folder.Write(
      "D.def",
      "S: False\nD: .(),\nW: \"doc\" 2\n2 \".\" 1\n\"\"\nprint 1\n1 \"(\" 0\n\"doc(a, b)\"\nY: \"d\" \"DOC\"\n"));
  struct Case {
    const char* Typed;
    int Place;  ///< where the word of the tooltip begins, or that of the list ends; -1 for nowhere
  };
  for (const Case& c : {Case{"x doc.", 6}, Case{"doc.pr", 4}, Case{"doc.pr,", -1}, Case{"doc.\b x", -1}, Case{"d.", 2},
                        Case{"doc(", 0}, Case{"x DOC(a, ", 2}, Case{"d(", 0}, Case{"\xC3\xA9 doc(\xE2\x82\xAC", 3},
                        Case{"dox(", -1}, Case{"doc.,d.", 7}, Case{"doc(d.pr", 6}}) {
    SCOPED_TRACE(c.Typed);
    Text().SetText("");
    const QString keys = QString::fromUtf8(c.Typed);
    const bool isList = keys.contains(u'.'), isShown = c.Place >= 0;
    for (const QChar key : keys) key == u'\b' ? Send(true, Qt::Key_Backspace) : Press(key);
    for (const QChar key : keys) Release(key);
    EXPECT_EQ(List().isVisible(), isList && isShown);
    EXPECT_EQ(Tip().isVisible(), !isList && isShown);
    if (isShown) {
      const int x = OnScreen(static_cast<std::size_t>(c.Place)).x();
      EXPECT_EQ(isList ? List().x() + 21 : Tip().x() + 1, x);
    }
    Play("<Esc>");
  }
}

/// Words that begin no entry, so that the list, open or not, writes nothing: the text is what was typed.
TEST_F(PopupKeys, NoKeyIsLostOrDoubledWhileAListIsOpen) {
  const QStringList pieces = {QStringLiteral("Atomics."),    QStringLiteral("Reflect."), QStringLiteral("Math."),
                              QStringLiteral("setTimeout("), QStringLiteral("_q1"),      QStringLiteral("Zz"),
                              QStringLiteral(" "),           QStringLiteral(")"),        QStringLiteral(";"),
                              QStringLiteral("<Esc>")};
  for (unsigned seed = 0; seed < 20; ++seed) {
    SCOPED_TRACE(seed);
    std::mt19937 dice(seed);
    Text().SetText("");
    QString expected;
    QString down;
    int listsSeen = 0;
    for (int i = 0; i < 40; ++i) {
      QString piece = pieces[static_cast<qsizetype>(dice() % static_cast<unsigned>(pieces.size()))];
      if (piece == QStringLiteral("<Esc>")) {
        Play("<Esc>");
        continue;
      }
      expected += piece;
      for (const QChar c : piece) {
        Press(c);
        down.append(c);
        for (; !down.isEmpty() && dice() % 3 != 0; down.remove(0, 1)) Release(down[0]);
        listsSeen += List().isVisible() ? 1 : 0;
      }
    }
    for (const QChar c : down) Release(c);
    EXPECT_EQ(Text().Text(), expected.toStdString());
    EXPECT_GT(listsSeen, 0);
  }
}

TEST_F(PopupKeys, WhatAnInputMethodGivesOpensAndNarrowsToo) {
  const auto commit = [&](const char* text) {
    QInputMethodEvent event;
    event.setCommitString(QString::fromUtf8(text));
    QApplication::sendEvent(&Text(), &event);
  };
  commit("document.");
  EXPECT_TRUE(List().isVisible());
  commit("bo");
  EXPECT_EQ(Selected(), "body");
  commit(";");
  EXPECT_EQ(Text().Text(), "document.body;");
  EXPECT_FALSE(List().isVisible());
  commit("setTimeout(f");
  EXPECT_TRUE(Tip().isVisible());
}

}  // namespace
}  // namespace tests
