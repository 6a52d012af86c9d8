#include "cli/completion.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include <CLI/CLI.hpp>

#include "cli/options.h"
#include "program/generate/place.h"
#include "program/program.h"

namespace cli {

namespace {

using Options = std::vector<CLI::Option*>;

bool TakesValue(const CLI::Option& option) {
  return option.get_items_expected_max() > 0;
}

// How an option is written in full; empty for a file.
std::string NameOf(const CLI::Option& option) {
  const auto& names = option.get_lnames();
  return names.empty() ? "" : "--" + names.front();
}

// With those of its groups.
Options OptionsOf(CLI::App& command) {
  Options options = command.get_options();
  for (CLI::App* const group :
       command.get_subcommands([](CLI::App* each) { return each->get_name().empty(); }))
    std::ranges::copy(OptionsOf(*group), std::back_inserter(options));
  return options;
}

// The words before the one that is being typed.
struct Before {
  CLI::App* command;                      // the last one that is named
  Options used = {};                      // its options
  const CLI::Option* awaiting = nullptr;  // an option whose value comes next
  int files = 0;
  bool onlyFiles = false;  // behind "--"
};

CLI::App* FindCommand(CLI::App& app, const std::string& name) {
  const auto found = app.get_subcommands([&](CLI::App* each) { return each->get_name() == name; });
  return found.empty() || name.empty() ? nullptr : found.front();
}

void ReadOption(CLI::App& app, const std::string& word, Before& before) {
  const std::size_t sign = word.find('=');
  const std::string name = word.substr(0, sign);
  CLI::Option* option = before.command->get_option_no_throw(name);
  if (option == nullptr) option = app.get_option_no_throw(name);
  if (option == nullptr) return;
  before.used.push_back(option);
  if (sign == std::string::npos && TakesValue(*option)) before.awaiting = option;
}

Before Read(CLI::App& app, const std::vector<std::string>& words) {
  Before before{&app};
  for (const std::string& word : words) {
    if (std::exchange(before.awaiting, nullptr) != nullptr) continue;
    CLI::App* const command = FindCommand(*before.command, word);
    if (before.onlyFiles || !word.starts_with('-')) {
      if (command != nullptr) {
        before.command = command;
      } else {
        ++before.files;
      }
    } else if (word == "--") {
      before.onlyFiles = true;
    } else {
      ReadOption(app, word, before);
    }
  }
  return before;
}

// The answer, as it grows.
class Answer {
 public:
  // `typed` is the word's beginning.
  explicit Answer(std::string typed) : typed_(std::move(typed)) {}

  const std::string& typed() const { return typed_; }
  std::string Take() { return std::move(lines_); }

  void Offer(const std::string& word, const std::string& description = "") {
    if (word.starts_with(typed_)) lines_ += word + '\t' + description + '\n';
  }
  void OfferFile(std::string_view endings) { lines_.append("/\t").append(endings).append("\n"); }

