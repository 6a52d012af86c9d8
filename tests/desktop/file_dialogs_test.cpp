#include "platform/win32/file_dialogs.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;
using testing::ElementsAre;
using testing::IsEmpty;
using win32::FilesInBuffer;
using win32::FilterText;

TEST(FileDialogs, FilterHoldsTheFormatAndAllFilesEndedByTwoTerminators) {
  const std::wstring text = FilterText({u"XML Program", u"*.XML"});
  EXPECT_EQ(std::wstring_view(text.c_str(), text.size() + 1), L"XML Program\0*.XML\0All Files\0*.*\0\0"sv);
}

TEST(FileDialogs, ASingleChoiceIsThePathItself) {
  EXPECT_THAT(FilesInBuffer(L"C:\\Tank\\day.xml\0\0left over"sv), ElementsAre(L"C:\\Tank\\day.xml"));
}

TEST(FileDialogs, SeveralFilesComeAsTheirFolderAndTheirNames) {
  EXPECT_THAT(FilesInBuffer(L"C:\\Tank\0day.tmf\0night.tmf\0\0left over"sv),
              ElementsAre(L"C:\\Tank\\day.tmf", L"C:\\Tank\\night.tmf"));
}

TEST(FileDialogs, NothingChosenIsNoFile) {
  EXPECT_THAT(FilesInBuffer(L"\0\0"sv), IsEmpty());
  EXPECT_THAT(FilesInBuffer({}), IsEmpty());
}

TEST(FileDialogs, ABufferFullToTheEndIsNotReadBeyond) {
  EXPECT_THAT(FilesInBuffer(L"C:\\Tank\0a.tmf\0b.tm"sv), ElementsAre(L"C:\\Tank\\a.tmf", L"C:\\Tank\\b.tm"));
}

}  // namespace
