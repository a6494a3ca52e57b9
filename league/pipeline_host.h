#pragma once

#include <string>
#include <string_view>

#include "league/load_steps.h"

namespace rostermill {

enum class MessageKind { Plain, Exclamation, Information };

/// A question that is answered with Yes or No.
struct Question {
  std::string Text;
  std::string Title;
  std::string Note = {};     ///< a second text below the first one
  bool NoByDefault = false;  ///< the answer that Enter gives
};

/// How a load and a save report to the user and ask questions. The main window implements it with
/// real windows, tools and tests in a few lines. Texts are UTF-8.
class PipelineHost {
 public:
  virtual ~PipelineHost() = default;

  /// Disables the main window and shows the busy pointer, or reverts both.
  virtual void SetBusy(bool busy) = 0;
  /// Sets the line of a step on the Loading screen.
  virtual void SetLoadingCaption(LoadStep step, std::string_view caption) = 0;
  virtual void CloseLoading() = 0;
  /// Lets the window repaint.
  virtual void YieldToWindow() = 0;
  virtual void Beep() = 0;
  /// Enables or disables the commands that need an image.
  virtual void UpdateCommandState() = 0;

  virtual void ShowMessage(MessageKind kind, const std::string& text, const std::string& title) = 0;
  /// False when the answer is No.
  virtual bool Confirm(const Question& question) = 0;
  /// The text entered; empty when the user left it blank or cancelled.
  virtual std::string AskForText(const std::string& prompt, const std::string& title,
                                 const std::string& preset) = 0;
};

/// Keeps the host busy from its construction to the end of its scope, however that is left.
class BusyScope {
 public:
  explicit BusyScope(PipelineHost& host) : host_(host) { host_.SetBusy(true); }
  ~BusyScope() { host_.SetBusy(false); }
  BusyScope(const BusyScope&) = delete;
  BusyScope& operator=(const BusyScope&) = delete;

 private:
  PipelineHost& host_;
};

}  // namespace rostermill
