#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <initializer_list>
#include <sstream>

#include "tests/support/sample.h"
#include "tools/rsmtool/rsmtool.h"

namespace rostermill::test {

using Bytes = std::vector<std::uint8_t>;

/// Runs the tool in this process on images in a folder of its own.
class RsmtoolTest : public testing::Test {
 protected:
  struct Result {
    int Code;
    std::string Out;
    std::string Err;
  };

  Result Run(const QStringList& arguments, const std::string& input = {}) {
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    Console console{in, out, err, out_is_terminal_, err_is_terminal_, BinFolder()};
    const int code = RunRsmtool(arguments, console);
    return {code, out.str(), err.str()};
  }

  /// What a call that ends with this code writes to standard output.
  std::string Out(const QStringList& arguments, int code = 0) {
    const Result result = Run(arguments);
    EXPECT_EQ(result.Code, code) << arguments.join(' ').toStdString() << "\n" << result.Err;
    return result.Out;
  }

  /// Expects that a call ends with this code and writes nothing but this line about itself.
  void ExpectMessage(const QStringList& arguments, int code, const std::string& line) {
    const Result result = Run(arguments);
    EXPECT_EQ(result.Code, code) << line;
    EXPECT_EQ(result.Err, "rsmtool: " + line + "\n");
    EXPECT_EQ(result.Out, "");
  }

  struct Patch {
    int Offset;
    Bytes Values;
  };
  static Bytes Patched(std::initializer_list<Patch> patches) {
    Bytes bytes = SampleBytes();
    for (const auto& [offset, values] : patches) {
      std::copy(values.begin(), values.end(), bytes.begin() + offset);
    }
    return bytes;
  }

  /// The sample image with these bytes in place, as a file.
  QString Image(const char* name, std::initializer_list<Patch> patches = {}) {
    WriteFile(folder_.Path(name), Patched(patches));
    return Path(name);
  }
  QString Path(const char* name) { return QString::fromStdString(folder_.Path(name)); }
  Bytes BytesOf(const QString& path) { return FileBytes(path.toStdString()); }

  TempFolder folder_;
  bool out_is_terminal_ = false;
  bool err_is_terminal_ = false;
};

}  // namespace rostermill::test
