#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rostermill {

enum class MessageKind { Plain, Exclamation, Information };

/// How a load and a save report to the user and ask questions. The main window implements it with
/// real windows, tools and tests in a few lines. Texts are UTF-8.
class PipelineHost {
 public:
  virtual ~PipelineHost() = default;

  /// Disables the main window and shows the busy pointer, or reverts both.
  virtual void SetBusy(bool busy) = 0;
  /// Sets line 0 to 7 of the Loading screen.
  virtual void SetLoadingCaption(int line, std::string_view caption) = 0;
  virtual void CloseLoading() = 0;
  /// Lets the window repaint.
  virtual void YieldToWindow() = 0;
  virtual void Beep() = 0;
  /// Enables or disables the commands that need an image.
  virtual void UpdateCommandState() = 0;

  virtual void ShowMessage(MessageKind kind, const std::string& text, const std::string& title) = 0;
  /// False when the answer is No.
  virtual bool Confirm(const std::string& text, const std::string& title) = 0;
  /// The text entered; empty when the user left it blank or cancelled.
  virtual std::string AskForText(const std::string& prompt, const std::string& title,
                                 const std::string& preset) = 0;
};

}  // namespace rostermill
