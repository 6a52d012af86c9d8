// What Lumarine.exe and lumarinectl.exe say of themselves to Windows: version and manifest, as the system
// reads them.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <string>
#include <type_traits>
#include <utility>
#include <vector>

#include "tests/desktop/program_resources.h"

namespace {

using desktop::Ascii;

struct Expected {
  std::string program;
  std::string description;
  bool hasControls;
};

// Failures name the program.
std::ostream& operator<<(std::ostream& out, const Expected& expected) {
  return out << expected.program;
}

class Identity : public testing::TestWithParam<Expected> {
 protected:
  void SetUp() override {
    ACTCTXW request{};
    request.cbSize = sizeof request;
    request.dwFlags = ACTCTX_FLAG_RESOURCE_NAME_VALID;
    request.lpSource = file_.c_str();
    request.lpResourceName = MAKEINTRESOURCEW(1);
    manifest_.reset(CreateActCtxW(&request));
    ASSERT_NE(manifest_.get(), INVALID_HANDLE_VALUE) << "the system does not take the manifest";
    block_.resize(GetFileVersionInfoSizeW(file_.c_str(), &ignored_));
    ASSERT_FALSE(block_.empty());
    ASSERT_TRUE(GetFileVersionInfoW(file_.c_str(), 0, static_cast<DWORD>(block_.size()), block_.data()));
  }

  // A text of the version resource, as Explorer shows it.
  std::string VersionText(const std::wstring& name) {
    void* value = nullptr;
    UINT length = 0;
    EXPECT_TRUE(
        VerQueryValueW(block_.data(), (L"\\StringFileInfo\\040904B0\\" + name).c_str(), &value, &length));
    return value == nullptr ? "" : Ascii(static_cast<const wchar_t*>(value));
  }

  // One of the manifest's windowsSettings. Empty, if it has none of that name.
  std::string Setting(int year, const std::wstring& name) const {
    const std::wstring space =
        L"http://schemas.microsoft.com/SMI/" + std::to_wstring(year) + L"/WindowsSettings";
    std::array<wchar_t, 100> value{};
    SIZE_T length = 0;
    QueryActCtxSettingsW(0, manifest_.get(), space.c_str(), name.c_str(), value.data(), value.size(),
                         &length);
    return Ascii(value.data());
  }

  std::vector<char> Information(ULONG kind, DWORD assembly) const {
    SIZE_T size = 0;
    QueryActCtxW(0, manifest_.get(), &assembly, kind, nullptr, 0, &size);
    std::vector<char> answer(size);
    EXPECT_TRUE(QueryActCtxW(0, manifest_.get(), &assembly, kind, answer.data(), answer.size(), &size));
    return answer;
  }

