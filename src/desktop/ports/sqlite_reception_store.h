#pragma once

#include <QObject>
#include <QString>
#include <condition_variable>
#include <deque>
#include <map>
#include <memory>
#include <mutex>
#include <thread>

#include "desktop/ports/reception_database.h"
#include "monitor/reception_store.h"
#include "platform/event_gate.h"

namespace tarnvex::desktop {

/// Stores receptions in an SQLite file, `receptions.db`. A thread of its own with its own
/// connection does the work, so that neither a slow disk nor another program's write delays the
/// poll. The first reception creates the file.
class SqliteReceptionStore : public monitor::ReceptionStore {
 public:
  /// `directory` is in the file system's encoding.
  SqliteReceptionStore(const std::string& directory, platform::EventGate& gate);
  /// Waits until all jobs are done.
  ~SqliteReceptionStore() override;

  void write(int number, const monitor::Reception& reception, bool final) override;
  void thin(std::int64_t before) override;
  void clear() override;
  [[nodiscard]] std::string file() const override;

  /// Waits until all jobs are done.
  void finish();

 private:
  struct Write {
    int number;
    monitor::Reception reception;
    bool final;
  };
  struct Jobs {
    std::deque<Write> writes;
    std::int64_t thinBefore = 0;
    bool clear = false;
    bool end = false;
    [[nodiscard]] bool none() const { return writes.empty() && thinBefore == 0 && !clear; }
  };

  template <class Change>
  void post(Change change);
  void run();
  Jobs take();
  void giveBack(Jobs&& jobs);
  void work(Jobs& jobs);
  bool attempt(const Jobs& jobs);
  bool clearAll();
  bool writeAll(const std::deque<Write>& writes);
  bool writeOne(const Write& write);
  qint64 sourceOf(const monitor::Reception& reception);
  bool thinSlice(std::int64_t before);
  /// Tries to remove the cause of a failed attempt, or gives up. Does nothing if the file is busy.
  void recover();
  void giveUp(const QString& why);
  void tellChanged();
  void tell(const QString& words);

  QString file_;
  platform::EventGate& gate_;
  /// Passes messages from the worker to the core's thread.
  QObject home_;

  std::mutex mutex_;
  std::condition_variable wake_;
  std::condition_variable idle_;
  Jobs jobs_;
  bool working_ = false;

  // Only used by the worker.
  std::unique_ptr<ReceptionDatabase> database_;
  /// The rows of receptions that aren't final yet, by their numbers.
  std::map<int, qint64> rows_;
  bool moreToThin_ = false;
  bool givenUp_ = false;
  std::thread thread_;
};

}  // namespace tarnvex::desktop
