#pragma once

#include <QImage>

#include "tools/play_pictures/play_book.h"

namespace rostermill {

QImage DrawPlay(const Play& play);

}  // namespace rostermill
