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

TEST_F(PopupKeys, CodeIsCompletedAsItIsTyped) {
  struct Case {
    const char* Keys;
    std::string Text;
    bool ListShown;
    std::string Selected;
  };
  const Case cases[] = {
      {"document.", "document.", true, ""},
      {"document.cre", "document.cre", true, "createAttribute"},
      {"document.cre<BS><BS>", "document.c", true, "characterSet"},
      {"document.cre<Tab>", "document.createAttribute", false, ""},
      {"document.createEle<Enter>", "document.createElement\r\n", false, ""},
      {"  document.createEle<Enter>x", "  document.createElement\r\n  x", false, ""},
      {"document.createEle('a');", "document.createElement('a');", false, ""},
      {"document.title.x", "document.title.x", false, ""},
      {"document.bo window.al", "document.body window.al", true, "alert"},
      {"document.Cre", "document.Cre", true, ""},
      {"document.zz<Tab>", "document.zz", false, ""},
      {"document.zz(1)", "document.zz(1)", false, ""},
      {"document.<Enter>x", "document.\r\nx", false, ""},
      {"document.cre<Esc><Tab>x", "document.cre    x", false, ""},
      {"document.<Up>", "document.", true, "activeElement"},
      {"document.<Down><Down><Tab>", "document.addEventListener", false, ""},
      {"document.<Down><Down><Up>", "document.", true, "activeElement"},
      {"document.cre<Down>(", "document.createComment(", false, ""},
      {"document.<PageDown><PageUp>", "document.", true, "activeElement"},
      {"document.wri<Down><Down><Tab>", "document.writeln", false, ""},  // past the last row the key is the caret's
      {"document.x<BS><BS>", "document", false, ""},
      {"xdocument.cre<Tab>", "xdocument.cre    ", false, ""},
      {"setTimeout(document.bo,1)", "setTimeout(document.body,1)", false, ""},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Keys);
    Text().SetText("");
    Type(QString::fromLatin1(c.Keys));
    EXPECT_EQ(Text().Text(), c.Text);
    EXPECT_EQ(List().isVisible(), c.ListShown);
    EXPECT_EQ(Selected(), c.Selected);
    Type(QStringLiteral("<Esc>"));
    EXPECT_FALSE(List().isVisible());
  }
}

TEST_F(PopupKeys, TheTailOfTheWordUnderTheCaretGoesToo) {
  Text().SetText("documentprxyz(1)");
  Text().SetSelStart(8);
  Type(QStringLiteral(".<Down><Down><Tab>"));
  EXPECT_EQ(Text().Text(), "document.addEventListener(1)");
  EXPECT_EQ(Text().SelStart(), 25u);
  EXPECT_FALSE(m_frame.ActiveDocument()->Saved());
}

TEST_F(PopupKeys, TheTipComesWithItsCallAndGoesWithIt) {
  struct Case {
    const char* Keys;
    bool Shown;
  };
  const Case cases[] = {
      {"setTimeout(", true},     {"x = setTimeout(", true},      {"setTimeout", false},
      {"setTimeout(f", true},    {"setTimeout()", false},        {"setTimeout(<Esc>", false},
      {"setTimeout(<BS>", true}, {"setTimeout(<BS><BS>", false}, {"setTimeout(a<Enter>", false},
      {"xsetTimeout(", false},
  };
  for (const Case& c : cases) {
    SCOPED_TRACE(c.Keys);
    Text().SetText("");
    Type(QString::fromLatin1(c.Keys));
    EXPECT_EQ(Tip().isVisible(), c.Shown);
    Type(QStringLiteral("<Esc>"));
  }
}

TEST_F(PopupKeys, AFastTypistLosesNothing) {
  const QString typed = QStringLiteral("document.cre");
  for (const QChar c : typed) Press(QString(c));
  for (const QChar c : typed) Release(QString(c));
  EXPECT_TRUE(List().isVisible());
  EXPECT_EQ(Selected(), "createAttribute");
  Press(QStringLiteral("<Down>"));
  for (int i = 0; i < 3; ++i) Press(QStringLiteral("<Down>"), true);
  Release(QStringLiteral("<Down>"));
  EXPECT_EQ(Selected(), "createElementNS") << "a key held down goes on";
  Press(QStringLiteral("("));
  Press(QStringLiteral("x"));
  Release(QStringLiteral("("));
  Release(QStringLiteral("x"));
  EXPECT_EQ(Text().Text(), "document.createElementNS(x");
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
    QStringList down;
    int listsSeen = 0;
    for (int i = 0; i < 40; ++i) {
      QString piece = pieces[static_cast<qsizetype>(dice() % static_cast<unsigned>(pieces.size()))];
      if (piece == QStringLiteral("<Esc>")) {
        Type(piece);
        continue;
      }
      expected += piece;
      for (const QChar c : piece) {
        Press(QString(c));
        down.append(QString(c));
        while (!down.isEmpty() && dice() % 3 != 0) Release(down.takeFirst());
        listsSeen += List().isVisible() ? 1 : 0;
      }
    }
    while (!down.isEmpty()) Release(down.takeFirst());
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
