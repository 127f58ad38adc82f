#pragma once
// What a script does to one control, by the control's kind, and how it shows
// a control's state.

#include <optional>
#include <string>
#include <vector>

class TControl;

// The commands that act on a control of a window.
bool IsWindowCommand(const std::string& command);
// "Form.Control": the control of that living window, or null.
TControl* FindControl(const std::string& path);
// Runs words (command, control, arguments) on control; a script error if the
// control does not take the command or its arguments are wrong.
std::optional<std::string> ControlCommand(TControl& control, const std::vector<std::string>& words);
// The control's state as "Property=value" lines, values escaped; the rows of
// a list view as their fields, escaped one by one and joined by tabs.
std::vector<std::string> ShowControl(TControl& control);
