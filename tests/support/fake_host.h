#pragma once

#include <deque>
#include <functional>
#include <string>
#include <vector>

#include "league/pipeline_host.h"

namespace rostermill::test {

/// Records what a load or a save reports, and answers its questions.
class FakeHost : public PipelineHost {
 public:
  bool answer_yes = true;
  std::function<void()> at_yield = [] {};
  std::deque<std::string> folder_answers;  ///< in turn; blank when there are no more

  int beeps = 0;
  int yields = 0;
  int state_updates = 0;
  bool busy = false;
  bool loading_open = true;
  std::vector<std::string> captions;  ///< "line:text"
  std::vector<std::string> messages;  ///< "title: text"
  std::vector<std::string> questions;
  std::vector<std::string> prompts;

  void SetBusy(bool on) override { busy = on; }
  void SetLoadingCaption(LoadStep step, std::string_view caption) override {
    captions.push_back(std::to_string(static_cast<int>(step)) + ":" + std::string(caption));
  }
  void CloseLoading() override { loading_open = false; }
  void YieldToWindow() override {
    ++yields;
    at_yield();
  }
  void Beep() override { ++beeps; }
  void UpdateCommandState() override { ++state_updates; }
  void ShowMessage(MessageKind, const std::string& text, const std::string& title) override {
    messages.push_back(title + ": " + text);
  }
  bool Confirm(const Question& question) override {
    questions.push_back(question.Title + ": " + question.Text +
                        (question.Note.empty() ? "" : " (" + question.Note + ")") +
                        (question.NoByDefault ? " [No]" : ""));
    return answer_yes;
  }
  std::string AskForText(const std::string& prompt, const std::string& title,
                         const std::string& preset) override {
    prompts.push_back((loading_open ? "while it loads, " : "") + title + ": " + prompt + " [" +
                      preset + "]");
    if (folder_answers.empty()) return {};
    std::string answer = folder_answers.front();
    folder_answers.pop_front();
    return answer;
  }
};

}  // namespace rostermill::test
