#include "desktop/reception_log/query_thread.h"

namespace tarnvex::desktop {

QueryThread::QueryThread(const QString& file) : thread_([this, file] { run(file); }) {}

QueryThread::~QueryThread() {
  {
    const std::lock_guard lock(mutex_);
    ending_ = true;
    questions_.clear();
    wake_.notify_one();
  }
  thread_.join();
}

void QueryThread::ask(std::function<Answer(ReceptionReader&)> question) {
  const std::lock_guard lock(mutex_);
  questions_.push_back(std::move(question));
  wake_.notify_one();
}

void QueryThread::run(const QString& file) {
  ReceptionReader reader(file);
  std::unique_lock lock(mutex_);
  while (true) {
    wake_.wait(lock, [this] { return ending_ || !questions_.empty(); });
    if (ending_) {
      return;
    }
    const auto question = std::move(questions_.front());
    questions_.pop_front();
    lock.unlock();
    QMetaObject::invokeMethod(&home_, question(reader), Qt::QueuedConnection);
    lock.lock();
  }
}

}  // namespace tarnvex::desktop
