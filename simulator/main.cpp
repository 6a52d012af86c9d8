// tc421sim

#include <csignal>
#include <iostream>
#include <utility>

#include "devices/datagrams.h"
#include "simulator/tc421sim.h"

namespace {

volatile std::sig_atomic_t stopAsked = 0;
volatile std::sig_atomic_t dumpAsked = 0;

void AskToStop(int /*signal*/) {
  stopAsked = 1;
}

void AskForDump(int /*signal*/) {
  dumpAsked = 1;
}

sim::Request NextRequest() {
  if (stopAsked != 0) return sim::Request::Stop;
  if (dumpAsked == 0) return sim::Request::None;
  dumpAsked = 0;
  return sim::Request::Dump;
}

}  // namespace

int main(int argc, char** argv) {
  std::signal(SIGINT, &AskToStop);
  std::signal(SIGTERM, &AskToStop);
  std::signal(SIGUSR1, &AskForDump);
  platform::StartNetwork();
  return sim::RunTc421Sim({argv + 1, argv + argc}, std::cout, std::cerr, &NextRequest);
}
