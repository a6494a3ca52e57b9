#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rostermill {

enum class MessageKind { Plain, Exclamation, Information };

/// What a load and a save tell their caller and ask of it. The main window implements it with
/// real windows, tools and tests in a few lines. Texts are UTF-8.
class PipelineHost {
 public:
  virtual ~PipelineHost() = default;

  /// Shuts the main window to input and shows the busy pointer, or takes both back.
  virtual void SetBusy(bool busy) = 0;
  /// Sets line 0 to 7 of the Loading screen.
  virtual void SetLoadingCaption(int line, std::string_view caption) = 0;
  virtual void CloseLoading() = 0;
  /// Lets the window repaint.
  virtual void YieldToWindow() = 0;
  virtual void Beep() = 0;
  /// Makes the commands follow whether an image is loaded.
  virtual void UpdateCommandState() = 0;

  virtual void ShowMessage(MessageKind kind, const std::string& text, const std::string& title) = 0;
  /// False when the answer is No.
  virtual bool Confirm(const std::string& text, const std::string& title) = 0;
  /// The text entered; empty when the user left it blank or cancelled.
  virtual std::string AskForText(const std::string& prompt, const std::string& title,
                                 const std::string& preset) = 0;
};

}  // namespace rostermill
