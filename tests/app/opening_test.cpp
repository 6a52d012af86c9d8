// Files that come by the command line, or are dropped on the window.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "common/files.h"
#include "tests/app/app_test.h"
#include "tests/support/files.h"

namespace {

namespace fs = std::filesystem;
using app::Answer;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class Opening : public AppTest {
 protected:
  static std::string TitleOf(const fs::path& file) { return "Lumarine - " + Utf8FromPath(file); }
};

TEST_F(Opening, AFileOnTheCommandLineIsOpenedInsteadOfTheLastOne) {
  const fs::path last = GivenFile("Last");
  const fs::path given = GivenFile("Given");
  user.StartWith({last});
  EXPECT_EQ(user.Title(), TitleOf(last));
  user.Close();
  user.StartWith({given});
  EXPECT_EQ(user.Title(), TitleOf(given));
  EXPECT_EQ(Mode().name, "Given");
  EXPECT_THAT(user.Log(), HasSubstr("Loaded program file " + Utf8FromPath(given) + "\r\n"));
  EXPECT_THAT(user.Log(), Not(HasSubstr(Utf8FromPath(last))));
  EXPECT_EQ(UndoDepth(), 0);
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "nothing is changed";
  user.Start();
  EXPECT_EQ(user.Title(), TitleOf(given)) << "it is the last one now";
}

TEST_F(Opening, ARelativePathCountsFromTheWorkingFolderAndIsKeptWhole) {
  const fs::path home = fs::current_path();
  const fs::path file = GivenFile("Tank");
  fs::current_path(folder.path());
  user.StartWith({"Tank.xml"});
  const fs::path opened = fs::current_path() / "Tank.xml";
  fs::current_path(home);
  EXPECT_EQ(Mode().name, "Tank");
  EXPECT_EQ(user.Title(), TitleOf(opened));
  EXPECT_EQ(user.GetSettings().GetValue("last_open_file"), Utf8FromPath(opened));
}

TEST_F(Opening, AFileThatDoesNotLoadLeavesTheStartAsItIs) {
  const fs::path last = GivenFile("Last");
  user.StartWith({last});
  user.Close();
  user.StartWith({folder / "gone.xml"});
  EXPECT_EQ(user.Title(), TitleOf(last));
  EXPECT_THAT(user.Log(), HasSubstr("Error loading program " + Utf8FromPath(folder / "gone.xml") + "\r\n" +
                                    "The file cannot be read: No such file or directory\r\n"));
}

TEST_F(Opening, ADroppedFileIsOpened) {
  GivenTheProgramRuns();
  const fs::path file = GivenFile("Tank");
  user.DropFiles({file});
  EXPECT_EQ(user.Title(), TitleOf(file));
  EXPECT_EQ(Mode().name, "Tank");
  EXPECT_THAT(NewJournal(), testing::Contains("renderer: rebuild"));
  user.Close();
  EXPECT_FALSE(user.IsRunning()) << "nothing is changed";
}

TEST_F(Opening, ADropAsksToSaveFirst) {
  GivenAnEditedProgram();
  const auto edited = Program();
  const fs::path file = GivenFile("Tank");
  user.WillAnswer(Answer::Cancel);
  user.DropFiles({file});
  EXPECT_TRUE(Program() == edited);
  EXPECT_EQ(user.Questions().at(0).title, u"Program modified");
  user.WillAnswer(Answer::Yes);
  user.WillPick({folder / "Mine.xml"});
  user.DropFiles({file});
  EXPECT_TRUE(fs::exists(folder / "Mine.xml"));
  EXPECT_EQ(user.Title(), TitleOf(file));
}

TEST_F(Opening, OfSeveralFilesTheFirstIsOpenedAndTheLogSaysSo) {
  GivenTheProgramRuns();
  const fs::path first = GivenFile("First");
  user.DropFiles({first, GivenFile("Second")});
  EXPECT_EQ(user.Title(), TitleOf(first));
  EXPECT_THAT(NewLog(), HasSubstr("Only one file can be open: " + Utf8FromPath(first) + "\n"));
}

TEST_F(Opening, ADroppedFileThatDoesNotLoadLeavesTheProgram) {
  GivenTheProgramRuns();
  const auto before = Program();
  user.DropFiles({folder.path()});
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_EQ(NewLog(), "Error loading program " + Utf8FromPath(folder.path()) +
                          "\nThe file cannot be read: Is a directory\n");
  user.DropFiles({});
  EXPECT_EQ(NewLog(), "");
}

TEST_F(Opening, ADropDuringADemoIsRefusedWithALine) {
  GivenTheProgramRuns();
  const auto before = Program();
  const fs::path file = GivenFile("Tank");
  GivenDemoAt(3600);
  NewLog();
  user.DropFiles({file});
  EXPECT_TRUE(Program() == before);
  EXPECT_EQ(NewLog(), Utf8FromPath(file) + " is not opened while a demo runs or a dialog is open\n");
}

TEST_F(Opening, ADropWhileAQuestionWaitsIsRefusedWithALine) {
  GivenAnEditedProgram();
  const auto edited = Program();
  const fs::path file = GivenFile("Tank");
  NewLog();
  user.WillAnswer(Answer::Cancel);
  app::Application& application = *user.GetDesktop().application;
  user.GetDesktop().queue.Push(
      {headless::Event::Kind::Other, 0, false, [&] { application.mainWindow.OnClose(); }});
  user.DropFiles({file});
  EXPECT_THAT(user.Questions(), SizeIs(1)) << "that of the close alone";
  EXPECT_TRUE(Program() == edited);
  EXPECT_EQ(NewLog(), Utf8FromPath(file) + " is not opened while a demo runs or a dialog is open\n");
}

TEST_F(Opening, WithoutFilesNothingIsSaid) {
  GivenTheProgramRuns();
  EXPECT_EQ(user.Title(), "Lumarine - New program");
  EXPECT_THAT(user.Questions(), IsEmpty());
  EXPECT_EQ(user.Log(),
            "Language set to English\r\n"
            "Loaded program contains 2 modes\r\n"
            "Mode Normal steps count: 12\r\n");
}

}  // namespace
