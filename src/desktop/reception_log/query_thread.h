#pragma once

#include <QObject>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <thread>

#include "desktop/reception_log/reception_query.h"

namespace tarnvex::desktop {

/// Reads the log in a thread of its own, so that a window never waits for it. Questions are
/// answered one after the other.
class QueryThread : private platform::NonCopyable {
 public:
  explicit QueryThread(const QString& file);
  /// Waits for the current question and drops the others.
  ~QueryThread();

  /// Runs `question` in the thread, and the answer that it returns in the thread of this object.
  using Answer = std::function<void()>;
  void ask(std::function<Answer(ReceptionReader&)> question);

 private:
  void run(const QString& file);

  QObject home_;
  std::mutex mutex_;
  std::condition_variable wake_;
  std::deque<std::function<Answer(ReceptionReader&)>> questions_;
  bool ending_ = false;
  std::thread thread_;
};

}  // namespace tarnvex::desktop