 private:
  const std::string typed_;
  std::string lines_;
};

void OfferType(std::string_view type, const std::string& before, Answer& answer);

// "CHANNEL", or with `rest` "=" and a type.
void OfferChannels(std::string_view rest, const std::string& before, Answer& answer) {
  for (int channel = 1; channel <= TCBase::Program::kChannelCount; ++channel) {
    const std::string word = before + std::to_string(channel) + (rest.empty() ? "" : "=");
    if (!rest.empty() && answer.typed().starts_with(word)) return OfferType(rest.substr(1), word, answer);
    answer.Offer(word);
  }
}

// One of the alternatives of a type, as help names it: a word, or in capitals what it stands for.
void OfferAlternative(std::string_view alternative, const std::string& before, Answer& answer) {
  constexpr std::string_view kFile = "FILE";
  const std::size_t file = alternative.find(kFile);
  if (file != std::string_view::npos) return answer.OfferFile(alternative.substr(file + kFile.size()));
  const std::string word(alternative.substr(0, alternative.find_first_of("ABCDEFGHIJKLMNOPQRSTUVWXYZ")));
  if (!word.empty() && !word.starts_with('"')) answer.Offer(before + word);
}

// "CHANNELS": one behind those that stand there with commas.
void OfferMoreChannels(const std::string& before, Answer& answer) {
  const std::string typed = answer.typed().substr(std::min(before.size(), answer.typed().size()));
  OfferChannels({}, before + typed.substr(0, typed.find_last_of(',') + 1), answer);
}

// "tc420|udp:NAME@ADDRESS", "CHANNEL=up|down", "TEXTFILE"; `before` stands in front of it in the same word.
void OfferType(std::string_view type, const std::string& before, Answer& answer) {
  if (type.starts_with("CHANNELS")) return OfferMoreChannels(before, answer);
  constexpr std::string_view kChannel = "CHANNEL";
  if (type.starts_with(kChannel)) return OfferChannels(type.substr(kChannel.size()), before, answer);
  while (!type.empty()) {
    const std::size_t bar = std::min(type.find('|'), type.size());
    OfferAlternative(type.substr(0, bar), before, answer);
    type.remove_prefix(std::min(bar + 1, type.size()));
  }
}

// What TakesFile has been told; nothing for any file.
std::string EndingsOf(CLI::Option& file) {
  try {
    return std::as_const(*file.get_validator(kFileHint)).active().get_description();
  } catch (const CLI::OptionNotFound&) {
    return "";
  }
}

void OfferPlaces(const std::string& before, Answer& answer) {
  for (const auto& place : TCBase::Program::Generate::Places())
    answer.Offer(before + place.name, place.country);
}

void OfferValues(const CLI::Option& option, const std::string& before,
                 const std::function<std::vector<std::string>()>& languages, Answer& answer) {
  if (NameOf(option) == "--place") return OfferPlaces(before, answer);
  if (NameOf(option) != "--language") return OfferType(option.get_type_name(), before, answer);
  for (const std::string& language : languages()) answer.Offer(before + language);
}

bool HasCommands(CLI::App& app) {
  return !app.get_subcommands([](CLI::App* each) { return !each->get_name().empty(); }).empty();
}

void OfferCommands(CLI::App& app, Answer& answer) {
  for (const CLI::App* const command : app.get_subcommands([](CLI::App*) { return true; }))
    answer.Offer(command->get_name(), command->get_description());
}

// Those of the command, and of the program the ones that may stand behind each command.
void OfferOptions(CLI::App& app, const Before& before, Answer& answer) {
  Options options = OptionsOf(*before.command);
  if (before.command != &app) {
    for (CLI::Option* const option : OptionsOf(app))
      if (TakesValue(*option)) options.push_back(option);
  }
  for (CLI::Option* const option : options) {
    const bool again = option->get_items_expected_max() > 1 || std::ranges::count(before.used, option) == 0;
    if (again && !NameOf(*option).empty()) answer.Offer(NameOf(*option), option->get_description());
  }
}

// The file that comes next; null if no more is taken.
CLI::Option* NextFile(const Before& before) {
  int taken = 0;
  for (CLI::Option* const option : OptionsOf(*before.command)) {
    if (!option->get_positional()) continue;
    taken += option->get_items_expected_max();
    if (before.files < taken) return option;
  }
  return nullptr;
}

void OfferNext(CLI::App& app, const Before& before, Answer& answer) {
  CLI::Option* const file = NextFile(before);
  if (HasCommands(*before.command) && !before.onlyFiles) {
    OfferCommands(*before.command, answer);
  } else if (file != nullptr) {
    answer.OfferFile(EndingsOf(*file));
  } else if (!before.onlyFiles) {
    OfferOptions(app, before, answer);
  }
}

}  // namespace

bool IsCompletion(const std::vector<std::string>& arguments) {
  return arguments.size() > 2 && arguments[0] == "complete" && arguments[1] == "--";
}

std::string CompletionsOf(CLI::App& app, std::vector<std::string> typed,
                          const std::function<std::vector<std::string>()>& languages) {
  Answer answer(std::move(typed.back()));
  typed.pop_back();
  Before before = Read(app, typed);
  const std::string& word = answer.typed();
  const std::size_t sign = word.find('=');
  if (before.awaiting != nullptr) {
    OfferValues(*before.awaiting, "", languages, answer);
  } else if (!before.onlyFiles && word.starts_with("--") && sign != std::string::npos) {
    ReadOption(app, word.substr(0, sign), before);
    if (before.awaiting != nullptr)
      OfferValues(*before.awaiting, word.substr(0, sign + 1), languages, answer);
  } else if (!before.onlyFiles && word.starts_with('-')) {
    OfferOptions(app, before, answer);
  } else {
    OfferNext(app, before, answer);
  }
  return answer.Take();
}

}  // namespace cli
