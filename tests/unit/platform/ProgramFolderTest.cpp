#include "platform/ProgramFolder.h"

#include <gtest/gtest.h>

#include "tests/support/TemporaryFolder.h"

namespace {

using namespace platform;
using tests::OrdinaryUser;
using tests::TemporaryFolder;

class ProgramFolderTest : public testing::Test {
 protected:
  TemporaryFolder m_folder;
  ProgramPlaces m_places{m_folder.Path("usr/bin/quillmark"), "", m_folder.Path("home/share")};
};

TEST_F(ProgramFolderTest, TheOverrideComesFirst) {
  m_folder.Write("usr/bin/A.def", "");
  m_places.Override = m_folder.Path("elsewhere");
  EXPECT_EQ(FindProgramFolder(m_places, true), m_folder.Path("elsewhere"));
  EXPECT_FALSE(std::filesystem::exists(m_folder.Path("home")));
  for (const char* relative : {"elsewhere", "./elsewhere/", "x/../elsewhere//"}) {
    m_places.Override = relative;
    EXPECT_EQ(FindProgramFolder(m_places, true), (std::filesystem::current_path() / "elsewhere").string()) << relative;
  }
}

TEST_F(ProgramFolderTest, APortableCopyMustHaveTemplatesAndBeWritable) {
  m_folder.Write("usr/bin/readme", "");
  EXPECT_EQ(FindProgramFolder(m_places, false), m_folder.Path("home/share/quillmark"));
  m_folder.Write("usr/bin/a.DEF", "");
  EXPECT_EQ(FindProgramFolder(m_places, false), m_folder.Path("usr/bin"));
  m_folder.SetMode("usr/bin", 0555);
  const OrdinaryUser user;
  EXPECT_EQ(FindProgramFolder(m_places, false), m_folder.Path("home/share/quillmark"));
}

TEST_F(ProgramFolderTest, TheDataFolderIsFilled) {
  m_folder.Write("usr/share/quillmark/A.def", "installed A");
  m_folder.Write("usr/share/quillmark/A.hdf", "installed help");
  m_folder.Write("usr/share/quillmark/other.txt", "");
  const std::string own = m_folder.Path("home/share/quillmark");
  EXPECT_EQ(InstalledFolder(m_places), m_folder.Path("usr/share/quillmark"));
  EXPECT_EQ(FindProgramFolder(m_places, false), m_folder.Path("usr/share/quillmark")) << "nothing is made without fill";
  EXPECT_FALSE(std::filesystem::exists(m_folder.Path("home")));

  EXPECT_EQ(FindProgramFolder(m_places, true), own);
  EXPECT_EQ(m_folder.Read("home/share/quillmark/A.hdf"), "installed help");
  EXPECT_FALSE(std::filesystem::exists(own + "/other.txt"));
  m_folder.Write("usr/share/quillmark/B.def", "a new B");
  EXPECT_EQ(FindProgramFolder(m_places, true), own);
  EXPECT_EQ(m_folder.Read("home/share/quillmark/B.def"), "a new B");
  EXPECT_EQ(FindProgramFolder(m_places, false), own);
}

TEST_F(ProgramFolderTest, ACopyIsRenewedUnlessTheUserChangedOrRemovedIt) {
  const auto install = [this](const std::string& version) {
    for (const char* name : {"Left.def", "Changed.def", "Removed.def", "Left.hdf"})
      m_folder.Write(std::string("usr/share/quillmark/") + name, version);
  };
  const auto start = [this] { FindProgramFolder(m_places, true); };
  const auto own = [this](const std::string& name) { return m_folder.Path("home/share/quillmark/" + name); };
  install("first");
  start();
  m_folder.Write("home/share/quillmark/Changed.def", "the user's");
  std::filesystem::remove(own("Removed.def"));
  start();
  EXPECT_FALSE(std::filesystem::exists(own("Removed.def"))) << "with nothing newer installed";
  install("version 2");
  start();
  EXPECT_EQ(m_folder.Read("home/share/quillmark/Left.def"), "version 2");
  EXPECT_EQ(m_folder.Read("home/share/quillmark/Left.hdf"), "version 2");
  EXPECT_EQ(m_folder.Read("home/share/quillmark/Changed.def"), "the user's");
  EXPECT_FALSE(std::filesystem::exists(own("Removed.def")));

  m_folder.Write("home/share/quillmark/Installed.txt", "no record\n99999999999999999999 1 1 Left.def\n5 5\n");
  install("the third version");
  start();
  EXPECT_EQ(m_folder.Read("home/share/quillmark/Left.def"), "version 2") << "whose it is cannot be told any more";
  for (const char* name : {"Left.def", "Changed.def", "Removed.def"}) std::filesystem::remove(own(name));
  start();
  EXPECT_EQ(m_folder.Read("home/share/quillmark/Removed.def"), "the third version") << "an empty folder is filled";
}

TEST_F(ProgramFolderTest, ABuildTreeFindsTheSources) {
  m_folder.Write("data/templates/A.def", "");
  std::filesystem::create_directories(m_folder.Path("build/bin"));
  m_places.Executable = m_folder.Path("build/bin/quillmark");
  EXPECT_EQ(InstalledFolder(m_places), m_folder.Path("data/templates"));
  m_places.Executable = m_folder.Path("build/debug/bin/quillmark");
  EXPECT_EQ(InstalledFolder(m_places), m_folder.Path("data/templates"));
}

TEST_F(ProgramFolderTest, ListsInOrderOfNamesWithoutRegardToCase) {
  for (const char* name : {"b.def", "C.def", "A.DEF", "Ö.def", "ö2.def", "zz.defx", ".def", "\xFF.def"})
    m_folder.Write(name, "");
  m_folder.Write("folder.def/inside", "");
  std::vector<std::string> expected;
  for (const char* name : {".def", "A.DEF", "b.def", "C.def", "Ö.def", "ö2.def", "\xFF.def"})
    expected.push_back(m_folder.Path(name));
  EXPECT_EQ(ListFiles(m_folder.Path(), ".def"), expected);
  EXPECT_EQ(ListFiles(m_folder.Path("missing"), ".def"), std::vector<std::string>{});
}

TEST_F(ProgramFolderTest, TheHelpIsTheFoldersOwnOrTheInstalledOne) {
  const std::string own = m_folder.Path("home/Quillmark.hlp");
  EXPECT_EQ(FindHelpFile(m_folder.Path("home"), m_places), own) << "the path to tell when there is none";
  m_folder.Write("usr/share/quillmark/Quillmark.hlp", "");
  EXPECT_EQ(FindHelpFile(m_folder.Path("home"), m_places), m_folder.Path("usr/share/quillmark/Quillmark.hlp"));
  m_folder.Write("home/Quillmark.hlp", "");
  EXPECT_EQ(FindHelpFile(m_folder.Path("home"), m_places), own);
}

}  // namespace
