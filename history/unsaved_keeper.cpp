#include "history/unsaved_keeper.h"

#include <exception>
#include <system_error>
#include <utility>

namespace rostermill {

UnsavedKeeper::UnsavedKeeper(std::string base, const std::string& image)
    : store_(std::move(base), image) {}

UnsavedKeeper::~UnsavedKeeper() {
  Store();
}

void UnsavedKeeper::Keep(std::function<std::string()> state, std::vector<int> brought_back) {
  Ask([state = std::move(state), marks = std::move(brought_back)](UnsavedStore& store) {
    store.Keep(state(), marks);
  });
}

void UnsavedKeeper::Drop() {
  Ask([](UnsavedStore& store) { store.Drop(); });
}

UnsavedStore& UnsavedKeeper::Store() {
  if (worker_.joinable()) worker_.join();
  return store_;
}

std::optional<std::string> UnsavedKeeper::TakeFailure() {
  const std::lock_guard guard(mutex_);
  return std::exchange(failure_, std::nullopt);
}

void UnsavedKeeper::Ask(Job job) {
  {
    const std::lock_guard guard(mutex_);
    next_ = std::move(job);
    if (working_) return;
    working_ = true;
  }
  Store();
  try {
    worker_ = std::thread([this] { Work(); });
  } catch (const std::system_error&) {
    Work();  // no thread can be started: slower, but kept
  }
}

void UnsavedKeeper::Work() {
  for (;;) {
    Job job;
    {
      const std::lock_guard guard(mutex_);
      job = std::exchange(next_, nullptr);
      working_ = job != nullptr;
      if (!job) return;
    }
    std::optional<std::string> failure;
    try {
      job(store_);
    } catch (const std::exception& error) {
      failure = error.what();
    }
    const std::lock_guard guard(mutex_);
    failure_ = std::move(failure);
  }
}

}  // namespace rostermill
