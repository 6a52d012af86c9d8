// lumarinectl

#include <iostream>

#include "cli/lumarinectl.h"
#include "devices/datagrams.h"

int main(int argc, char** argv) {
  std::ios::sync_with_stdio(false);
  platform::StartNetwork();
  Console& console = platform::OpenConsole();
  return cli::RunLumarinectl(platform::ProgramArguments(argc, argv), std::cout, std::cerr, console);
}
