#include "tests/support/headless_dialogs.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <optional>
#include <stdexcept>
#include <thread>
#include <utility>

#include "OvkLib/src/UWP/ovk_win_str_utils.h"
#include "dialogs/dialog_template.h"
#include "tests/support/virtual_clock.h"

namespace headless {

namespace {

using dialogs::ControlKind;
using dialogs::ControlTemplate;
namespace trait = dialogs::trait;

// What an edit field takes as long as nobody tells it a limit.
constexpr std::size_t kFirstLimit = 30000;
constexpr std::chrono::minutes kPatience{1};
// What a combo box says when one types into it; no dialog listens.
constexpr int kComboTyped = 5;

std::string Quoted(const std::string& text) {
  return std::string(1, '"').append(text).append(1, '"');
}

// With the line ends that a clipboard gives and a field wants.
std::u16string WithCrLf(const std::u16string& text) {
  std::u16string lines;
  for (const char16_t unit : text) {
    if (unit == u'\n' && !lines.ends_with(u'\r')) lines += u'\r';
    lines += unit;
  }
  return lines;
}

[[noreturn]] void Mistake(const std::string& what) {
  throw std::logic_error(what);
}

struct Row {
  std::u16string text;
  std::int32_t data;
};

struct Control {
  ControlTemplate row;
  std::u16string text;
  std::size_t limit = kFirstLimit;
  bool digitsOnly = false;
  bool enabled = true;
  bool visible = true;
  std::vector<Row> rows = {};
  int selected = -1;
  DateTime time = {};

  bool Has(unsigned traits) const { return (row.traits & traits) != 0; }
  bool TakesFocus() const {
    return visible && enabled && row.kind != ControlKind::Label && row.kind != ControlKind::ProgramIcon &&
           row.kind != ControlKind::GroupBox && !Has(trait::kNoTabStop);
  }
  bool IsField() const { return row.kind == ControlKind::Edit || row.kind == ControlKind::ComboBox; }
  bool IsList() const {
    return row.kind == ControlKind::ListBox || row.kind == ControlKind::DropDownList ||
           row.kind == ControlKind::ComboBox;
  }
  // A list that is let down shows its choice as its text.
  void Choose(int choice) {
    selected = choice;
    if (row.kind == ControlKind::ListBox) return;
    text = choice < 0 ? std::u16string() : rows[static_cast<std::size_t>(choice)].text;
  }
};

class Mailbox final : public EventTarget {
 public:
  void Post(std::uint32_t event, std::uintptr_t, std::intptr_t) override {
    const std::lock_guard lock(mutex_);
    events_.push_back(event);
  }
  std::vector<std::uint32_t> TakeAll() {
    const std::lock_guard lock(mutex_);
    return std::exchange(events_, {});
  }

 private:
  std::mutex mutex_;
  std::vector<std::uint32_t> events_;  // guarded by mutex_
};

class Window final : public dialogs::DialogWindow {
 public:
  Window(Dialogs& port, dialogs::DlgBase& dialog, const dialogs::DialogTemplate& form)
      : port_(port), dialog_(dialog), title_(WideFromUtf8(form.title)), x_(form.place.x), y_(form.place.y) {
    for (const ControlTemplate& row : form.controls) {
      controls_.push_back({row, WideFromUtf8(row.text)});
      controls_.back().visible = (row.traits & trait::kHidden) == 0;
    }
  }

  // dialogs::DialogWindow

