#pragma once
// The whole script is checked before any of it runs: every command's name and
// word count, and the order (handoff before start, window commands after it,
// nothing after quit). Control names are checked when they run, because the
// windows that hold them open only then.

#include <optional>
#include <vector>

#include "script/ScriptParser.h"

std::optional<TScriptError> CheckScript(const std::vector<TScriptCommand>& commands);
