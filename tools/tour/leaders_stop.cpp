#include <QScrollBar>

#include "toolkit/click_label.h"
#include "tools/driver/driver.h"
#include "tools/tour/tour.h"

namespace rostermill {

void VisitLeaders(Tour& tour) {
  using driver::Find;
  tour.Pick("mVieLeaders");
  QWidget& leaders = tour.Form("ViewLeaders");
  tour.Picture(leaders, "leaders");
  for (const char* heading : {"lblHead(1)", "lblHead(3)"}) {
    emit Find<ClickLabel>(leaders, heading).Click();
  }
  tour.Picture(leaders, "leaders-sorted");
  auto& positions = Find<QComboBox>(leaders, "cmbPosition");
  tour.Choose(positions, "Offensive Lineman");
  auto& bar = Find<QScrollBar>(leaders, "scrBar");
  tour.Require(bar.maximum() == 136, "140 linemen are listed");
  bar.setValue(bar.maximum());
  tour.Picture(leaders, "leaders-last-linemen");
  driver::OnNextDialog([&tour](QDialog& print) {
    tour.Picture(print, "print");
    print.reject();
  });
  tour.Click("ViewLeaders", "btnPrint");
  tour.Click("ViewLeaders", "btnOK");
}

}  // namespace rostermill
