#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include "platform/non_copyable.h"

namespace tarnvex::desktop {

/// What became of an attempt to open or use the log's file.
enum class DatabaseState {
  Good,
  Missing,  ///< there is no file, and none was to be made
  Damaged,  ///< no database, or one that contradicts itself
  Newer,    ///< written by a later version of the program
  Busy,     ///< another program writes; it will let go
  Full,     ///< the disk is full, or can't be written
};

/// One connection to `receptions.db`, for the thread that makes it alone. See the schema in the
/// source.
class ReceptionDatabase : private platform::NonCopyable {
 public:
  /// A reader doesn't make a file, nor change one.
  enum class Access { Read, Write };

  ReceptionDatabase(const QString& file, Access access);
  ~ReceptionDatabase();

  [[nodiscard]] DatabaseState state() const { return state_; }
  /// In the system's words, empty without an error.
  [[nodiscard]] const QString& error() const { return error_; }

  /// A statement, made ready.
  [[nodiscard]] QSqlQuery prepare(const QString& statement);
  /// Runs a statement with these values. False after an error, which `state` then tells.
  bool run(QSqlQuery& query, const QVariantList& values = {});
  bool run(const QString& statement, const QVariantList& values = {});
  /// The first value of the first row.
  QVariant value(const QString& statement, const QVariantList& values = {});

  /// The version that this program writes.
  static constexpr int kVersion = 2;

 private:
  void open(const QString& file, Access access);
  void checkVersion(Access access);
  void upgrade(int from);
  void note(const QSqlError& error);

  QString connection_;
  QSqlDatabase database_;
  DatabaseState state_ = DatabaseState::Good;
  QString error_;
};

/// Renames a damaged file and what belongs to it, with the date in the new name, and returns that.
/// Empty if it couldn't be renamed.
QString setAside(const QString& file);

}  // namespace tarnvex::desktop
