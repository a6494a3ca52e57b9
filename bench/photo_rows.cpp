#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QRadioButton>

#include <cstdlib>
#include <memory>

#include "bench/form_costs.h"
#include "rules/face_paths.h"
#include "screens/players/player_photos.h"
#include "toolkit/qt_strings.h"
#include "tools/driver/driver.h"

namespace rostermill::bench {

namespace {

constexpr int page_size = 128;

/// Turns the pages of the photo picker, in a folder whose files are new to it or known.
class PhotoPages {
 public:
  PhotoPages(const LeagueSession& session, const QString& work)
      : folder_(work + "/"), photos_(MakeFolder(session, folder_)) {}

  /// Clicks the button of the other page. The pictures are set by then, and painted later.
  double Turn() {
    white_ = !white_;
    auto& page = driver::Find<QRadioButton>(*photos_, white_ ? "radWhite" : "radBlack");
    return Milliseconds([&] { page.click(); });
  }

  /// Makes all files look changed since they were read.
  void TouchFiles() {
    ++seconds_;
    for (int face = 0; face < 2 * page_size; ++face) {
      QFile file(FromUtf8(FacePath(ToUtf8(folder_), face)));
      if (!file.open(QIODevice::ReadWrite) ||
          !file.setFileTime(QDateTime::fromSecsSinceEpoch(seconds_),
                            QFileDevice::FileModificationTime)) {
        std::exit(1);
      }
    }
  }

  double Decode() const {
    return Milliseconds([this] {
      for (int index = 0; index < page_size; ++index) {
        if (QImageReader(FaceFile(index)).read().isNull()) std::exit(1);
      }
    });
  }

 private:
  static std::unique_ptr<PlayerPhotos> MakeFolder(const LeagueSession& session,
                                                  const QString& folder) {
    QDir().mkpath(folder + "faces");
    for (int face = 0; face < 2 * page_size; ++face) {
      QFile::copy(FromUtf8(FacePath(session.AppDir, face)),
                  FromUtf8(FacePath(ToUtf8(folder), face)));
    }
    return std::make_unique<PlayerPhotos>(nullptr, ToUtf8(folder));
  }

  QString FaceFile(int index) const {
    return FromUtf8(FacePath(ToUtf8(folder_), index + (white_ ? 0 : page_size)));
  }

  QString folder_;
  std::unique_ptr<PlayerPhotos> photos_;
  bool white_ = true;
  qint64 seconds_ = 1'000'000;
};

}  // namespace

void ComparePhotoPages(const LeagueSession& session, const QString& work) {
  PhotoPages pages(session, work);
  Compare(
      {"photo page of 128, first time", 1.25, form_pairs},
      [&] {
        pages.TouchFiles();
        return pages.Turn();
      },
      [&] {
        pages.TouchFiles();
        return pages.Decode();
      });
  pages.Turn();
  pages.Turn();
  Compare(
      {"photo page of 128, seen before", 0.4, form_pairs}, [&] { return pages.Turn(); },
      [&] { return pages.Decode(); });
}

}  // namespace rostermill::bench
