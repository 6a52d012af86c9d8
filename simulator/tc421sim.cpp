#include "simulator/tc421sim.h"

#include <limits>
#include <memory>
#include <optional>
#include <system_error>

#include <CLI/CLI.hpp>

#include "common/file_replace.h"
#include "common/files.h"
#include "common/platform.h"
#include "devices/datagrams.h"
#include "simulator/controller_host.h"
#include "simulator/dump.h"

namespace sim {

namespace {

constexpr int kSuccess = 0;
constexpr int kNotListening = 1;
constexpr int kWrongUsage = 2;
constexpr int kFileFailed = 4;

constexpr int kPollMilliseconds = 1;
constexpr std::size_t kLongestDatagram = 65536;
// At most so many datagrams are read between two looks at the user's requests.
constexpr int kDatagramsAPass = 100;

constexpr char kAbout[] =
    "Is a TC421 light controller on the network, for trying Lumarine out and for tests. Checks each frame\n"
    "that comes, keeps what it is told, answers, and tells what it sees, a line each.";

constexpr char kEpilogue[] = R"(SIGINT (Ctrl+C) and SIGTERM end it, SIGUSR1 has the dump written at once.
Lumarine and a simulator both want UDP port 5000, so they run on two computers, or in two network
namespaces of one: docs/networks.md shows how. A search is a broadcast, which does not reach a simulator
that is bound to one address.
Examples:
  tc421sim                                       a controller, on all addresses
  tc421sim --name Smart-7 --dump memory.json     keep what it was told when it ends
  tc421sim --loss 0.3 --seed 7                   a bad network, the same one each time
Exit status: 0 ended, 1 no listening on the address, 2 wrong usage, 4 the dump cannot be written.)";

struct Options {
  std::string name = "Smart-123456";
  std::string bind = "0.0.0.0";
  std::uint16_t port = 5000;
  FaultOptions faults;
  bool wrongAcknowledgements = false;
  bool showFrames = false;
  std::string dump;  // UTF-8, empty for none
};

void Declare(CLI::App& app, Options& options) {
  const CLI::Validator chance = CLI::Range(0.0, 1.0).description("");
  FaultOptions& faults = options.faults;
  constexpr int kLongestDelay = 60'000;
  app.add_option("--name", options.name, "The name it reports, at most 60 bytes")->capture_default_str();
  app.add_option("--bind", options.bind, "Listen on this address of the computer only")->type_name("ADDRESS");
  app.add_option("--port", options.port, "UDP port")->capture_default_str()->type_name("N");
  app.add_option("--loss", faults.loss, "Chance that a request is lost, and that an answer is")
      ->check(chance)
      ->type_name("0..1");
  app.add_option("--delay", faults.delayMilliseconds, "Answer this much later")
      ->check(CLI::Range(0, kLongestDelay).description(""))
      ->type_name("MS");
  app.add_option("--repeat", faults.repeat, "Chance that an answer comes twice")
      ->check(chance)
      ->type_name("0..1");
  app.add_option("--shorten", faults.shorten, "Chance that an answer's end is missing")
      ->check(chance)
      ->type_name("0..1");
  app.add_option("--corrupt", faults.corrupt, "Chance that a byte of an answer is wrong")
      ->check(chance)
      ->type_name("0..1");
  app.add_option("--answers", faults.answers, "Be as good as switched off after so many answers")
      ->check(CLI::Range(0, std::numeric_limits<int>::max()).description(""))
      ->type_name("N");
  app.add_option("--seed", faults.seed, "Another seed, other faults")->capture_default_str()->type_name("N");
  app.add_flag("--wrong-ack", options.wrongAcknowledgements, "Acknowledge WiFi settings wrongly");
  app.add_option("--dump", options.dump, "Write what it keeps to this file, as JSON, when it ends")
      ->type_name("FILE");
  app.add_flag("--frames", options.showFrames, "Show each frame that comes, byte for byte");
}

// A socket for one scope.
class Socket {
 public:
  Socket() : socket_(platform::OpenDatagrams()) {}
  ~Socket() {
    if (socket_ != platform::kNoSocket) platform::CloseDatagrams(socket_);
  }
  Socket(const Socket&) = delete;
  Socket& operator=(const Socket&) = delete;