  void MoveTo(std::int32_t x, std::int32_t y) override {
    x_ = x;
    y_ = y;
  }
  // A screen as large as one likes.
  void MoveBeside(const Rect& area) override { MoveTo(area.x + area.width, area.y); }
  void SetTitle(std::u16string_view title) override { title_ = title; }
  void SetText(int control, std::u16string_view text) override {
    Control& target = At(control);
    target.text = text;
    // As edit fields do, but for those of several lines.
    if (target.row.kind == ControlKind::Edit && !target.Has(trait::kMultiLine)) Notify(control);
  }
  std::u16string Text(int control, std::size_t units) const override {
    return units == 0 ? std::u16string() : At(control).text.substr(0, units - 1);
  }
  void SetEnabled(int control, bool enabled) override { At(control).enabled = enabled; }
  void Hide(int control) override { At(control).visible = false; }
  void GiveFocus(int control) override {
    if (!At(control).TakesFocus()) Mistake(Title() + ": no focus for " + std::to_string(control));
    focus_ = control;
  }
  void LimitText(int control, std::int32_t units) override {
    Expect(control, ControlKind::Edit).limit = static_cast<std::size_t>(units);
  }
  void AcceptDigitsOnly(int control) override { Expect(control, ControlKind::Edit).digitsOnly = true; }
  void SetTabStops(int control, std::int32_t, std::int32_t) override {
    if (!Expect(control, ControlKind::Edit).Has(trait::kMultiLine))
      Mistake(Title() + ": no lines for tabs in " + std::to_string(control));
  }
  void ClearRows(int control) override {
    Control& list = ExpectList(control);
    list.rows.clear();
    list.selected = -1;
  }
  void AddRow(int control, std::u16string_view text, std::int32_t data) override {
    std::vector<Row>& rows = ExpectList(control).rows;
    const auto place =
        At(control).Has(trait::kSorted) ? std::ranges::upper_bound(rows, text, {}, &Row::text) : rows.end();
    rows.insert(place, {std::u16string(text), data});
  }
  int RowCount(int control) const override { return static_cast<int>(At(control).rows.size()); }
  void SelectRow(int control, int row) override {
    ExpectList(control).Choose(row >= 0 && row < RowCount(control) ? row : -1);
  }
  void SelectText(int control, std::u16string_view text) override {
    Control& list = ExpectList(control);
    const auto found = std::ranges::find(list.rows, text, &Row::text);
    if (found != list.rows.end()) list.Choose(static_cast<int>(found - list.rows.begin()));
  }
  std::int32_t SelectedData(int control) const override {
    const Control& list = At(control);
    return list.selected < 0 ? -1 : list.rows[static_cast<std::size_t>(list.selected)].data;
  }
  void SetDateTime(int control, const DateTime& time, std::u16string_view format) override {
    Control& picker = Expect(control, ControlKind::DateTimePicker);
    picker.time = time;
    picker.text = format;
  }
  DateTime GetDateTime(int control) const override { return At(control).time; }
  void Tell(std::u16string_view title, std::u16string_view text, dialogs::Icon icon) override {
    port_.told.push_back({std::u16string(title), std::u16string(text), icon});
  }
  void OpenLink(std::u16string_view target) override { port_.links.push_back(Utf8FromWide(target)); }
  std::shared_ptr<EventTarget> Target() override { return mailbox_; }
  void End(int result) override { result_ = result; }

  // The user and whoever watches.

  std::string Title() const { return Utf8FromWide(title_); }
  std::optional<int> Result() const { return result_; }
  SeenDialog Look() const;
  void TakeFirstFocus();
  void Do(const DialogStep& step);
  void DeliverPosted() {
    for (const std::uint32_t event : mailbox_->TakeAll()) {
      if (!result_) dialog_.OnEvent(*this, event);
    }
  }

