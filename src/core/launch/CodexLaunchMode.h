#pragma once

#include "core/settings/EnumCases.h"

namespace tidewell {

// How "Start Codex" starts it: the command-line tool in a terminal, or the desktop app.
enum class CodexLaunchMode { cli, app };

inline constexpr std::array<EnumCase<CodexLaunchMode>, 2> codexLaunchModeCases = {{
    {CodexLaunchMode::cli, "cli", "CLI"},
    {CodexLaunchMode::app, "app", "App"},
}};

} // namespace tidewell
