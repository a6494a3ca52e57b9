#pragma once

#include <QRadioButton>

#include "toolkit/color_box.h"
#include "toolkit/control_array.h"

class QGroupBox;

namespace rostermill {

/// Palette indices of the skins "Light", "Medium" and "Dark".
inline constexpr int LightSkin = 22;
inline constexpr int MediumSkin = 6;
inline constexpr int DarkSkin = 15;

/// The option buttons of the two skin frames; index 0 is the first uniform's.
struct SkinOptions {
  ControlArray<QRadioButton> Option1{"Option1"};  ///< LightSkin
  ControlArray<QRadioButton> Option2{"Option2"};  ///< MediumSkin
  ControlArray<QRadioButton> Option3{"Option3"};  ///< DarkSkin

  /// Sets the option of the skin; a palette index that is not a skin changes nothing.
  void Show(int index, int skin);
};

/// "Preview": fills both arrays and puts each figure over its skin options.
QGroupBox* NewPreviewFrame(const QString& name, ControlArray<PictureBox>& figures,
                           SkinOptions& options);

/// A frame of champion colors: boxes after "Jersey:" and "Helmet:", given by their array indexes.
struct ChampFrame {
  QString Name;
  QString Title;
  QString JerseyLabel;
  QString HelmetLabel;
  std::vector<int> Jersey;
  std::vector<int> Helmet;
};
/// Fills `boxes` and lays them out.
QGroupBox* NewChampFrame(const ChampFrame& frame, ControlArray<ColorBox>& boxes);

}  // namespace rostermill