 private:
  Control& At(int id) {
    const auto found = std::ranges::find(controls_, id, [](const Control& c) { return c.row.id; });
    if (found == controls_.end()) Mistake(Title() + " has no control " + std::to_string(id));
    return *found;
  }
  const Control& At(int id) const { return const_cast<Window*>(this)->At(id); }
  Control& Expect(int id, ControlKind kind) {
    Control& control = At(id);
    if (control.row.kind != kind) Mistake(Title() + ": nothing of that kind is " + std::to_string(id));
    return control;
  }
  Control& ExpectList(int id) {
    if (!At(id).IsList()) Mistake(Title() + ": no list is " + std::to_string(id));
    return At(id);
  }
  Control& ExpectField(int id) {
    if (!At(id).IsField()) Mistake(Title() + ": one cannot type into " + std::to_string(id));
    return At(id);
  }
  // One that the user can get to.
  Control& Reach(int id, ControlKind kind) { return Reach(Expect(id, kind)); }
  Control& Reach(Control& control) {
    const int id = control.row.id;
    if (!control.visible || !control.enabled || control.Has(trait::kReadOnly)) {
      Mistake(Title() + ": the user cannot use " + std::to_string(id));
    }
    focus_ = id;
    return control;
  }
  void Notify(int control, int code = dialogs::kTextChanged) { dialog_.OnCommand(*this, control, code); }
  void NotifyTyped(const Control& field) {
    Notify(field.row.id, field.row.kind == ControlKind::ComboBox ? kComboTyped : dialogs::kTextChanged);
  }
  void Type(int id, const std::u16string& keys);
  void Paste(int id, std::u16string text);
  void PressEnter();
  void Pick(int id, int row);
  void Await(const std::function<bool(const SeenDialog&)>& isSo);

