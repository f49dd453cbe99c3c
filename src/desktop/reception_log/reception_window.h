#pragma once

#include <QDateTimeEdit>
#include <QLabel>
#include <QPointer>
#include <QProgressDialog>
#include <QTabWidget>

#include "desktop/reception_log/csv_export.h"
#include "desktop/reception_log/picture_view.h"
#include "desktop/reception_log/reception_table.h"
#include "desktop/windows/dialog_window.h"
#include "shell/reception_log_form.h"

namespace tarnvex::desktop {

/// The log of receptions on the screen: the filter at the top, the rows on one page and the picture
/// on the other, and at the bottom what concerns the whole log.
class ReceptionWindow : public DialogWindow {
 public:
  ReceptionWindow(shell::frmReceptionLog& form, platform::EventGate& gate, QWidget* parent);
  ~ReceptionWindow() override;
  void leaveScreen() override;

  [[nodiscard]] ReceptionModel& model() { return *model_; }
  [[nodiscard]] PictureView& picture() { return *picture_; }
  /// Writes the filtered rows to a file. Meanwhile a progress bar with a Cancel button is shown.
  void exportTo(const QString& file);

 private:
  enum Period { LastHour, Today, SevenDays, All, FromTo };

  void makeParts(shell::frmReceptionLog& form);
  QLayout* makeFilter();
  QLayout* makeFooter(shell::frmReceptionLog& form);
  void connectParts(shell::frmReceptionLog& form, platform::EventGate& gate);
  void connectFilter();
  void follow(shell::frmReceptionLog& form);
  void setFromTo(const QDateTime& from, const QDateTime& to);
  void applyFilter();
  void slide();
  [[nodiscard]] TimeSpan period() const;
  void showCount();
  void showPicture();
  void goToRows(const BusySource& busy, const TimeSpan& span);
  void askForExport();
  void showProgress();
  void followExport();
  void tellExportFailed(const QString& error);

  QString log_;
  /// Its answers go to the other members, so it must be destroyed first.
  std::unique_ptr<QueryThread> thread_;
  ReceptionModel* model_ = nullptr;
  ReceptionTable* table_ = nullptr;
  PictureView* picture_ = nullptr;
  QTabWidget* pages_ = nullptr;
  QLineEdit* text_ = nullptr;
  QComboBox* period_ = nullptr;
  QDateTimeEdit* from_ = nullptr;
  QDateTimeEdit* to_ = nullptr;
  QComboBox* radio_ = nullptr;
  QCheckBox* recorded_ = nullptr;
  QLabel* counted_ = nullptr;
  QPushButton* export_ = nullptr;
  bool pictureStale_ = true;
  QTimer typing_;
  /// Moves the period on with the clock.
  QTimer* sliding_ = nullptr;
  QTimer exportTimer_;
  std::unique_ptr<CsvExport> exporting_;
  QPointer<QProgressDialog> progress_;
};

}  // namespace tarnvex::desktop