  bool Listen(const TCBase::Ipv4Address& local) const {
    return socket_ != platform::kNoSocket && platform::DontWaitForDatagrams(socket_) &&
           platform::BindDatagrams(socket_, local);
  }

  // The next datagram that has come.
  std::optional<std::string> Receive(TCBase::Ipv4Address& from) {
    const std::ptrdiff_t size = platform::ReceiveDatagram(socket_, buffer_.data(), buffer_.size(), from);
    if (size < 0) return std::nullopt;
    return buffer_.substr(0, static_cast<std::size_t>(size));
  }

  void Send(const Outgoing& outgoing) const {
    // One that does not leave is one that was lost.
    platform::SendDatagram(socket_, outgoing.bytes, outgoing.to);
  }

 private:
  const platform::DatagramSocket socket_;
  std::string buffer_ = std::string(kLongestDatagram, '\0');
};

double Seconds() {
  return static_cast<double>(platform::ClockTicks()) / static_cast<double>(platform::ClockFrequency());
}

void PassOnce(Socket& socket, ControllerHost& host) {
  for (int i = 0; i < kDatagramsAPass; ++i) {
    TCBase::Ipv4Address from;
    const std::optional<std::string> datagram = socket.Receive(from);
    if (!datagram) break;
    host.Take(*datagram, from, platform::AddressText(from), Seconds());
  }
  while (const std::optional<Outgoing> outgoing = host.TakeDue(Seconds())) socket.Send(*outgoing);
}

int WriteDump(const ControllerHost& host, const Options& options, std::ostream& err) {
  if (options.dump.empty()) return kSuccess;
  const int error = ReplaceFileBytes(*platform::SystemFileCalls(), PathFromUtf8(options.dump),
                                     DumpOf(host.GetController(), options.name));
  if (error == 0) return kSuccess;
  err << "tc421sim: " << options.dump << " cannot be written: " << std::generic_category().message(error)
      << '\n';
  return kFileFailed;
}

int Run(const Options& options, std::ostream& out, std::ostream& err,
        const std::function<Request()>& nextRequest) {
  std::optional<TCBase::Ipv4Address> local = platform::ParseAddress(options.bind);
  if (!local) {
    err << "tc421sim: " << options.bind << " is no address, one looks like 192.168.4.1\n";
    return kWrongUsage;
  }
  local = TCBase::MakeIpv4Address(local->address, options.port);
  Socket socket;
  if (!socket.Listen(*local)) {
    const std::string reason = platform::NetworkErrorText();
    err << "tc421sim: no listening on " << platform::AddressText(*local) << ": " << reason << '\n';
    return kNotListening;
  }
  out << "listening on " << platform::AddressText(*local) << " as " << Quoted(options.name) << '\n'
      << std::flush;

  const auto acknowledgement =
      options.wrongAcknowledgements ? Acknowledgement::Wrong : Acknowledgement::Right;
  ControllerHost host(MakeNetworkTC421(options.name, acknowledgement), options.faults, options.showFrames,
                      out);
  for (Request request = nextRequest(); request != Request::Stop; request = nextRequest()) {
    if (request == Request::Dump) WriteDump(host, options, err);
    PassOnce(socket, host);
    platform::SleepMilliseconds(kPollMilliseconds);
  }
  return WriteDump(host, options, err);
}

}  // namespace

int RunTc421Sim(const std::vector<std::string>& arguments, std::ostream& out, std::ostream& err,
                const std::function<Request()>& nextRequest) {
  CLI::App app(kAbout, "tc421sim");
  app.footer(kEpilogue);
  Options options;
  Declare(app, options);
  try {
    // The parser takes them from the back.
    app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
  } catch (const CLI::ParseError& error) {
    if (error.get_exit_code() == 0) return app.exit(error, out, err);
    err << "tc421sim: " << error.what() << "\nRun with --help for more.\n";
    return kWrongUsage;
  }
  return Run(options, out, err, nextRequest);
}

}  // namespace sim
