#pragma once

#include <optional>
#include <string>

#include "league/league_session.h"

namespace rostermill::test {

/// The first table or word of the session that holds a value no load, save or screen can stand.
std::optional<std::string> OutOfRange(const LeagueSession& session);

}  // namespace rostermill::test
