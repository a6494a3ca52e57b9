#pragma once

#include <string>

namespace rostermill {

/// The folder below which the earlier versions and unsaved changes of all images are kept,
/// whichever program keeps them: "rostermill/versions" in the user's data folder, for example
/// "/home/sam/.local/share/rostermill/versions". An absolute path, UTF-8. It isn't made here.
std::string DataFolder();

}  // namespace rostermill
