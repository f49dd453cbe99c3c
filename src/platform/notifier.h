#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace tarnvex::platform {

/// Runs a handler, if there is one.
template <class Handler, class... Args>
void run(const Handler& handler, Args&&... args) {
  if (handler) {
    handler(std::forward<Args>(args)...);
  }
}

/// Keeps a callback registered with a Notifier as long as it lives. Movable, and empty by default.
class Connection {
 public:
  Connection() = default;
  explicit Connection(std::shared_ptr<void> token) : token_(std::move(token)) {}

 private:
  std::shared_ptr<void> token_;
};

/// Tells observers about a change. Callbacks run in the order in which they were connected. A
/// callback may connect and disconnect others; a disconnected one isn't called any more.
template <class... Args>
class Notifier {
 public:
  /// An observer's function. It gets what `notify` is called with.
  using Callback = std::function<void(Args...)>;

  /// Const, because observing doesn't change what is observed.
  [[nodiscard]] Connection connect(Callback callback) const {
    auto entry = std::make_shared<Callback>(std::move(callback));
    std::erase_if(entries_, [](const auto& held) { return held.expired(); });
    entries_.push_back(entry);
    return Connection(entry);
  }

  /// Calls back at once, and then after each change.
  [[nodiscard]] Connection follow(Callback callback) const requires(sizeof...(Args) == 0) {
    callback();
    return connect(std::move(callback));
  }

  /// Gives what is observed a new value and tells about it. False if it has that value already.
  template <class Value>
  bool change(Value& property, Value value) const requires(sizeof...(Args) == 0) {
    if (property == value) {
      return false;
    }
    property = std::move(value);
    notify();
    return true;
  }

  void notify(Args... args) const {
    const auto entries = entries_;
    for (const auto& entry : entries) {
      if (const auto callback = entry.lock()) {
        (*callback)(args...);
      }
    }
  }

 private:
  mutable std::vector<std::weak_ptr<Callback>> entries_;
};

}  // namespace tarnvex::platform
