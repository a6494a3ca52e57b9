#pragma once

#include <QPointer>
#include <QString>
#include <QWidget>

#include <cstdint>
#include <exception>
#include <string>

class QFileDialog;

namespace rostermill {

/// An error with a number, thrown by routines that have no other way to report it.
class RaisedError : public std::exception {
 public:
  RaisedError(int number, std::string source, std::string description)
      : Number(number), Source(std::move(source)), Description(std::move(description)) {}
  const char* what() const noexcept override { return Description.c_str(); }

  int Number;
  std::string Source;
  std::string Description;
};

/// The system's file dialogs as an object with properties. A dialog that ends with a file leaves
/// its result in FileExt, FileTitle, fileName and FilterIndex; one that is cancelled changes
/// nothing except as CancelError says.
class clsOpenSave {
 public:
  /// The value of fileName when ShowOpen is cancelled while CancelError is true.
  static constexpr const char* Cancelled = "?error?";

  clsOpenSave() { SetFilter("All Files (*.*)|*.*"); }

  /// The number of characters before the extension of the chosen path, including its dot; 0 without
  /// an extension.
  std::int16_t FileExt() const { return file_ext_; }
  void SetFileExt(std::int16_t offset) { file_ext_ = offset; }
  /// The owner of the dialog; null for none.
  QWidget* hWnd() const { return owner_; }
  void SetHWnd(QWidget* owner) { owner_ = owner; }

  /// Throws RaisedError 32755 when it is cancelled while CancelError is true.
  void ShowSave();
  void ShowOpen();

  /// Kept for the caller: the dialogs take paths of any length.
  std::int16_t MaxFileSize() const { return max_file_size_; }
  void SetMaxFileSize(std::int16_t characters) { max_file_size_ = characters; }
  /// The folder in which the dialog opens; the user's home if there is no such folder.
  QString InitDir() const { return init_dir_; }
  void SetInitDir(const QString& folder) { init_dir_ = folder; }
  /// Kept for the caller: the dialogs have no use for them.
  std::int32_t Flags() const { return flags_; }
  void SetFlags(std::int32_t flags) { flags_ = flags; }
  /// Pairs of a description and its patterns: "NES (*.nes)|*.nes|All Files|*.*". Patterns of one
  /// pair are separated by ";". A "|" at the end is dropped.
  QString Filter() const;
  void SetFilter(const QString& pairs);
  /// The pair that is selected, counted from 1; any other number selects the first.
  std::int16_t FilterIndex() const { return filter_index_; }
  void SetFilterIndex(std::int16_t index) { filter_index_ = index; }
  /// The name of the chosen file without its folder.
  QString FileTitle() const { return file_title_; }
  void SetFileTitle(const QString& title) { file_title_ = title; }
  /// The path that the dialog starts with, and then the chosen one.
  QString fileName() const { return file_name_; }
  void SetFileName(const QString& path) { file_name_ = path; }
  /// The dialog's title; the system's own when it is empty.
  QString DialogTitle() const { return dialog_title_; }
  void SetDialogTitle(const QString& title) { dialog_title_ = title; }
  /// The extension that is added to a name entered without one.
  QString DefaultExt() const { return default_ext_; }
  void SetDefaultExt(const QString& extension) { default_ext_ = extension; }
  /// Whether the caller learns of a cancel.
  bool CancelError() const { return cancel_error_; }
  void SetCancelError(bool reported) { cancel_error_ = reported; }

 private:
  /// Runs the dialog and stores its result; false if it was cancelled.
  bool Run(QFileDialog& dialog);
  void TakeOver(const QFileDialog& dialog);

  std::int16_t file_ext_ = 0;
  QPointer<QWidget> owner_;
  std::int16_t max_file_size_ = 260;
  QString init_dir_ = "C:\\";
  std::int32_t flags_ = 0;
  QString held_filter_;  ///< as set, each "|" a NUL, two NULs at the end
  std::int16_t filter_index_ = 1;
  QString file_title_;
  QString file_name_;
  QString dialog_title_;
  QString default_ext_;
  bool cancel_error_ = false;
};

}  // namespace rostermill
