#include "OvkLib/src/UWP/ovk_win_error.h"

#include <gtest/gtest.h>

#include <string>
#include <typeinfo>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"

namespace {

std::string Described(const ovk::exception& error) {
  ovk::wstring text;
  error.describe(text);
  return Utf8FromWide(text.view());
}

template <class Exception>
void ExpectThrownFor(std::uint32_t code) {
  try {
    ovk::win::throw_error(u"somewhere.cpp:42", code);
  } catch (const ovk::win::xsystem& thrown) {
    EXPECT_EQ(typeid(thrown), typeid(Exception));
    EXPECT_EQ(thrown.code(), code);
    EXPECT_EQ(thrown.context().view(), u"somewhere.cpp:42");
  }
}

TEST(Exception, OutOfMemoryDescribesItself) {
  try {
    ovk::throw_out_of_memory();
  } catch (const ovk::exception& thrown) {
    EXPECT_EQ(Described(thrown), "Out of memory.");
  }
}

TEST(Exception, DescribeAppends) {
  ovk::wstring text(u"Failed: ");
  ovk::xout_of_memory().describe(text);
  EXPECT_EQ(text.view(), u"Failed: Out of memory.");
}

TEST(SystemError, NothingHappensWithoutFailure) {
  EXPECT_NO_THROW(ovk::win::check(false, 1, "a.cpp"));
}

TEST(SystemError, ListedCodesHaveClassesOfTheirOwn) {
  ExpectThrownFor<ovk::win::xaccess_denied>(5);
  ExpectThrownFor<ovk::win::xwrite_protected>(19);
  ExpectThrownFor<ovk::win::xwrite_fault>(29);
  ExpectThrownFor<ovk::win::xread_fault>(30);
  ExpectThrownFor<ovk::win::xsharing_violation>(32);
  ExpectThrownFor<ovk::win::xdisk_full>(112);
}

TEST(SystemError, AnyOtherCodeIsThePlainClass) {
  for (const std::uint32_t code : {0U, 1U, 6U, 87U, 0xFFFFFFFFU}) ExpectThrownFor<ovk::win::xsystem>(code);
}

TEST(SystemError, CheckReportsFileAndLine) {
  try {
    ovk::win::check(true, 42, "somewhere.cpp");
    FAIL() << "nothing thrown";
  } catch (const ovk::win::xsystem& thrown) {
    EXPECT_EQ(thrown.context().view(), u"somewhere.cpp:42");
  }
}

TEST(SystemError, DescribesPlaceCodeAndText) {
  const std::string text = Described(ovk::win::xaccess_denied(u"ovk_win_str_utils:88"));
  const std::string head =
      "ovk_win_str_utils:88\nWin32 API Error.\nError Code: 5 (0x00000005)\nDescription: ";
  EXPECT_EQ(text.substr(0, head.size()), head);
  EXPECT_GT(text.size(), head.size());
  EXPECT_EQ(text.find("Cannot obtain"), std::string::npos);
  EXPECT_NE(text.back(), '\n');
  EXPECT_NE(text.back(), '\r');
}

TEST(SystemError, WritesEightCapitalHexadecimalDigits) {
  EXPECT_EQ(Described(ovk::win::xsystem(u"a:1", 0xDEADBEEF)),
            "a:1\nWin32 API Error.\nError Code: 3735928559 (0xDEADBEEF)\nDescription: "
            "Cannot obtain error description.");
}

TEST(SystemError, ACodeOfZeroHasNoDescription) {
  EXPECT_EQ(Described(ovk::win::xsystem(u"a:1", 0)), "a:1\nWin32 API Error.\nError Code: 0 (0x00000000)");
}

TEST(SystemError, CopiesShareTheRecordOfThePlace) {
  const ovk::win::xsystem error(u"a place with a longer name:1", 5);
  const ovk::win::xsystem copy(error);  // NOLINT(performance-unnecessary-copy-initialization)
  EXPECT_EQ(&copy.context(), &error.context());
}

TEST(SystemError, AnUnknownCodePageIsASystemErrorOfTheConversion) {
  try {
    WideFromAnsi("text", 54321);
    FAIL() << "nothing thrown";
  } catch (const ovk::win::xsystem& thrown) {
    EXPECT_EQ(thrown.context().view(), u"ovk_win_str_utils:88");
    EXPECT_NE(thrown.code(), 0U);
  }
}

}  // namespace
