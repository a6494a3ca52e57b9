#pragma once

#include <optional>
#include <string>

#include "league/league_session.h"

namespace rostermill::test {

/// The first table or variable of the session with a value that should never occur; empty if none.
std::optional<std::string> OutOfRange(const LeagueSession& session);

}  // namespace rostermill::test
