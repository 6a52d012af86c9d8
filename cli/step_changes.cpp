#include "cli/step_changes.h"

#include <algorithm>
#include <functional>
#include <string_view>
#include <type_traits>
#include <utility>

#include "cli/options.h"
#include "program/change/change_words.h"
#include "program/change/read_number.h"

namespace cli {

namespace {

using namespace TCBase::Program;

std::optional<StretchTime> ReadStretch(const std::string& text) {
  const std::size_t sign = text.find('=');
  if (sign == std::string::npos) return std::nullopt;
  const auto about = ParseTimeOfDay(std::string_view(text).substr(0, sign));
  const auto percent =
      ReadNumber(std::string_view(text).substr(sign + 1), kLeastStretchPercent, kMostScalePercent);
  return about && percent ? std::optional(StretchTime{*percent, *about}) : std::nullopt;
}

std::optional<CopyToChannels> ReadCopy(const std::string& text) {
  const std::size_t sign = std::min(text.find('='), text.size());
  const auto to = ReadChannels(std::string_view(text).substr(0, sign));
  if (!to) return std::nullopt;
  if (sign == text.size()) return CopyToChannels{*to};
  const auto percent = ReadNumber(std::string_view(text).substr(sign + 1), 0.0F, kMostScalePercent);
  return percent ? std::optional(CopyToChannels{*to, *percent}) : std::nullopt;
}

// How an option's text becomes something.
template <class T>
using Reader = std::function<std::optional<T>(const std::string&)>;

// A check that says what was expected.
template <class T>
CLI::Validator Expects(Reader<T> read, const std::string& expected) {
  return {[read = std::move(read), expected](std::string& text) {
            return read(text) ? std::string() : expected + " expected, not " + text;
          },
          ""};
}

class Declaration {
 public:
  Declaration(CLI::App& group, StepChangeOptions& options, Change& change)
      : group_(group), options_(options), change_(change) {}

  template <class T>
  void Add(const char* option, const char* value, const char* what, const std::string& expected,
           Reader<T> read) {
    group_
        .add_option_function<std::string>(
            option, [this_ = *this, read](const std::string& text) { this_.Take(*read(text)); }, what)
        ->check(Expects<T>(read, expected))
        ->type_name(value);
  }

 private:
  void Take(const ModeChange& change) const;

