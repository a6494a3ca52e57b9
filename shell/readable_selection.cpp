#include "shell/readable_selection.h"

#include "toolkit/readable_color.h"

namespace rostermill {

QPalette ReadableSelection(QPalette palette) {
  for (const auto group : {QPalette::Active, QPalette::Inactive}) {
    const QColor text = palette.color(group, QPalette::HighlightedText);
    palette.setColor(group, QPalette::HighlightedText, text);
    palette.setColor(group, QPalette::Highlight,
                     StandingOut(palette.color(group, QPalette::Highlight), text));
  }
  return palette;
}

}  // namespace rostermill
