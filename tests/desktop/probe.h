#pragma once

// What the driver and its probe agree on. The probe is a library that the driver has loaded into the program
// under test, by hooks, for what Windows tells to the program's own process only: the menu, the time of a
// picker, and how far it has come with its queue; and for what Windows hands over there alone, a drop of
// files. It changes nothing in the program.

#include "platform/win32/windows_headers.h"

namespace probe {

inline constexpr wchar_t kLibrary[] = L"desktop_probe.dll";
inline constexpr char kSentHook[] = "OnSent";    // of kind WH_CALLWNDPROC
inline constexpr char kTakenHook[] = "OnTaken";  // of kind WH_GETMESSAGE

/// Registered messages to the main window. Sent: look at the menu item of a command number, the first
/// parameter.
inline constexpr wchar_t kLookAtMenu[] = L"LumarineProbeLookAtMenu";
/// Sent to a date and time picker: look at its time.
inline constexpr wchar_t kLookAtPicker[] = L"LumarineProbeLookAtPicker";
/// Sent: take the files that the findings name for a drop on the window, which is posted as the system does.
inline constexpr wchar_t kDrop[] = L"LumarineProbeDrop";
/// Sent to a slider or the scroll bar: look at its thumb.
inline constexpr wchar_t kLookAtThumb[] = L"LumarineProbeLookAtThumb";
/// Sent to the log pane: look at the colour of a character, counted in the first parameter. The selection is
/// brought back.
inline constexpr wchar_t kLookAtColor[] = L"LumarineProbeLookAtColor";
/// Posted: note that the program has come this far, and whether input waits; the first parameter is the mark.
inline constexpr wchar_t kMark[] = L"LumarineProbeMark";

/// A key that no keyboard has and the program never sees. Pressed behind input, it marks that the input was
/// taken.
inline constexpr WORD kInputMark = VK_F24;

/// In shared memory of this name.
inline constexpr wchar_t kMemory[] = L"Local\\LumarineProbe";
struct Findings {
  volatile LONG mark;        // the last one met
  volatile LONG inputWaits;  // when that was met; not 0 if so
  volatile LONG inputMarks;  // met so far
  volatile LONG spaces;      // of Space keys, their releases taken so far
  // Of the menu item looked at last.
  LONG exists;
  LONG enabled;  // by itself and by the menus that it stands in
  LONG checked;
  wchar_t text[256];
  // Of the picker looked at last.
  SYSTEMTIME time;
  // To be dropped: each with its terminator, and one more at the end.
  wchar_t files[2048];
  // Of the thumb looked at last, in its control's coordinates; page and position of a scroll bar alone.
  RECT thumb;
  LONG page;
  LONG position;
  // Of the character looked at last.
  COLORREF color;
};

}  // namespace probe
