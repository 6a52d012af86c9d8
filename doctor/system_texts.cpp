#include "doctor/system_texts.h"

#include <algorithm>
#include <charconv>
#include <optional>
#include <sstream>

namespace doctor {

namespace {

using platform::Firewall;
using Words = std::vector<std::string>;

Words WordsOf(std::string_view line) {
  std::istringstream stream{std::string(line)};
  Words words;
  for (std::string word; stream >> word;) words.push_back(word);
  return words;
}

std::vector<std::string> LinesOf(std::string_view text) {
  std::istringstream stream{std::string(text)};
  std::vector<std::string> lines;
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

std::optional<std::uint32_t> NumberOf(std::string_view text, int base = 10) {
  std::uint32_t number = 0;
  const auto read = std::from_chars(text.data(), text.data() + text.size(), number, base);
  if (read.ec != std::errc() || read.ptr != text.data() + text.size()) return std::nullopt;
  return number;
}

// No address, or one of IPv4 written in one of IPv6.
bool TakesIpv4(std::string_view address) {
  constexpr std::size_t kIpv4Digits = 8;
  return address.size() == kIpv4Digits || address.find_first_not_of('0') == std::string_view::npos ||
         address.starts_with("0000000000000000FFFF0000");
}

bool Has(const Words& words, std::string_view word) {
  return std::ranges::find(words, word) != words.end();
}

// What a rule of nft does to a datagram to the port, which nothing has decided on before.
enum class Verdict { None, Accept, Drop, Unclear };

// Rules about something else: the computer itself, answers, other protocols.
bool IsElsewhere(const Words& words) {
  for (const std::string_view word : {"tcp", "icmp", "icmpv6", "ct", "igmp", "ip6"})
    if (Has(words, word)) return true;
  return Has(words, "\"lo\"") || Has(words, "lo");
}

// What "dport" names, in a list without blanks: "5000" or "53,4000-6000"; something else where it names none.
std::optional<std::string> PortsOf(const Words& words) {
  auto word = std::ranges::find(words, "dport");
  if (word == words.end() || ++word == words.end()) return std::nullopt;
  if (*word != "{") return *word;
  std::string ports;
  while (++word != words.end() && *word != "}") ports += *word;
  return ports;
}

// Whether it is a list of ports, as against the name of a set or a comparison.
bool IsListOfPorts(std::string_view text) {
  return text.find_first_not_of("0123456789,-") == std::string_view::npos;
}

Verdict VerdictOf(const Words& words, std::uint16_t port) {
  const bool accepts = Has(words, "accept");
  const bool drops = Has(words, "drop") || Has(words, "reject");
  const bool jumps = Has(words, "jump") || Has(words, "goto") || Has(words, "vmap") || Has(words, "queue");
  if (!accepts && !drops && !jumps) return Verdict::None;
  if (IsElsewhere(words)) return Verdict::None;
  if (jumps) return Verdict::Unclear;
  const auto ports = PortsOf(words);
  if (ports && !IsListOfPorts(*ports)) return Verdict::Unclear;
  if (ports && !HoldsPort(*ports, port)) return Verdict::None;
  // "accept" alone, or with a counter; else it holds for some datagrams.
  const bool isForAll = (ports && Has(words, "udp")) || words.front() == "accept" ||
                        words.front() == "drop" || words.front() == "reject" || words.front() == "counter";
  if (!isForAll) return Verdict::Unclear;
  return accepts ? Verdict::Accept : Verdict::Drop;
}

// The chains that look at what comes in: their rules, the policy last.
std::vector<std::vector<Words>> InputChains(std::string_view ruleset) {
  std::vector<std::vector<Words>> chains;
  bool inChain = false;
  bool dropsAtEnd = false;
  for (const std::string& line : LinesOf(ruleset)) {
    const Words words = WordsOf(line);
    if (Has(words, "hook")) {
      inChain = Has(words, "input");
      dropsAtEnd = Has(words, "drop;") || Has(words, "drop");
      if (inChain) chains.emplace_back();
    } else if (inChain && words == Words{"}"}) {
      chains.back().push_back({dropsAtEnd ? "drop" : "accept"});
      inChain = false;
    } else if (inChain && !words.empty()) {
      chains.back().push_back(words);
    }
  }
  return chains;
}

// The first rule of a chain that decides.
Verdict VerdictOf(const std::vector<Words>& chain, std::uint16_t port) {
  for (const Words& rule : chain)
    if (const Verdict verdict = VerdictOf(rule, port); verdict != Verdict::None) return verdict;
  return Verdict::Accept;
}

// Whether nothing but a policy stands in all of them, and that lets everything in.
bool LetAllIn(const std::vector<std::vector<Words>>& chains) {
  return std::ranges::all_of(chains, [](const std::vector<Words>& chain) {
    return chain.size() == 1 && chain.front() == Words{"accept"};
  });
}

}  // namespace

bool HoldsPort(std::string_view ports, std::uint16_t port) {
  while (!ports.empty()) {
    const std::size_t end = std::min(ports.find(','), ports.size());
    const std::string_view part = ports.substr(0, end);
    ports.remove_prefix(std::min(end + 1, ports.size()));
    const std::size_t dash = part.find_first_of(":-");
    const auto first = NumberOf(part.substr(0, dash));
    const auto last = dash == std::string_view::npos ? first : NumberOf(part.substr(dash + 1));
    if (first && last && *first <= port && port <= *last) return true;
  }
  return false;
}

std::vector<std::string> SocketsOnPort(std::string_view table, std::uint16_t port) {
  constexpr std::size_t kAddressWord = 1;
  constexpr std::size_t kInodeWord = 9;
  std::vector<std::string> inodes;
  for (const std::string& line : LinesOf(table)) {
    const Words words = WordsOf(line);
    if (words.size() <= kInodeWord) continue;
    const std::string& local = words[kAddressWord];
    const std::size_t colon = local.find(':');
    if (colon == std::string::npos || NumberOf(std::string_view(local).substr(colon + 1), 16) != port)
      continue;
    if (TakesIpv4(std::string_view(local).substr(0, colon))) inodes.push_back(words[kInodeWord]);
  }
  return inodes;
}

bool IsUfwOn(std::string_view config) {
  return std::ranges::any_of(LinesOf(config),
                             [](const std::string& line) { return line.starts_with("ENABLED=yes"); });
}

Firewall::Passage PassageOfUfw(std::string_view rules, std::uint16_t port) {
  // "### tuple ### allow udp 5000 0.0.0.0/0 any 0.0.0.0/0 in"
  constexpr std::size_t kWords = 9;
  constexpr std::size_t kAction = 3;
  for (const std::string& line : LinesOf(rules)) {
    const Words words = WordsOf(line);
    if (words.size() < kWords || words[1] != "tuple" || !words[kAction].starts_with("allow")) continue;
    const std::string& protocol = words[kAction + 1];
    const std::string& ports = words[kAction + 2];
    const bool isUdp = protocol == "udp" || protocol == "any";
    const bool isIn = words.back().starts_with("in");
    if (isUdp && isIn && (ports == "any" || HoldsPort(ports, port))) return Firewall::Open;
  }
  return Firewall::Closed;
}

Firewall FirewallOfNft(std::string_view ruleset, std::uint16_t port) {
  Firewall firewall{Firewall::Absent, "nftables", Firewall::Open, {}};
  const auto chains = InputChains(ruleset);
  if (LetAllIn(chains)) return firewall;
  firewall.state = Firewall::On;
  // A datagram has to pass all of them.
  for (const auto& chain : chains) {
    const Verdict verdict = VerdictOf(chain, port);
    if (verdict == Verdict::Drop) firewall.passage = Firewall::Closed;
    if (verdict == Verdict::Unclear && firewall.passage == Firewall::Open)
      firewall.passage = Firewall::Untold;
  }
  return firewall;
}

std::string OsReleaseValue(std::string_view text, std::string_view name) {
  for (const std::string& line : LinesOf(text)) {
    if (!line.starts_with(std::string(name) + "=")) continue;
    std::string value = line.substr(name.size() + 1);
    std::erase(value, '"');
    return value;
  }
  return {};
}

}  // namespace doctor
