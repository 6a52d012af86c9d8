// Runs inside the program under test, on its user interface thread.

#include "tests/desktop/probe.h"

// after windows.h
#include <commctrl.h>
#include <richedit.h>
#include <shellapi.h>
#include <shlobj.h>

namespace {

probe::Findings* OpenFindings() {
  // Not closed: it lasts as long as the program.
  const HANDLE memory = OpenFileMappingW(FILE_MAP_WRITE, FALSE, probe::kMemory);
  if (memory == nullptr) return nullptr;
  return static_cast<probe::Findings*>(MapViewOfFile(memory, FILE_MAP_WRITE, 0, 0, sizeof(probe::Findings)));
}

probe::Findings* Shared() {
  static probe::Findings* const findings = OpenFindings();
  return findings;
}

// Looks for a command in a menu and the ones below it. `enabled` tells of the menus above.
bool LookIn(HMENU menu, UINT command, bool enabled, probe::Findings& findings) {
  for (int position = 0; position < GetMenuItemCount(menu); ++position) {
    MENUITEMINFOW info{};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING;
    info.dwTypeData = findings.text;
    info.cch = ARRAYSIZE(findings.text);
    if (!GetMenuItemInfoW(menu, static_cast<UINT>(position), TRUE, &info)) continue;
    const bool itself = enabled && (info.fState & MFS_DISABLED) == 0;
    if (info.hSubMenu != nullptr) {
      if (LookIn(info.hSubMenu, command, itself, findings)) return true;
    } else if (info.wID == command) {
      findings.enabled = itself;
      findings.checked = (info.fState & MFS_CHECKED) != 0;
      return true;
    }
  }
  return false;
}

// Puts a drop of the files into the window's queue.
void Drop(HWND window, const probe::Findings& findings) {
  const HGLOBAL memory = GlobalAlloc(GHND, sizeof(DROPFILES) + sizeof findings.files);
  auto* const drop = static_cast<DROPFILES*>(GlobalLock(memory));
  drop->pFiles = sizeof(DROPFILES);
  drop->fWide = TRUE;
  CopyMemory(drop + 1, findings.files, sizeof findings.files);
  GlobalUnlock(memory);
  PostMessageW(window, WM_DROPFILES, reinterpret_cast<WPARAM>(memory), 0);
}

bool IsSlider(HWND control) {
  wchar_t name[32]{};
  GetClassNameW(control, name, ARRAYSIZE(name));
  return lstrcmpiW(name, TRACKBAR_CLASSW) == 0;
}

void LookAtThumb(HWND control, probe::Findings& findings) {
  if (IsSlider(control)) {
    SendMessageW(control, TBM_GETTHUMBRECT, 0, reinterpret_cast<LPARAM>(&findings.thumb));
    return;
  }
  SCROLLBARINFO bar{};
  bar.cbSize = sizeof bar;
  GetScrollBarInfo(control, static_cast<LONG>(OBJID_CLIENT), &bar);
  findings.thumb = {bar.xyThumbTop, 0, bar.xyThumbBottom, bar.rcScrollBar.bottom - bar.rcScrollBar.top};
  SCROLLINFO info{};
  info.cbSize = sizeof info;
  info.fMask = SIF_ALL;
  GetScrollInfo(control, SB_CTL, &info);
  findings.page = static_cast<LONG>(info.nPage);
  findings.position = info.nPos;
}

void LookAtColor(HWND pane, LONG character, probe::Findings& findings) {
  CHARRANGE before{};
  SendMessageW(pane, EM_EXGETSEL, 0, reinterpret_cast<LPARAM>(&before));
  CHARRANGE looked{character, character + 1};
  SendMessageW(pane, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&looked));
  CHARFORMATW format{};
  format.cbSize = sizeof format;
  SendMessageW(pane, EM_GETCHARFORMAT, SCF_SELECTION, reinterpret_cast<LPARAM>(&format));
  SendMessageW(pane, EM_EXSETSEL, 0, reinterpret_cast<LPARAM>(&before));
  const bool isTheSystems = (format.dwEffects & CFE_AUTOCOLOR) != 0;
  findings.color = isTheSystems ? GetSysColor(COLOR_WINDOWTEXT) : format.crTextColor;
}

}  // namespace

extern "C" __declspec(dllexport) LRESULT CALLBACK OnSent(int code, WPARAM first, LPARAM second) {
  static const UINT lookAtMenu = RegisterWindowMessageW(probe::kLookAtMenu);
  static const UINT lookAtPicker = RegisterWindowMessageW(probe::kLookAtPicker);
  static const UINT drop = RegisterWindowMessageW(probe::kDrop);
  static const UINT lookAtThumb = RegisterWindowMessageW(probe::kLookAtThumb);
  static const UINT lookAtColor = RegisterWindowMessageW(probe::kLookAtColor);
  const auto& sent = *reinterpret_cast<const CWPSTRUCT*>(second);
  if (code >= 0 && sent.message == lookAtMenu && Shared() != nullptr) {
    Shared()->exists = LookIn(GetMenu(sent.hwnd), static_cast<UINT>(sent.wParam), true, *Shared());
  }
  if (code >= 0 && sent.message == drop && Shared() != nullptr) Drop(sent.hwnd, *Shared());
  if (code >= 0 && sent.message == lookAtPicker && Shared() != nullptr) {
    SendMessageW(sent.hwnd, DTM_GETSYSTEMTIME, 0, reinterpret_cast<LPARAM>(&Shared()->time));
  }
  if (code >= 0 && sent.message == lookAtThumb && Shared() != nullptr) LookAtThumb(sent.hwnd, *Shared());
  if (code >= 0 && sent.message == lookAtColor && Shared() != nullptr) {
    LookAtColor(sent.hwnd, static_cast<LONG>(sent.wParam), *Shared());
  }
  return CallNextHookEx(nullptr, code, first, second);
}

extern "C" __declspec(dllexport) LRESULT CALLBACK OnTaken(int code, WPARAM first, LPARAM second) {
  static const UINT mark = RegisterWindowMessageW(probe::kMark);
  auto& taken = *reinterpret_cast<MSG*>(second);
  if (code >= 0 && first == PM_REMOVE && Shared() != nullptr) {
    const bool isKey = taken.message == WM_KEYDOWN || taken.message == WM_KEYUP;
    if (taken.message == mark) {
      // What the display has told but nobody has asked for comes into the queue by this question.
      InterlockedExchange(&Shared()->inputWaits, HIWORD(GetQueueStatus(QS_INPUT)));
      InterlockedExchange(&Shared()->mark, static_cast<LONG>(taken.wParam));
    }
    if (taken.message == WM_KEYUP && taken.wParam == VK_SPACE) InterlockedIncrement(&Shared()->spaces);
    if (isKey && taken.wParam == probe::kInputMark) {
      if (taken.message == WM_KEYUP) InterlockedIncrement(&Shared()->inputMarks);
      taken.message = WM_NULL;
    }
  }
  return CallNextHookEx(nullptr, code, first, second);
}
