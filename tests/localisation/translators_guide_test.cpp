// docs/languages.md, where it names what the program calls by another name or number.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <regex>
#include <string>

#include "app/window/numbers.h"
#include "tests/support/files.h"

namespace {

std::string Source(const char* path) {
  return BytesOf(std::filesystem::path(LUMARINE_SOURCE_DIR) / path);
}

// The first block of code behind a line.
std::string CodeBehind(const std::string& guide, const std::string& text) {
  const std::string fence = "```\n";
  const std::size_t begin = guide.find('\n', guide.find("```", guide.find(text))) + 1;
  return guide.substr(begin, guide.find(fence, begin) - begin);
}

// The name of the main window's class, from the resources.
std::string WindowClass() {
  std::smatch found;
  const std::string resources = Source("resources/lumarine.rc");
  return std::regex_search(resources, found, std::regex("109 \"(\\w+)\"")) ? found[1].str() : "none";
}

// No PowerShell runs these lines before a release does, so each is here for a reason. A text that is null is
// [NullString]::Value: $null becomes an empty text, which is the title of no window. A message for no window
// is posted to the caller itself, which says True to it: hence the question in between, with its "else" in
// the same line, since a line that could be the last one runs as it is typed. The C# is in apostrophes, in
// which nothing but an apostrophe is special, and Add-Type brings the names that it uses.
TEST(TranslatorsGuide, PostsTheCommandThatMergesToTheMainWindow) {
  const std::string code = CodeBehind(Source("docs/languages.md"), "On Windows, in PowerShell:");
  EXPECT_EQ(code, R"($user32 = Add-Type -PassThru -Namespace Lumarine -Name User32 -MemberDefinition '
  [DllImport("user32.dll", CharSet = CharSet.Unicode)]
  public static extern IntPtr FindWindow(string kind, string title);
  [DllImport("user32.dll", CharSet = CharSet.Unicode)]
  public static extern bool PostMessage(IntPtr window, uint message, IntPtr first, IntPtr second);'
$window = $user32::FindWindow(")" +
                      WindowClass() +
                      R"(", [NullString]::Value)
if ($window -eq [IntPtr]::Zero) { "Lumarine is not running." } else {
  $user32::PostMessage($window, 0x111, [IntPtr])" +
                      std::to_string(app::command::kMergeTranslations) + R"(, [IntPtr]::Zero) }
)");
  EXPECT_TRUE(std::ranges::all_of(code, [](char c) { return c == '\n' || (c >= ' ' && c <= '~'); }))
      << "what is pasted looks the same in every code page";
}

}  // namespace
