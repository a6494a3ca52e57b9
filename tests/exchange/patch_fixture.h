#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <vector>

#include "exchange/patch.h"

namespace rostermill::test {

using Bytes = std::vector<std::uint8_t>;

inline Bytes BytesOf(std::string_view text) {
  return {text.begin(), text.end()};
}

/// What PatchError says; empty where nothing is thrown.
inline std::string PatchErrorOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const PatchError& error) {
    return error.what();
  }
  return {};
}

}  // namespace rostermill::test
