#pragma once

#include <QMainWindow>
#include <QPointer>

#include <functional>

#include "league/pipeline_host.h"
#include "shell/loading.h"

namespace rostermill {

/// Reports what a load and a save do in the main window, and asks their questions there.
class WindowHost : public PipelineHost {
 public:
  /// `update_commands` enables the commands that fit the state, and is called for
  /// UpdateCommandState and after a busy time.
  WindowHost(QMainWindow& window, ChildArea& area, std::function<void()> update_commands);

  /// Shows the Loading screen, which a load closes.
  void ShowLoading();

  void SetBusy(bool busy) override;
  void SetLoadingCaption(LoadStep step, std::string_view caption) override;
  void CloseLoading() override;
  void YieldToWindow() override;
  void Beep() override;
  void UpdateCommandState() override { update_commands_(); }
  void ShowMessage(MessageKind kind, const std::string& text, const std::string& title) override;
  bool Confirm(const Question& question) override;
  std::string AskForText(const std::string& prompt, const std::string& title,
                         const std::string& preset) override;

 private:
  QMainWindow& window_;
  ChildArea& area_;
  std::function<void()> update_commands_;
  QPointer<Loading> loading_;
  QPointer<QWidget> focus_before_;
};

}  // namespace rostermill
