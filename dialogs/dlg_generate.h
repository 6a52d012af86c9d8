#pragma once

// The dialogs that make a new mode: a day of sun, a night with moonlight, a day of ramps, a day of a slow
// start, a season. Each shows the day that its fields tell, anew with each change of a field; while one of
// them cannot be read, it says which, and OK does nothing.

#include <functional>
#include <optional>
#include <string>

#include "common/message.h"
#include "dialogs/dialog.h"
#include "program/generate/acclimation.h"
#include "program/generate/place.h"
#include "program/generate/ramp_day.h"
#include "program/generate/sun_light.h"

namespace dialogs {

namespace generate = TCBase::Program::Generate;

/// What all of them share.
struct GenerateParams {
  generate::Date today;
  /// Called with each day that the fields tell, named, and with nothing where they tell none.
  std::function<void(const generate::Generated*)> show;
};

class DlgGenerate : public DlgBase {
 public:
  void OnInit(DialogWindow& window) final;

 protected:
  DlgGenerate(DialogsPort& port, int number, GenerateParams& shared)
      : DlgBase(port, number), shared_(shared) {}

  /// Reads the fields. What cannot be read is noted once, by the label of its field.
  class Fields {
   public:
    explicit Fields(const DialogWindow& window) : window_(window) {}

    /// What `parse` makes of the text without its blanks; of one that it makes nothing of, `otherwise`.
    template <class Value, class Parse>
    Value Read(int field, Parse parse, Value otherwise) {
      const auto value = parse(Text(field));
      if (!value) Note(field);
      return value ? Value(*value) : otherwise;
    }
    /// An empty field is nothing, too.
    template <class Value, class Parse>
    std::optional<Value> ReadOptional(int field, Parse parse) {
      if (Text(field).empty()) return std::nullopt;
      const auto value = parse(Text(field));
      if (!value) Note(field);
      return value;
    }
    std::string Text(int field) const;
    std::int32_t Row(int list) const { return window_.SelectedData(list); }
    void Note(int field);

    /// The first field that could not be read; 0 if all could.
    int fault() const { return fault_; }

   private:
    const DialogWindow& window_;
    int fault_ = 0;
  };

  const GenerateParams& shared() const { return shared_; }

  /// Puts what the dialog begins with into its fields.
  virtual void Fill(DialogWindow& window) = 0;
  /// The day that the fields tell. It counts if none of them is at fault.
  virtual generate::Generated Make(Fields& fields) = 0;
  /// What is worth knowing of the day that was made last, for a line of its own; empty for nothing.
  virtual std::string Remark() const { return {}; }
  /// A field has changed, before it is read.
  virtual void OnField(DialogWindow&, int /*field*/) {}

 private:
  void OnControl(DialogWindow& window, int control, int code) override;
  void OnOk(DialogWindow& window) override;
  void Update(DialogWindow& window);

  GenerateParams& shared_;
  bool isFilled_ = false;
  bool isMade_ = false;
};

struct SunParams : GenerateParams {
  generate::SunLight light;                // in, but for place and date; out with them
  std::string place;                       // what stands in the field, in and out
  const generate::Place* clock = nullptr;  // out: whose clocks the day goes by
};

/// Asks for a day of sun, or for a season, of which it shows this week.
class DlgSun final : public DlgGenerate {
 public:
  enum class Of { Day, Season };
  /// `params` outlives the dialog.
  DlgSun(DialogsPort& port, SunParams& params, Of what);

 private:
  void Fill(DialogWindow& window) override;
  generate::Generated Make(Fields& fields) override;
  std::string Remark() const override;
  void OnField(DialogWindow& window, int field) override;
  void ReadPlace(Fields& fields);
  void ReadDate(Fields& fields);

  SunParams& params_;
  const bool isSeason_;
};

struct MoonParams : GenerateParams {
  const TCBase::Program::Mode* others = nullptr;  // whose other channels stay
  generate::MoonNight night;                      // in, but for the date
};

class DlgMoon final : public DlgGenerate {
 public:
  /// `params` outlives the dialog.
  DlgMoon(DialogsPort& port, MoonParams& params);

 private:
  void Fill(DialogWindow& window) override;
  generate::Generated Make(Fields& fields) override;

  MoonParams& params_;
};

struct RampDayParams : GenerateParams {
  generate::RampDay day;
};

class DlgRampDay final : public DlgGenerate {
 public:
  /// `params` outlives the dialog.
  DlgRampDay(DialogsPort& port, RampDayParams& params);

 private:
  void Fill(DialogWindow& window) override;
  generate::Generated Make(Fields& fields) override;

  RampDayParams& params_;
};

struct AcclimationParams : GenerateParams {
  const TCBase::Program::Mode* full = nullptr;  // the mode as it is to be
  generate::Acclimation acclimation;            // in and out
  bool eachDay = false;                         // out: all days are wanted, not that of today
};

/// Asks for a slow start, and shows its day of today.
class DlgAcclimation final : public DlgGenerate {
 public:
  /// `params` outlives the dialog.
  DlgAcclimation(DialogsPort& port, AcclimationParams& params);

 private:
  void Fill(DialogWindow& window) override;
  generate::Generated Make(Fields& fields) override;

  AcclimationParams& params_;
};

/// "17 rows, at most 0.9 % off", in the user's language.
Message FitText(const generate::Generated& day);
/// What the mode of such a day is called.
std::string DayOfAcclimationName(int day, int days);

}  // namespace dialogs
