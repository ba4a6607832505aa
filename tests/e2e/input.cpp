#include "tests/e2e/input.h"

#include <algorithm>
#include <cctype>
#include <string>
#include <vector>

#include "framework/unicode.h"

#include <windows.h>

namespace tarrow::probe {
namespace {

struct NamedKey {
  std::string_view name;
  WORD code;
};

constexpr NamedKey kKeys[] = {
    {"Ctrl", VK_CONTROL},  {"Shift", VK_SHIFT},   {"Alt", VK_MENU},    {"Enter", VK_RETURN},
    {"Tab", VK_TAB},       {"Escape", VK_ESCAPE}, {"Space", VK_SPACE}, {"Backspace", VK_BACK},
    {"Delete", VK_DELETE}, {"Insert", VK_INSERT}, {"Home", VK_HOME},   {"End", VK_END},
    {"PageUp", VK_PRIOR},  {"PageDown", VK_NEXT}, {"Left", VK_LEFT},   {"Right", VK_RIGHT},
    {"Up", VK_UP},         {"Down", VK_DOWN},     {"F1", VK_F1},       {"F2", VK_F2},
    {"F3", VK_F3},         {"F4", VK_F4},         {"F5", VK_F5},       {"F6", VK_F6},
    {"F7", VK_F7},         {"F8", VK_F8},         {"F9", VK_F9},       {"F10", VK_F10},
    {"F11", VK_F11},       {"F12", VK_F12},
};

// The arrow and editing keys between the two blocks of a keyboard carry this mark.
bool IsExtended(WORD code) {
  return (code >= VK_PRIOR && code <= VK_DOWN) || code == VK_INSERT || code == VK_DELETE;
}

// The code of a key by its name; 0 for an unknown one.
WORD CodeOf(std::string_view name) {
  const auto* found = std::find_if(std::begin(kKeys), std::end(kKeys),
                                   [name](const NamedKey& key) { return key.name == name; });
  if (found != std::end(kKeys)) return found->code;
  if (name.size() != 1) return 0;
  const SHORT scanned = VkKeyScanW(static_cast<unsigned char>(name[0]));
  return scanned == -1 ? WORD{0} : static_cast<WORD>(scanned & 0xFF);
}

INPUT KeyInput(WORD code, bool isUp) {
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wVk = code;
  input.ki.wScan = static_cast<WORD>(MapVirtualKeyW(code, MAPVK_VK_TO_VSC));
  input.ki.dwFlags = (isUp ? KEYEVENTF_KEYUP : 0u) | (IsExtended(code) ? KEYEVENTF_EXTENDEDKEY : 0u);
  return input;
}

INPUT MouseInput(DWORD flags, int x = 0, int y = 0) {
  INPUT input = {};
  input.type = INPUT_MOUSE;
  input.mi.dwFlags = flags;
  if (flags & MOUSEEVENTF_ABSOLUTE) {
    // The middle of the pixel, in the 65536ths of the screen that the queue counts in.
    input.mi.dx = (2 * x + 1) * 32768 / GetSystemMetrics(SM_CXSCREEN);
    input.mi.dy = (2 * y + 1) * 32768 / GetSystemMetrics(SM_CYSCREEN);
  }
  return input;
}

void Send(std::vector<INPUT> inputs) {
  SendInput(static_cast<UINT>(inputs.size()), inputs.data(), sizeof(INPUT));
}

bool IsAt(POINT place) {
  POINT now{};
  return GetCursorPos(&now) && now.x == place.x && now.y == place.y;
}

// Moves the pointer, and waits until it stays there: the display tells of an earlier move when it likes, and
// takes the pointer back to where it was then. False when it will not stay.
bool PointAt(POINT place) {
  constexpr ULONGLONG kLimit = 10'000;  // milliseconds
  constexpr DWORD kBetweenLooks = 5;
  constexpr int kLooks = 8;
  int quiet = 0;
  for (const ULONGLONG began = GetTickCount64(); quiet < kLooks && GetTickCount64() - began < kLimit;
       ++quiet) {
    if (!IsAt(place)) {
      quiet = 0;
      Send({MouseInput(MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE, place.x, place.y)});
    }
    // Answered when the window's program has taken what the display had for it.
    DWORD_PTR answer = 0;
    SendMessageTimeoutW(WindowFromPoint(place), WM_NULL, 0, 0, SMTO_NORMAL, kLimit, &answer);
    Sleep(kBetweenLooks);
  }
  return quiet == kLooks;
}

// The codes of "Ctrl+Shift+F5" in the order of pressing; empty when a part is no key. "+" alone is a key.
std::vector<WORD> CodesOf(std::string_view chord) {
  std::vector<WORD> codes;
  while (!chord.empty()) {
    const std::size_t plus = chord.find('+', 1);
    const WORD code = CodeOf(chord.substr(0, plus));
    if (code == 0) return {};
    codes.push_back(code);
    chord = plus == std::string_view::npos ? std::string_view() : chord.substr(plus + 1);
  }
  return codes;
}

std::vector<INPUT> PressesOf(const std::vector<WORD>& codes, bool isUp) {
  std::vector<INPUT> inputs;
  for (const WORD code : codes) inputs.push_back(KeyInput(code, isUp));
  if (isUp) std::reverse(inputs.begin(), inputs.end());
  return inputs;
}

void SendHolding(const std::vector<WORD>& held, const std::vector<INPUT>& between) {
  std::vector<INPUT> inputs = PressesOf(held, false);
  inputs.insert(inputs.end(), between.begin(), between.end());
  const std::vector<INPUT> releases = PressesOf(held, true);
  inputs.insert(inputs.end(), releases.begin(), releases.end());
  Send(inputs);
}

// A character by its own key where the keyboard has one, else as the character itself.
void TypeUnit(wchar_t unit) {
  const SHORT scanned = VkKeyScanW(unit);
  std::vector<INPUT> inputs;
  if (scanned != -1 && (scanned & 0x600) == 0) {
    const WORD code = static_cast<WORD>(scanned & 0xFF);
    const std::vector<WORD> held = (scanned & 0x100) ? std::vector<WORD>{VK_SHIFT} : std::vector<WORD>{};
    SendHolding(held, {KeyInput(code, false), KeyInput(code, true)});
    return;
  }
  INPUT input = {};
  input.type = INPUT_KEYBOARD;
  input.ki.wScan = unit;
  input.ki.dwFlags = KEYEVENTF_UNICODE;
  inputs.push_back(input);
  input.ki.dwFlags |= KEYEVENTF_KEYUP;
  inputs.push_back(input);
  Send(inputs);
}

}  // namespace

bool PressChord(std::string_view chord) {
  const std::vector<WORD> codes = CodesOf(chord);
  SendHolding(codes, {});
  return !codes.empty();
}

void TypeText(std::string_view utf8) {
  for (const wchar_t unit : ToWide(utf8)) {
    if (unit == L'\n') {
      SendHolding({VK_RETURN}, {});
    } else {
      TypeUnit(unit);
    }
  }
}

bool Click(int x, int y, std::string_view how, std::string_view modifiers) {
  const bool isRight = how == "right";
  if (!isRight && how != "left" && how != "double") return false;
  if (!PointAt({x, y})) return false;
  const INPUT down = MouseInput(isRight ? MOUSEEVENTF_RIGHTDOWN : MOUSEEVENTF_LEFTDOWN);
  const INPUT up = MouseInput(isRight ? MOUSEEVENTF_RIGHTUP : MOUSEEVENTF_LEFTUP);
  std::vector<INPUT> inputs = {down, up};
  if (how == "double") inputs.insert(inputs.end(), {down, up});
  SendHolding(CodesOf(modifiers), inputs);
  return true;
}

}  // namespace tarrow::probe
