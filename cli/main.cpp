// lumarinectl

#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>

#include "cli/language.h"
#include "cli/lumarinectl.h"
#include "devices/datagrams.h"

namespace {

std::string_view Environment(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

}  // namespace

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  platform::StartNetwork();
  Console& console = platform::OpenConsole();
  const std::string_view language =
      cli::LanguageOfLocale({Environment("LC_ALL"), Environment("LC_MESSAGES"), Environment("LANG")});
  return cli::RunLumarinectl(platform::ProgramArguments(argc, argv),
                             {std::string(language), &TranslationStore::Instance}, std::cout, std::cerr,
                             console);
}