  struct Release {
    void operator()(HANDLE context) const { ReleaseActCtx(context); }
  };
  const std::filesystem::path file_ = desktop::ProgramFile(GetParam().program + ".exe");
  std::unique_ptr<std::remove_pointer_t<HANDLE>, Release> manifest_;
  std::vector<char> block_;
  DWORD ignored_ = 0;
};

// What lumarinectl says to --version.
std::string VersionOfTheCommandLine() {
  const std::filesystem::path file = desktop::ProgramFile("lumarinectl.exe");
  FILE* const pipe = _popen(("\"" + file.string() + "\" --version").c_str(), "r");
  EXPECT_NE(pipe, nullptr);
  std::array<char, 200> line{};
  EXPECT_NE(std::fgets(line.data(), static_cast<int>(line.size()), pipe), nullptr);
  EXPECT_EQ(_pclose(pipe), 0);
  return line.data();
}

TEST_P(Identity, VersionIsTheSameWhereverItStands) {
  void* value = nullptr;
  UINT length = 0;
  ASSERT_TRUE(VerQueryValueW(block_.data(), L"\\", &value, &length));
  const auto* const numbers = static_cast<const VS_FIXEDFILEINFO*>(value);
  for (const auto& [high, low] : {std::pair(numbers->dwFileVersionMS, numbers->dwFileVersionLS),
                                  std::pair(numbers->dwProductVersionMS, numbers->dwProductVersionLS)}) {
    EXPECT_EQ(high, MAKELONG(7U, 4U));
    EXPECT_EQ(low, MAKELONG(496U, 0U));
  }
  EXPECT_EQ(VersionText(L"FileVersion"), "4.7.0.496");
  EXPECT_EQ(VersionText(L"ProductVersion"), "4.7 build 496");
  EXPECT_EQ(VersionOfTheCommandLine(), "Lumarine 4.7 build 496\n");
}

TEST_P(Identity, TextsTellWhatItIsAndWhoseItIs) {
  EXPECT_EQ(VersionText(L"FileDescription"), GetParam().description + " 4.7 build 496");
  EXPECT_EQ(VersionText(L"InternalName"), GetParam().program);
  EXPECT_EQ(VersionText(L"OriginalFilename"), GetParam().program + ".exe");
  EXPECT_EQ(VersionText(L"ProductName"), "Lumarine");
  EXPECT_EQ(VersionText(L"CompanyName"), "Lumarine team");
  EXPECT_EQ(VersionText(L"LegalCopyright"), "Copyright (c) 2026 Lumarine team");
}

TEST_P(Identity, ManifestAsksForNoRightsAndForTodaysWindows) {
  const std::vector<char> level = Information(RunlevelInformationInActivationContext, 0);
  ASSERT_GE(level.size(), sizeof(ACTIVATION_CONTEXT_RUN_LEVEL_INFORMATION));
  EXPECT_EQ(reinterpret_cast<const ACTIVATION_CONTEXT_RUN_LEVEL_INFORMATION*>(level.data())->RunLevel,
            ACTCTX_RUN_LEVEL_AS_INVOKER);

  // The count stands before the systems, which are longer in newer headers than in this compiler's.
  const std::vector<char> systems = Information(CompatibilityInformationInActivationContext, 0);
  ASSERT_GE(systems.size(), sizeof(DWORD) + sizeof(GUID));
  EXPECT_EQ(systems.front(), 1);
  const GUID windows10{0x8e0f7a12, 0xbfb3, 0x4fe8, {0xb9, 0xa5, 0x48, 0xfd, 0x50, 0xa1, 0x5a, 0x9a}};
  EXPECT_THAT(std::string(systems.begin(), systems.end()),
              testing::HasSubstr(std::string(reinterpret_cast<const char*>(&windows10), sizeof windows10)));
}

TEST_P(Identity, ManifestAsksForUtf8AndFineScreensAndLongPaths) {
  EXPECT_EQ(Setting(2019, L"activeCodePage"), "UTF-8");
  EXPECT_EQ(Setting(2016, L"dpiAwareness"), "PerMonitorV2");
  EXPECT_EQ(Setting(2005, L"dpiAware"), "true");
  EXPECT_EQ(Setting(2016, L"longPathAware"), "true");
}

// Small systems have no controls, and the command line runs there.
TEST_P(Identity, OnlyAWindowAsksForTodaysControls) {
  const std::vector<char> all = Information(ActivationContextDetailedInformation, 0);
  const DWORD assemblies =
      reinterpret_cast<const ACTIVATION_CONTEXT_DETAILED_INFORMATION*>(all.data())->ulAssemblyCount;
  ASSERT_EQ(assemblies, GetParam().hasControls ? 2U : 1U);
  const auto nameOf = [this](DWORD assembly) {
    const std::vector<char> told = Information(AssemblyDetailedInformationInActivationContext, assembly);
    return Ascii(reinterpret_cast<const ACTIVATION_CONTEXT_ASSEMBLY_DETAILED_INFORMATION*>(told.data())
                     ->lpAssemblyEncodedAssemblyIdentity);
  };
  EXPECT_THAT(nameOf(1), testing::AllOf(testing::StartsWith(GetParam().program + ","),
                                        testing::HasSubstr("version=\"4.7.0.496\"")));
  if (GetParam().hasControls) {
    EXPECT_THAT(nameOf(2), testing::AllOf(testing::StartsWith("Microsoft.Windows.Common-Controls,"),
                                          testing::HasSubstr("version=\"6.")));
  }
}

INSTANTIATE_TEST_SUITE_P(Programs, Identity,
                         testing::Values(Expected{"Lumarine", "Lumarine", true},
                                         Expected{"lumarinectl", "Lumarine on the command line", false}),
                         [](const auto& program) { return program.param.program; });

}  // namespace
