#pragma once

#include <QAbstractScrollArea>
#include <QApplication>
#include <QSettings>

#include <string>

#include "bench/pairs.h"
#include "bench/twin.h"
#include "league/league_session.h"
#include "toolkit/form.h"

namespace rostermill::bench {

constexpr int form_pairs = 101;
constexpr int click_pairs = 201;

/// Waits until everything is laid out and painted.
inline void Settle() {
  for (int round = 0; round < 3; ++round) QCoreApplication::processEvents();
}

/// Shows the form as the program does, and waits for its last paint.
inline void Open(ChildArea& area, QWidget* form) {
  if (auto* child = qobject_cast<ChildForm*>(form)) {
    area.ShowForm(child);
  } else {
    form->show();
  }
  Settle();
}

inline void Close(QWidget* form) {
  if (auto* child = qobject_cast<ChildForm*>(form)) {
    child->CloseForm();
  } else {
    delete form;
  }
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  Settle();
}

template <typename Make>
double CostOfOpening(ChildArea& area, Make make) {
  QWidget* form = nullptr;
  const double cost = Milliseconds([&] {
    form = make();
    Open(area, form);
  });
  Close(form);
  return cost;
}

/// `bare` is what a form of that content can't do without, beside being shown.
template <typename Make, typename Bare>
void CompareForm(ChildArea& area, const std::string& name, Make make, Bare bare) {
  QWidget* model = make();
  Open(area, model);
  const Twin twin(*model);
  Compare(
      {"form " + name, 1.3, form_pairs}, [&] { return CostOfOpening(area, make); },
      [&] {
        return CostOfOpening(area, [&] {
          bare();
          return twin.Make();
        });
      });
  Close(model);
}

template <typename Make>
void CompareForm(ChildArea& area, const std::string& name, Make make) {
  CompareForm(area, name, make, [] {});
}

/// Compares the cost of a step until it is painted with a repaint of its whole form.
template <typename Step>
void CompareStep(const std::string& what, QWidget& form, Step step) {
  Compare(
      {what, 1.6, click_pairs},
      [&] {
        return Milliseconds([&] {
          step();
          Settle();
        });
      },
      [&] {
        return Milliseconds([&] {
          form.update();
          // Their grounds hide the form's, so it doesn't paint them.
          for (auto* area : form.findChildren<QAbstractScrollArea*>()) area->viewport()->update();
          Settle();
        });
      });
}

/// The rows of table_rows.cpp: the table of all players, and how its cost grows.
void CompareTable(ChildArea& area, LeagueSession& session, QSettings& settings);

/// The rows of photo_rows.cpp. `work` is a folder for the photos.
void ComparePhotoPages(const LeagueSession& session, const QString& work);

}  // namespace rostermill::bench
