// A user's hands: key strokes and mouse movements through the system's input queue, so that they take the
// same way as those of a real keyboard: accelerators, focus and typed characters included.
#pragma once

#include <string_view>

namespace tarrow::probe {

// Presses one key with its modifiers: "Ctrl+Shift+F5", "Home", "a". False for a name that is no key.
[[nodiscard]] bool PressChord(std::string_view chord);

// Types a text; "\n" is the Enter key, "\t" the Tab key.
void TypeText(std::string_view utf8);

// What a mouse does at a place of the screen: "left", "right", "double"; with Ctrl or Shift held where
// `modifiers` names them ("Ctrl", "Shift", "Ctrl+Shift", ""). False for another word, and where the pointer
// will not go.
[[nodiscard]] bool Click(int x, int y, std::string_view how, std::string_view modifiers);

}  // namespace tarrow::probe