  CLI::App& group_;
  StepChangeOptions& options_;
  Change& change_;
};

ChangeScope ScopeOf(const StepChangeOptions& options) {
  ChangeScope scope;
  if (options.channels) scope.channels = *options.channels;
  if (options.from || options.to)
    scope.span = TimeSpan{options.from.value_or(0), options.to.value_or(kMinutesPerDay - 1)};
  return scope;
}

// With what other options say of it.
ModeChange Completed(const StepChangeOptions& options) {
  ModeChange change = *options.change;
  if (auto* const shift = std::get_if<ShiftTime>(&change)) shift->stopAtEnds = options.stopAtEnds;
  if (auto* const scale = std::get_if<ScalePercent>(&change)) scale->about = options.around.value_or(0.0F);
  return change;
}

ExitStatus Make(const Session& session, ModeListView& document, const StepChangeOptions& options) {
  const ChangeResult result = ChangeMode(CurrentMode(document), Completed(options), ScopeOf(options));
  if (result.refusal != ChangeRefusal::None) return session.Fail(ExitStatus::WrongUsage, TellResult(result));
  session.status.Print(TellResult(result));
  return ExitStatus::Success;
}

void Declaration::Take(const ModeChange& change) const {
  options_.change = change;
  change_ = [&options = options_](const Session& session, ModeListView& document) {
    return Make(session, document, options);
  };
}

void DeclareTimeChanges(Declaration declaration) {
  declaration.Add<ShiftTime>("--shift-time", "MINUTES",
                             "Move steps later, or earlier with -, as -90 or -1:30",
                             "minutes or hh:mm, up to a day, are", [](const std::string& text) {
                               const auto minutes = ReadShift(text);
                               return minutes ? std::optional(ShiftTime{*minutes}) : std::nullopt;
                             });
  declaration.Add<StretchTime>("--stretch", "HH:MM=PERCENT",
                               "Bring times so much nearer to one, or farther from it",
                               "a time, \"=\" and 1 to 1000 percent are", ReadStretch);
  declaration.Add<MirrorTime>("--mirror", "HH:MM", "Read the day backwards about this time",
                              "a time from 00:00 to 23:59 is", [](const std::string& text) {
                                const auto about = ParseTimeOfDay(text);
                                return about ? std::optional(MirrorTime{*about}) : std::nullopt;
                              });
  declaration.Add<RoundTimes>("--round-times", "MINUTES",
                              "Bring each step to the nearest multiple of so many minutes",
                              "1 to 720 minutes are", [](const std::string& text) {
                                const auto minutes = ReadWhole(text, 1, kMinutesPerDay / 2);
                                return minutes ? std::optional(RoundTimes{*minutes}) : std::nullopt;
                              });
}

void DeclareLevelChanges(Declaration declaration) {
  declaration.Add<ShiftPercent>("--shift-percent", "POINTS",
                                "Make steps brighter, or darker with -, by so many percent points",
                                "-100 to 100 percent points are", [](const std::string& text) {
                                  const auto points = ReadNumber(text, -kMostPercent, kMostPercent);
                                  return points ? std::optional(ShiftPercent{*points}) : std::nullopt;
                                });
  declaration.Add<ScalePercent>("--scale", "PERCENT", "Bring levels to so much of what they are",
                                "0 to 1000 percent are", [](const std::string& text) {
                                  const auto percent = ReadNumber(text, 0.0F, kMostScalePercent);
                                  return percent ? std::optional(ScalePercent{*percent}) : std::nullopt;
                                });
  declaration.Add<RoundPercents>("--round-percents", "PERCENT",
                                 "Bring each step to the nearest multiple of so many percent",
                                 "1 to 100 percent are", [](const std::string& text) {
                                   const auto percent = ReadWhole(text, 1, kMostPercent);
                                   return percent ? std::optional(RoundPercents{*percent}) : std::nullopt;
                                 });
  declaration.Add<SetJump>("--set", "jump|fade", "Have steps hold their level up to the next, or fade to it",
                           "jump or fade is", [](const std::string& text) -> std::optional<SetJump> {
                             if (text != "jump" && text != "fade") return std::nullopt;
                             return SetJump{text == "jump"};
                           });
}

void DeclareStepCountChanges(Declaration declaration) {
  declaration.Add<CopyToChannels>("--copy-to", "CHANNELS[=PERCENT]",
                                  "Copy one channel's steps to others, at so much of their levels",
                                  "channels from 1 to 5, as in 2,3 or 2,3=50, are", ReadCopy);
  declaration.Add<ThinOut>("--thin", "PERCENT",
                           "Remove steps as long as the curve is nowhere more than this off",
                           "0 to 100 percent points are", [](const std::string& text) {
                             const auto tolerance = ReadNumber(text, 0.0F, kMostPercent);
                             return tolerance ? std::optional(ThinOut{*tolerance}) : std::nullopt;
                           });
}

// An option that is kept in an optional.
template <class T>
void AddDetail(CLI::App& command, const char* option, const char* value, const char* what,
               const std::string& expected, Reader<T> read, std::optional<T>& result) {
  command
      .add_option_function<std::string>(
          option, [&result, read](const std::string& text) { result = read(text); }, what)
      ->check(Expects<T>(read, expected))
      ->type_name(value);
}

}  // namespace

void DeclareStepChanges(CLI::App& command, CLI::App& group, StepChangeOptions& options, Change& change) {
  constexpr char kTime[] = "a time from 00:00 to 23:59 is";
  AddDetail<ChannelSet>(command, "--channels", "CHANNELS", "Only steps of these channels, as in 1,3",
                        "channels from 1 to 5, as in 1,3, are", ReadChannels, options.channels);
  AddDetail<int>(command, "--from", "HH:MM", "Only steps from this time on", kTime, ParseTimeOfDay,
                 options.from);
  AddDetail<int>(command, "--to", "HH:MM", "Only steps up to this time; one before --from is on the next day",
                 kTime, ParseTimeOfDay, options.to);
  command.add_flag("--stop-at-ends", options.stopAtEnds,
                   "With --shift-time: steps stay at 00:00 and 23:59 instead of going round");
  AddDetail<float>(
      command, "--around", "PERCENT", "With --scale: the level that stays, instead of 0",
      "0 to 100 percent are", [](const std::string& text) { return ReadNumber(text, 0.0F, kMostPercent); },
      options.around);
  const Declaration declaration(group, options, change);
  DeclareTimeChanges(declaration);
  DeclareLevelChanges(declaration);
  DeclareStepCountChanges(declaration);
}

std::string CheckStepChange(const StepChangeOptions& options) {
  const bool isScoped = options.channels || options.from || options.to;
  if (isScoped && !options.change)
    return "--channels, --from and --to go with --shift-time and the changes below it only";
  const auto is = [&]<class T>(std::type_identity<T>) {
    return options.change && std::holds_alternative<T>(*options.change);
  };
  if (options.stopAtEnds && !is(std::type_identity<ShiftTime>()))
    return "--stop-at-ends goes with --shift-time only";
  if (options.around && !is(std::type_identity<ScalePercent>())) return "--around goes with --scale only";
  return "";
}

}  // namespace cli