  Dialogs& port_;
  dialogs::DlgBase& dialog_;
  std::u16string title_;
  std::int32_t x_;
  std::int32_t y_;
  std::vector<Control> controls_;
  int focus_ = dialogs::kNoControl;
  std::shared_ptr<Mailbox> mailbox_ = std::make_shared<Mailbox>();
  std::optional<int> result_;
};

SeenDialog Window::Look() const {
  SeenDialog seen{Title(), x_, y_, {}};
  for (const Control& control : controls_) {
    if (control.row.id == dialogs::kNoControl) continue;
    SeenControl& shown = seen.controls[control.row.id];
    shown = {Utf8FromWide(control.text), control.visible, control.enabled, {},
             control.selected,           control.time};
    for (const Row& row : control.rows) shown.rows.push_back(Utf8FromWide(row.text));
  }
  return seen;
}

void Window::TakeFirstFocus() {
  if (focus_ != dialogs::kNoControl) return;
  const auto first = std::ranges::find_if(controls_, &Control::TakesFocus);
  if (first != controls_.end()) focus_ = first->row.id;
}

void Window::Type(int id, const std::u16string& keys) {
  Control& edit = Reach(ExpectField(id));
  edit.selected = -1;
  bool isSelected = true;  // all of it, up to the first key that the field takes
  const auto put = [&](std::u16string_view text) {
    if (isSelected) edit.text.clear();
    isSelected = false;
    edit.text += text;
    NotifyTyped(edit);
  };
  if (keys.empty()) put(u"");  // the Delete key
  // An edit field takes unit by unit, and so may take half a character at its limit.
  for (const char16_t key : keys) {
    const std::u16string text = key == u'\n' ? u"\r\n" : std::u16string(1, key);
    const std::size_t length = isSelected ? 0 : edit.text.size();
    if (length + text.size() > edit.limit) continue;
    if (key == u'\n' && !edit.Has(trait::kMultiLine)) continue;
    if (edit.digitsOnly && (key < u'0' || key > u'9')) continue;
    put(text);
  }
}

void Window::Paste(int id, std::u16string text) {
  // Not even a field for digits looks at what is pasted.
  Control& edit = Reach(ExpectField(id));
  edit.selected = -1;
  if (edit.Has(trait::kMultiLine)) {
    text = WithCrLf(text);
  } else {
    text.resize(std::min(text.find_first_of(u"\r\n"), text.size()));
  }
  text.resize(std::min(text.size(), edit.limit));
  edit.text = std::move(text);
  NotifyTyped(edit);
}

void Window::PressEnter() {
  const auto isDefault = [](const Control& c) { return c.Has(trait::kDefault); };
  if (focus_ != dialogs::kNoControl) {
    Control& control = At(focus_);
    if (control.Has(trait::kWantsReturn)) {
      control.text += u"\r\n";
      return Notify(focus_);
    }
    if (control.row.kind == ControlKind::Button) return Notify(focus_, dialogs::kClicked);
  }
  const auto button = std::ranges::find_if(controls_, isDefault);
  // Without a default button it is OK, whatever that button says of itself.
  if (button == controls_.end()) return Notify(dialogs::kOk, dialogs::kClicked);
  if (button->enabled) Notify(button->row.id, dialogs::kClicked);
}

void Window::Pick(int id, int row) {
  Control& list = Reach(ExpectList(id));
  if (row < 0 || row >= RowCount(id)) Mistake(Title() + ": no such row");
  list.selected = row;
  Notify(id, dialogs::kSelectionChanged);
  // Not before: whoever hears of a new choice still finds the old text.
  list.Choose(row);
}

void Window::Await(const std::function<bool(const SeenDialog&)>& isSo) {
  const auto end = std::chrono::steady_clock::now() + kPatience;
  while (!isSo(Look())) {
    if (std::chrono::steady_clock::now() > end) Mistake(Title() + ": what is waited for does not come");
    {
      const virtual_clock::Waiting forOthers;
      std::this_thread::yield();
    }
    if (port_.meanwhile) port_.meanwhile();
    DeliverPosted();
  }
}

void Window::Do(const DialogStep& step) {
  using Kind = DialogStep::Kind;
  switch (step.kind) {
    case Kind::Type:
      return Type(step.control, WideFromUtf8(step.text));
    case Kind::Paste:
      return Paste(step.control, WideFromUtf8(step.text));
    case Kind::Pick:
      return Pick(step.control, step.row);
    case Kind::Await:
      return Await(step.until);
    case Kind::SetDateTime:
      Reach(step.control, ControlKind::DateTimePicker).time = step.time;
      return;
    case Kind::GoTo:
      if (!At(step.control).TakesFocus()) Mistake(Title() + ": Tab skips " + std::to_string(step.control));
      focus_ = step.control;
      return;
    case Kind::Press:
      Reach(step.control, ControlKind::Button);
      return Notify(step.control, dialogs::kClicked);
    case Kind::PressEnter:
      return PressEnter();
    case Kind::PressEscape:
      return Notify(dialogs::kCancel, dialogs::kClicked);  // with such a button or without
    case Kind::Look:
      port_.seen.push_back(Look());
      return;
  }
}

int Improvise(Window& window, Improviser& improviser, const std::function<void()>& meanwhile) {
  while (!window.Result()) {
    if (meanwhile) meanwhile();
    window.DeliverPosted();
    if (!window.Result()) window.Do(improviser.NextStep(window.Look()));
  }
  return *window.Result();
}

}  // namespace

int Dialogs::Run(dialogs::DlgBase& dialog) {
  const dialogs::DialogTemplate* form = dialogs::FindTemplate(dialog.templateId);
  if (form == nullptr) Mistake("no template " + std::to_string(dialog.templateId));
  Window window(*this, dialog, *form);
  dialog.OnInit(window);
  window.TakeFirstFocus();
  seen.push_back(window.Look());
  if (scripts.empty() && improviser != nullptr) return Improvise(window, *improviser, meanwhile);
  if (scripts.empty()) Mistake("nobody fills " + Quoted(window.Title()));
  const DialogScript script = std::move(scripts.front());
  scripts.pop_front();
  for (const DialogStep& step : script) {
    if (meanwhile) meanwhile();
    window.DeliverPosted();
    if (window.Result()) Mistake(Quoted(window.Title()) + " closed before all was done in it");
    window.Do(step);
  }
  if (!window.Result()) Mistake(Quoted(window.Title()) + " is left open");
  return *window.Result();
}

}  // namespace headless
