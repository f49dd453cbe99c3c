#pragma once

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QTableView>
#include <QToolButton>
#include <vector>

namespace tarnvex::desktop {

/// Finds rows of a table by part of their text: Enter and F3 go to the next row, Shift+F3 to the
/// previous one, and Escape closes the bar. With nothing to find, F3 opens it. A check box hides
/// empty rows. Nothing here changes the plan or the order of the rows. The row with the cursor is
/// never hidden, so that the user sees where the cursor has gone.
class FindBar : public QWidget {
 public:
  /// `columns` are searched. A row is empty if its text in the first of them is one of
  /// `emptyTexts`. Ctrl+F opens the bar while `page` is in front.
  FindBar(QTableView& table, std::vector<int> columns, QStringList emptyTexts, QWidget* page);

  void open();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  enum class Way { Here, Next, Back };

  QToolButton* makeArrow(Qt::ArrowType arrow, const QString& spoken, Way way);
  void followTable();
  void addKeys(QWidget* page);
  void close();
  void find(Way way);
  [[nodiscard]] static std::size_t placeAfter(const std::vector<int>& rows, int from, Way way);
  [[nodiscard]] QString wanted() const;
  [[nodiscard]] QStringList spellings() const;
  [[nodiscard]] bool matches(int row, const QStringList& spellings) const;
  [[nodiscard]] bool isEmpty(int row) const;
  [[nodiscard]] std::vector<int> foundRows() const;
  void hideRow(int row);
  void showRow(const QModelIndex& current);
  void hideRows();

  QTableView& table_;
  std::vector<int> columns_;
  QStringList emptyTexts_;
  QLineEdit* text_;
  QLabel* count_;
  QCheckBox* hideEmpty_;
};

}  // namespace tarnvex::desktop
