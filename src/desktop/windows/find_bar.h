#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <vector>

namespace tarnvex::desktop {

/// Finds rows of a table by a part of their text, as browsers find words: Enter and F3 go to the
/// next row, Shift+F3 to the one before, Escape leaves. A box hides the rows that are empty.
/// Nothing here changes the plan or the order of the rows; the row with the cursor is never hidden,
/// so that whatever moves the cursor also shows where it went.
class FindBar : public QWidget {
 public:
  /// The columns whose text is looked at; a row is empty if its text in the first of them is one of
  /// `emptyTexts`. Ctrl+F opens the bar while `page`, its page, is in front.
  FindBar(QTableView& table, std::vector<int> columns, QStringList emptyTexts, QWidget* page);

  void open();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum class Way { Here, Next, Back };

  void addKeys(QWidget* page);
  void close();
  void find(Way way);
  [[nodiscard]] bool matches(int row) const;
  [[nodiscard]] bool isEmpty(int row) const;
  [[nodiscard]] std::vector<int> foundRows() const;
  void hideRow(int row);
  void hideRows();

  QTableView& table_;
  std::vector<int> columns_;
  QStringList emptyTexts_;
  QLineEdit* text_;
  QLabel* count_;
  QCheckBox* hideEmpty_;
};

}  // namespace tarnvex::desktop
