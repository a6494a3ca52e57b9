#include <QRegularExpression>

#include <filesystem>

#include "tests/support/expected_text.h"
#include "tests/tools/rsmtool_fixture.h"

namespace rostermill::test {
namespace {

/// Runs the commands in a file of the `sessions` folder and compares their output with the indented
/// lines below them. The other lines are:
///
///     # title               starts a section
///     = file.csv            creates a file from the lines that follow and begin with "| "; a "\"
///     at
///                           the end of the last line omits the final newline
///     @ file.nes 6DA: 12 7  sets bytes of an image, which starts as a copy of the sample; all
///                           numbers are hexadecimal
///     ? file.nes 6DA 3      shows three bytes from a hexadecimal offset
///     < file.json 10 5      shows five lines of a text file, starting with line 10
///     $ command > file      runs rsmtool; shows its output unless it is redirected. An underscore
///                           in an argument stands for a blank.
class Session : public RsmtoolTest, public testing::WithParamInterface<const char*> {
 protected:
  Session() { std::filesystem::current_path(folder_.Path()); }
  ~Session() override { std::filesystem::current_path(before_); }

  QStringList Follow(const QString& line) {
    if (line.startsWith("| ")) {
      content_ << line.mid(2);
      return {};
    }
    WriteContent();
    if (line.startsWith("= ")) file_ = line.mid(2);
    if (line.startsWith("@ ")) SetBytes(line.mid(2));
    if (line.startsWith("? ")) return {ShownBytes(line.mid(2))};
    if (line.startsWith("< ")) return ShownLines(line.mid(2));
    return line.startsWith("$ ") ? Shown(line.mid(2)) : QStringList();
  }

  const std::filesystem::path before_ = std::filesystem::current_path();

 private:
  void WriteContent() {
    if (file_.isEmpty()) return;
    std::string text = Unescaped(content_.join('\n').toLatin1()) + "\n";
    if (text.ends_with("\\\n")) text.resize(text.size() - 2);
    WriteFile(file_.toStdString(), text);
    file_.clear();
    content_.clear();
  }
  /// Replaces escapes such as "\xE9" by their byte.
  static std::string Unescaped(QByteArray text) {
    for (qsizetype at = 0; (at = text.indexOf("\\x", at)) >= 0; ++at) {
      text.replace(at, 4, QByteArray::fromHex(text.mid(at + 2, 2)));
    }
    return text.toStdString();
  }
  void SetBytes(const QString& words) {
    const std::string file = words.section(' ', 0, 0).toStdString();
    Bytes bytes = std::filesystem::exists(file) ? FileBytes(file) : SampleBytes();
    for (const QString& patch : words.section(' ', 1).split(',', Qt::SkipEmptyParts)) {
      const auto at = static_cast<std::size_t>(patch.section(':', 0, 0).trimmed().toInt({}, 16));
      const QByteArray values = QByteArray::fromHex(patch.section(':', 1).toLatin1());
      bytes.resize(std::max(bytes.size(), at + static_cast<std::size_t>(values.size())));
      std::copy(values.begin(), values.end(), bytes.begin() + static_cast<std::ptrdiff_t>(at));
    }
    WriteFile(file, bytes);
  }
  static QString ShownBytes(const QString& words) {
    const Bytes bytes = FileBytes(words.section(' ', 0, 0).toStdString());
    const QByteArray all(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
    const int at = words.section(' ', 1, 1).toInt({}, 16);
    return all.mid(at, words.section(' ', 2).toInt()).toHex(' ').toUpper();
  }
  static QStringList ShownLines(const QString& words) {
    const Bytes bytes = FileBytes(words.section(' ', 0, 0).toStdString());
    const QStringList lines = QString::fromStdString({bytes.begin(), bytes.end()}).split('\n');
    return lines.mid(words.section(' ', 1, 1).toInt() - 1, words.section(' ', 2).toInt());
  }
  QStringList Shown(const QString& command) {
    QStringList words = QString(command).split(' ');
    const qsizetype to_file = words.indexOf(">");
    const QString file = to_file < 0 ? QString() : words.value(to_file + 1);
    if (to_file >= 0) words = words.first(to_file);
    for (QString& word : words) word.replace('_', ' ');
    const Result result = Run(words);
    if (!file.isEmpty()) WriteFile(file.toStdString(), result.Out);
    QString text = QString::fromStdString((file.isEmpty() ? result.Out : "") + result.Err);
    static const QRegularExpression time("\\d{4}-\\d\\d-\\d\\d[ T]\\d\\d:\\d\\d:\\d\\dZ?");
    QStringList lines = text.replace(time, "(time)").remove('\r').split('\n');
    lines.removeLast();
    constexpr int enough = 40;
    while (lines.size() > enough) lines.removeAt(enough - 3);
    if (result.Code != 0) lines << QString("(exit %1)").arg(result.Code);
    return lines;
  }

  QString file_;
  QStringList content_;
};

INSTANTIATE_TEST_SUITE_P(Rsmtool, Session,
                         testing::Values("changes", "check", "dump", "find", "imports", "json",
                                         "merge", "patches", "players", "season", "teams", "usage",
                                         "versions"),
                         [](const auto& name) { return std::string(name.param); });

TEST_P(Session, SaysWhatItsFileSays) {
  const QString file = QString("tools/sessions/%1.txt").arg(GetParam());
  QStringList sections;
  for (const QString& section : TextOfTestFile(file).split("\n\n")) {
    QStringList lines;
    for (const QString& line : section.split('\n')) {
      if (line.startsWith("  ")) continue;
      lines << line;
      for (const QString& shown : Follow(line)) lines << "  " + shown;
    }
    Follow({});
    sections << lines.join('\n');
  }
  std::filesystem::current_path(before_);
  ExpectTextOfFile(file, sections);
}

}  // namespace
}  // namespace rostermill::test
