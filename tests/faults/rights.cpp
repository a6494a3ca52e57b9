#include "tests/faults/rights.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <cstring>
#include <set>
#include <sstream>

#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>

namespace rostermill::test {

std::string RightsOf(const std::string& path) {
  struct stat facts {};
  EXPECT_EQ(stat(path.c_str(), &facts), 0) << path;
  std::ostringstream text;
  text << facts.st_uid << ':' << facts.st_gid << ' ' << std::oct << facts.st_mode;
  std::array<char, 4096> names{};
  std::set<std::string> attributes;
  const ssize_t size = listxattr(path.c_str(), names.data(), names.size());
  for (const char* name = names.data(); name < names.data() + size; name += strlen(name) + 1) {
    std::array<unsigned char, 4096> value{};
    const ssize_t length = getxattr(path.c_str(), name, value.data(), value.size());
    std::ostringstream attribute;
    attribute << ' ' << name << '=' << std::hex;
    for (ssize_t i = 0; i < length; ++i)
      attribute << int{value[static_cast<std::size_t>(i)]} << '.';
    attributes.insert(attribute.str());
  }
  for (const std::string& attribute : attributes) text << attribute;
  return text.str();
}

std::string OutputOf(const std::string& command, int& status) {
  std::string text;
  FILE* pipe = popen((command + " 2>&1").c_str(), "r");
  for (int c = fgetc(pipe); c != EOF; c = fgetc(pipe)) text += static_cast<char>(c);
  status = WEXITSTATUS(pclose(pipe));
  return text;
}

}  // namespace rostermill::test
