#include "doctor/report.h"

#include <algorithm>
#include <string_view>

#include <nlohmann/json.hpp>

namespace doctor {

namespace {

using Json = nlohmann::ordered_json;

struct Mark {
  std::string_view word;
  std::string_view coloured;
};

Mark MarkOf(Sign sign) {
  switch (sign) {
    case Sign::Good:
      return {"[good]", "\x1B[32m\xE2\x9C\x94\x1B[0m"};
    case Sign::Look:
      return {"[look]", "\x1B[33m\xE2\x97\x8F\x1B[0m"};
    case Sign::Broken:
      break;
  }
  return {"[broken]", "\x1B[31m\xE2\x9C\x98\x1B[0m"};
}

// Others have written some of it: nothing in it is obeyed by a terminal.
std::string Harmless(std::string text) {
  constexpr unsigned char kFirstPrintable = ' ';
  constexpr unsigned char kDelete = 127;
  // A char has a sign on some processors and none on others.
  for (char& letter : text)
    if (const auto byte = static_cast<unsigned char>(letter); byte < kFirstPrintable || byte == kDelete)
      letter = '?';
  return text;
}

int CountOf(const std::vector<Finding>& findings, Sign sign) {
  return static_cast<int>(std::ranges::count(findings, sign, &Finding::sign));
}

}  // namespace

std::string LinesOf(const Finding& finding, Signs signs) {
  constexpr std::size_t kWidestWord = 8;
  const Mark mark = MarkOf(finding.sign);
  std::string lines(signs == Signs::Coloured ? mark.coloured : mark.word);
  std::string indent(4, ' ');
  if (signs == Signs::Words) {
    lines.resize(kWidestWord, ' ');
    indent.resize(kWidestWord + 3, ' ');
  }
  lines += ' ' + Harmless(finding.what.Text() + ": " + finding.found.Text()) + '\n';
  if (!finding.advice.empty()) lines += indent + Harmless(finding.advice.Text()) + '\n';
  return lines;
}

std::string TextOf(const std::vector<Finding>& findings, Signs signs) {
  std::string text;
  for (const Finding& finding : findings) text += LinesOf(finding, signs);
  return text + '\n' + SummaryOf(findings).Text() + '\n';
}

Sentence SummaryOf(const std::vector<Finding>& findings) {
  const std::string looks = std::to_string(CountOf(findings, Sign::Look));
  const std::string broken = std::to_string(CountOf(findings, Sign::Broken));
  switch (WorstOf(findings)) {
    case Sign::Good:
      return Sentence(TextKey("All is well."));
    case Sign::Look:
      return Sentence(TextKey("Nothing is broken. To look at: {1}"), {looks});
    case Sign::Broken:
      break;
  }
  return Sentence(TextKey("Broken: {1}. To look at: {2}"), {broken, looks});
}

std::string JsonOf(const std::vector<Finding>& findings, const std::string& version) {
  Json list = Json::array();
  for (const Finding& finding : findings)
    list.push_back({{"id", finding.id},
                    {"sign", NameOf(finding.sign)},
                    {"what", finding.what.English()},
                    {"found", finding.found.English()},
                    {"advice", finding.advice.English()}});
  const Json report = {{"version", version}, {"worst", NameOf(WorstOf(findings))}, {"findings", list}};
  constexpr int kNoIndent = -1;
  return report.dump(kNoIndent, ' ', true, Json::error_handler_t::replace) + '\n';
}

}  // namespace doctor
