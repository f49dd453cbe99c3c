#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include "platform/non_copyable.h"

namespace tarnvex::desktop {

/// The result of opening or using the log's file.
enum class DatabaseState {
  Good,
  Missing,  ///< there is no file, and a reader doesn't create one
  Damaged,  ///< not a database, or an inconsistent one
  Newer,    ///< written by a later version of the program
  Busy,     ///< another program is writing; worth another try
  Full,     ///< the disk or the memory is full, or the file can't be used
};

/// A connection to `receptions.db`. Only the thread that creates it may use it. The schema is in
/// the source.
class ReceptionDatabase : private platform::NonCopyable {
 public:
  /// A reader neither creates nor changes the file.
  enum class Access { Read, Write };

  ReceptionDatabase(const QString& file, Access access);
  ~ReceptionDatabase();

  [[nodiscard]] DatabaseState state() const { return state_; }
  /// The last error in SQLite's words. Empty if there was none.
  [[nodiscard]] const QString& error() const { return error_; }

  /// Prepares a statement.
  [[nodiscard]] QSqlQuery prepare(const QString& statement);
  /// Runs a statement with these values. False after an error; `state` then says which.
  bool run(QSqlQuery& query, const QVariantList& values = {});
  bool run(const QString& statement, const QVariantList& values = {});
  /// Goes to the next row. False after the last one, and after an error.
  bool next(QSqlQuery& query);
  /// The first value of the first row.
  QVariant value(const QString& statement, const QVariantList& values = {});

  /// The schema's version that this program writes.
  static constexpr int kVersion = 2;

 private:
  void open(const QString& file, Access access);
  void checkVersion(Access access);
  void upgrade(int from);
  bool runSteps(int from);
  void note(const QSqlError& error);

  QString connection_;
  QSqlDatabase database_;
  DatabaseState state_ = DatabaseState::Good;
  QString error_;
};

/// Renames a damaged file and its companions. The new name has the date in it. Returns the new
/// name, or empty if the file couldn't be renamed.
QString setAside(const QString& file);

}  // namespace tarnvex::desktop
