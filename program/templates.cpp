#include "program/templates.h"

#include <algorithm>
#include <iterator>

#include "program/builtin_modes.h"

namespace TCBase::Program {

namespace {

constexpr std::uint32_t kWhite = 0xFFF4F8FF;
constexpr std::uint32_t kWarmWhite = 0xFFFFDCA8;
constexpr std::uint32_t kBlue = 0xFF4060FF;
constexpr std::uint32_t kRed = 0xFFFF5040;
constexpr std::uint32_t kDeepRed = 0xFFE0203C;
constexpr std::uint32_t kMoon = 0xFFA8BCF0;

Channel ChannelOf(const Ramp& ramp) {
  Channel channel;
  const auto add = [&](const TimeOfDay& time, float percent) {
    channel.push_back(MakeStep(SecondOnTheDay(time), percent));
  };
  add(ramp.begin, 0.0F);
  add(ramp.full, ramp.percent);
  add(ramp.fading, ramp.percent);
  add(ramp.end, 0.0F);
  SortSteps(channel);
  return channel;
}

}  // namespace

// Rules of thumb, all of them; each sentence says so in its own words.

constinit const ProgramTemplate kReefTemplate = {
    "reef",
    TextKey("Reef"),
    TextKey("For corals: blue first and last, white in the middle, a little moon, and a dark night. The "
            "levels are "
            "rules of thumb for LEDs over a mixed reef; measure the light, and begin lower with new corals."),
    {{{TextKey("Royal blue"), 0xFF3C5AFF, {{9, 0}, {11, 0}, {19, 0}, {21, 30}, 80.0F}},
      {TextKey("Cool white"), 0xFFDCEAFF, {{10, 30}, {12, 30}, {17, 30}, {19, 30}, 55.0F}},
      {TextKey("Violet"), 0xFF9046FF, {{9, 30}, {11, 30}, {18, 30}, {20, 30}, 60.0F}},
      {TextKey("Red"), kRed, {{12, 0}, {13, 0}, {17, 0}, {18, 0}, 10.0F}},
      {TextKey("Moonlight"), kMoon, {{21, 0}, {21, 30}, {23, 0}, {23, 30}, 4.0F}}}}};

constinit const ProgramTemplate kPlantedTankTemplate = {
    "planted-tank",
    TextKey("Planted tank"),
    TextKey("For plants and fish: ten hours with soft ends, seven of them at full level. Hours and levels "
            "are a rule of "
            "thumb for undemanding plants; where algae grow, less of both is what to try first."),
    {{{TextKey("White"), kWhite, {{12, 0}, {13, 0}, {20, 0}, {21, 0}, 70.0F}},
      {TextKey("Warm white"), kWarmWhite, {{11, 30}, {13, 0}, {20, 0}, {21, 30}, 60.0F}},
      {TextKey("Red"), kRed, {{12, 0}, {13, 0}, {20, 0}, {21, 0}, 50.0F}},
      {TextKey("Blue"), kBlue, {{12, 30}, {13, 30}, {19, 30}, {20, 30}, 30.0F}},
      {TextKey("Moonlight"), kMoon, {{21, 30}, {22, 0}, {22, 30}, {23, 0}, 3.0F}}}}};

constinit const ProgramTemplate kSeedlingsTemplate = {
    "seedlings",
    TextKey("Seedlings"),
    TextKey("For young vegetables and herbs: sixteen hours with much blue, so that they stay short, and "
            "eight hours of "
            "night. Sixteen hours are a common rule; the levels are a guess for a lamp about 30 cm above the "
            "leaves."),
    {{{TextKey("White"), kWhite, {{6, 0}, {6, 30}, {21, 30}, {22, 0}, 60.0F}},
      {TextKey("Warm white"), kWarmWhite, {{6, 0}, {6, 30}, {21, 30}, {22, 0}, 30.0F}},
      {TextKey("Red"), kRed, {{6, 0}, {6, 30}, {21, 30}, {22, 0}, 40.0F}},
      {TextKey("Deep red"), kDeepRed, {{6, 0}, {6, 30}, {21, 30}, {22, 0}, 20.0F}},
      {TextKey("Blue"), kBlue, {{6, 0}, {6, 30}, {21, 30}, {22, 0}, 60.0F}}}}};

constinit const ProgramTemplate kRefugiumTemplate = {
    "refugium",
    TextKey("Refugium"),
    TextKey(
        "For macroalgae below a reef: light while the tank above is dark, which steadies the pH. Twelve "
        "hours at "
        "night are the usual rule; the levels are a guess, to be raised as long as the algae stay green."),
    {{{TextKey("Red"), kRed, {{20, 0}, {20, 30}, {7, 30}, {8, 0}, 70.0F}},
      {TextKey("Deep red"), kDeepRed, {{20, 0}, {20, 30}, {7, 30}, {8, 0}, 70.0F}},
      {TextKey("White"), kWhite, {{20, 0}, {20, 30}, {7, 30}, {8, 0}, 30.0F}},
      {TextKey("Warm white"), kWarmWhite, {{20, 0}, {20, 30}, {7, 30}, {8, 0}, 30.0F}},
      {TextKey("Blue"), kBlue, {{20, 0}, {20, 30}, {7, 30}, {8, 0}, 40.0F}}}}};

constinit const ProgramTemplate kBlackwaterTemplate = {
    "blackwater",
    TextKey("Blackwater"),
    TextKey("For shy fish of brown forest streams: dim, warm light with dusks of two hours. The levels are "
            "set by eye "
            "for a tank under floating plants; nothing was measured."),
    {{{TextKey("Warm white"), kWarmWhite, {{11, 0}, {13, 0}, {18, 0}, {20, 0}, 30.0F}},
      {TextKey("Amber"), 0xFFFFB040, {{10, 0}, {12, 0}, {19, 0}, {21, 0}, 25.0F}},
      {TextKey("Red"), kRed, {{10, 0}, {11, 0}, {20, 0}, {21, 0}, 10.0F}},
      {TextKey("White"), kWhite, {{12, 0}, {14, 0}, {17, 0}, {19, 0}, 12.0F}},
      {TextKey("Moonlight"), kMoon, {{20, 30}, {21, 0}, {22, 30}, {23, 0}, 2.0F}}}}};

namespace {

constexpr const ProgramTemplate* kTemplates[] = {&kReefTemplate, &kPlantedTankTemplate, &kSeedlingsTemplate,
                                                 &kRefugiumTemplate, &kBlackwaterTemplate};

}  // namespace

std::span<const ProgramTemplate* const> ProgramTemplates() {
  return kTemplates;
}

const ProgramTemplate* FindTemplate(std::string_view id) {
  const auto* const found = std::ranges::find(kTemplates, id, &ProgramTemplate::id);
  return found == std::end(kTemplates) ? nullptr : *found;
}

ModeListView NewProgramFrom(const ProgramTemplate& from) {
  ModeListView document;
  Mode& mode = document.modes.emplace_back();
  mode.name = Translate(from.name);
  mode.description = Translate(from.sentence);
  for (std::size_t i = 0; i < from.channels.size(); ++i) {
    document.channelInfos[i].name = Translate(from.channels[i].name);
    document.channelInfos[i].color = from.channels[i].color;
    mode.channels[i] = ChannelOf(from.channels[i].ramp);
  }
  BuildAlwaysOnMode(document.modes.emplace_back());
  return document;
}

}  // namespace TCBase::Program
