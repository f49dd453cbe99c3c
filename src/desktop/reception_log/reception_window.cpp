#include "desktop/reception_log/reception_window.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QScrollArea>
#include <QVBoxLayout>

#include "desktop/ports/plain_dialogs.h"
#include "desktop/ports/text.h"
#include "desktop/reception_log/reception_texts.h"
#include "desktop/windows/calm_wheel.h"
#include "desktop/windows/parts.h"
#include "desktop/windows/plain_text.h"

namespace tarnvex::desktop {
namespace {

/// The filter is applied after a pause of this length in the typing.
constexpr int kTypingMilliseconds = 120;
constexpr int kExportLookMilliseconds = 50;
constexpr int kPicturePage = 1;
constexpr int kSlideMilliseconds = 60'000;

monitor::Heard heardOf(const ReceptionSource& source) {
  monitor::Heard heard;
  heard.frequency = source.frequency;
  heard.talkgroup = fromScreen(source.talkgroup);
  heard.bank = source.bank;
  heard.channel = source.channel;
  return heard;
}

QDateTimeEdit* makeTime(const char* name, const QString& spoken) {
  auto* edit = named(new QDateTimeEdit, name, spoken);
  edit->setCalendarPopup(true);
  edit->setDisplayFormat(QStringLiteral("yyyy-MM-dd HH:mm"));
  edit->hide();
  return edit;
}

QComboBox* makeChoice(const char* name, const QString& spoken, const QStringList& lines) {
  auto* box = named(new QComboBox, name, spoken);
  // To a screen reader on Linux, a drop-down is named by what it shows.
  box->setAccessibleDescription(spoken);
  box->addItems(lines);
  return box;
}

}  // namespace

ReceptionWindow::ReceptionWindow(shell::frmReceptionLog& form, platform::EventGate& gate,
                                 QWidget* parent)
    : DialogWindow(
          gate, form.window, [&form] { form.userClose(); }, parent),
      log_(QFile::decodeName(form.log().store().file().c_str())),
      thread_(std::make_unique<QueryThread>(log_)) {
  setWindowFlags(windowFlags() | Qt::WindowMinMaxButtonsHint);
  makeParts(form);
  auto* column = new QVBoxLayout(this);
  column->addLayout(makeFilter());
  column->addWidget(pages_, 1);
  column->addLayout(makeFooter(form));
  connectFilter();
  connectParts(form, gate);
  follow(form);
  text_->setFocus();
  const QFontMetrics metrics(font());
  const QSize wanted(metrics.averageCharWidth() * 150, metrics.height() * 42);
  resize(wanted.boundedTo(screen()->availableSize() * 0.9));
  applyFilter();
}

ReceptionWindow::~ReceptionWindow() {
  exporting_.reset();
  thread_.reset();
}

/// The form is destroyed before the window.
void ReceptionWindow::leaveScreen() {
  model_->forgetPlan();
  DialogWindow::leaveScreen();
}

void ReceptionWindow::makeParts(shell::frmReceptionLog& form) {
  const auto planTag = [&form](const ReceptionSource& source) {
    return toScreen(form.planTag(heardOf(source)));
  };
  model_ = new ReceptionModel(*thread_, planTag, this);
  table_ = new ReceptionTable(*model_, QFileInfo(log_).path());
  picture_ = new PictureView(*thread_, *model_);
  // If the window is too low, the picture can be scrolled.
  auto* frame = new QScrollArea;
  frame->setWidget(picture_);
  frame->setWidgetResizable(true);
  frame->setFrameShape(QFrame::NoFrame);
  pages_ = named(new QTabWidget, "pages");
  pages_->setAccessibleName(tr("Pages"));
  pages_->addTab(table_, tr("&Receptions"));
  pages_->addTab(frame, tr("&Picture"));
}

QLayout* ReceptionWindow::makeFilter() {
  text_ = makeSearchLine("filter", tr("Filter by tag, frequency, ID or tone"), tr("Filter"));
  period_ = makeChoice("period", tr("Period"),
                       {tr("Last hour"), tr("Today"), tr("7 days"), tr("All"), tr("From - to")});
  period_->setCurrentIndex(All);
  from_ = makeTime("from", tr("From"));
  to_ = makeTime("to", tr("To"));
  radio_ = makeChoice("radio", tr("Radio"),
                      {tr("Both radios"), QStringLiteral("BC895XLT"), QStringLiteral("BC245XLT")});
  for (QWidget* box : std::initializer_list<QWidget*>{period_, from_, to_, radio_}) {
    calmWheel(box);
  }
  recorded_ = named(new QCheckBox(tr("Only with &recording")), "recordedOnly");
  auto* row = new QHBoxLayout;
  row->addWidget(text_, 1);
  for (QWidget* widget : std::initializer_list<QWidget*>{period_, from_, to_, radio_, recorded_}) {
    row->addWidget(widget);
  }
  return row;
}

QLayout* ReceptionWindow::makeFooter(shell::frmReceptionLog& form) {
  auto* keepFor = binder().make<QComboBox>(form.log().cboKeepFor);
  auto* caption = makeLabel(tr("Keep &for:"));
  caption->setBuddy(keepFor);
  counted_ = named(makeLabel(), "counted");
  export_ = named(new QPushButton(tr("&Export...")), "export");
  export_->setAutoDefault(false);
  auto* clear = binder().make<QPushButton>(form.cmdClear);
  clear->setAutoDefault(false);
  const int gap = fontMetrics().height();
  auto* row = new QHBoxLayout;
  row->addWidget(binder().make<QCheckBox>(form.log().chkKeep));
  row->addSpacing(gap);
  row->addWidget(caption);
  row->addWidget(keepFor);
  row->addStretch();
  row->addWidget(counted_);
  row->addSpacing(gap);
  row->addWidget(export_);
  row->addWidget(clear);
  return row;
}

void ReceptionWindow::connectFilter() {
  typing_.setSingleShot(true);
  typing_.setInterval(kTypingMilliseconds);
  connect(&typing_, &QTimer::timeout, this, [this] { applyFilter(); });
  connect(text_, &QLineEdit::textChanged, &typing_, qOverload<>(&QTimer::start));
  connect(period_, &QComboBox::currentIndexChanged, this, [this] { applyFilter(); });
  connect(radio_, &QComboBox::currentIndexChanged, this, [this] { applyFilter(); });
  connect(recorded_, &QCheckBox::toggled, this, [this] { applyFilter(); });
  for (QDateTimeEdit* edit : {from_, to_}) {
    connect(edit, &QDateTimeEdit::dateTimeChanged, &typing_, qOverload<>(&QTimer::start));
  }
  sliding_ = named(new QTimer(this), "sliding");
  connect(sliding_, &QTimer::timeout, this, [this] { slide(); });
  sliding_->start(kSlideMilliseconds);
}

void ReceptionWindow::connectParts(shell::frmReceptionLog& form, platform::EventGate& gate) {
  connect(export_, &QPushButton::clicked, this, [this] { askForExport(); });
  connect(&exportTimer_, &QTimer::timeout, this, [this] { followExport(); });
  connect(pages_, &QTabWidget::currentChanged, this, [this] { showPicture(); });
  model_->onCounted = [this] {
    showCount();
    pictureStale_ = true;
    showPicture();
  };
  picture_->onRowClicked = [this](const BusySource& busy, const TimeSpan& span) {
    goToRows(busy, span);
  };
  table_->onTune = [&form, &gate](const ReceptionRow& row) {
    gate.enter([&form, heard = heardOf(row.source)] { form.tune(heard); });
  };
  table_->onStore = [&form, &gate](const ReceptionRow& row) {
    gate.enter([&form, heard = heardOf(row.source)] { form.store(heard); });
  };
}

void ReceptionWindow::follow(shell::frmReceptionLog& form) {
  binder().keep(form.log().store().changed.connect([this] { model_->refresh(); }));
  const auto tagsChanged = [this](int, int) { model_->forgetTags(); };
  binder().keep(form.memory().MSFlexGrid1().cellChanged.connect(tagsChanged));
  binder().keep(form.memory().MSFlexGrid2().cellChanged.connect(tagsChanged));
}

TimeSpan ReceptionWindow::period() const {
  constexpr qint64 kHour = 3'600'000;
  constexpr auto kEver = std::numeric_limits<qint64>::max();
  const QDateTime now = QDateTime::currentDateTime();
  switch (period_->currentIndex()) {
    case LastHour:
      return {now.toMSecsSinceEpoch() - kHour, kEver};
    case Today:
      return {now.date().startOfDay().toMSecsSinceEpoch(), kEver};
    case SevenDays:
      return {now.date().addDays(-6).startOfDay().toMSecsSinceEpoch(), kEver};
    case FromTo:
      return {from_->dateTime().toMSecsSinceEpoch(), to_->dateTime().toMSecsSinceEpoch()};
    default:
      return {std::numeric_limits<qint64>::min(), kEver};
  }
}

/// Sets both boxes without applying the filter.
void ReceptionWindow::setFromTo(const QDateTime& from, const QDateTime& to) {
  const QSignalBlocker first(from_);
  const QSignalBlocker second(to_);
  from_->setDateTime(from);
  to_->setDateTime(to);
}

void ReceptionWindow::applyFilter() {
  typing_.stop();
  const bool fromTo = period_->currentIndex() == FromTo;
  if (fromTo && !from_->isVisibleTo(this)) {
    setFromTo(QDate::currentDate().startOfDay(), QDate::currentDate().addDays(1).startOfDay());
  }
  from_->setVisible(fromTo);
  to_->setVisible(fromTo);
  const TimeSpan span = period();
  const QString radio = radio_->currentIndex() == 0 ? QString() : radio_->currentText();
  model_->setFilter({text_->text(), span.from, span.to, radio, recorded_->isChecked()});
}

/// Moves "Last hour" and "Today" on with the clock, unless the user has scrolled down.
void ReceptionWindow::slide() {
  if (table_->isAtTop() && period().from != model_->filter().from) {
    applyFilter();
  }
}

void ReceptionWindow::showCount() {
  switch (model_->state()) {
    case DatabaseState::Damaged:
      return counted_->setText(tr("The log's file is damaged."));
    case DatabaseState::Newer:
      return counted_->setText(tr("The log was written by a newer version of Tarnvex."));
    case DatabaseState::Busy:
    case DatabaseState::Full:
      return counted_->setText(tr("The log can't be read."));
    default:
      return counted_->setText(tr("%1 receptions").arg(QLocale().toString(model_->rowCount())));
  }
}

void ReceptionWindow::showPicture() {
  if (pages_->currentIndex() == kPicturePage && std::exchange(pictureStale_, false)) {
    picture_->reload();
  }
}

void ReceptionWindow::goToRows(const BusySource& busy, const TimeSpan& span) {
  {
    const QSignalBlocker first(text_);
    const QSignalBlocker second(period_);
    text_->setText(QLatin1Char('"') + busy.source + QLatin1Char('"'));
    period_->setCurrentIndex(FromTo);
    from_->setVisible(true);
    // The boxes show whole minutes.
    setFromTo(QDateTime::fromMSecsSinceEpoch(span.from),
              QDateTime::fromMSecsSinceEpoch(span.to + 60'000));
  }
  pages_->setCurrentWidget(table_);
  applyFilter();
}

void ReceptionWindow::askForExport() {
  auto* dialog = new QFileDialog(this, tr("Export Receptions"), QString(), tr("CSV files (*.csv)"));
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->setAcceptMode(QFileDialog::AcceptSave);
  dialog->setDefaultSuffix(QStringLiteral("csv"));
  connect(dialog, &QFileDialog::fileSelected, this,
          [this](const QString& file) { exportTo(file); });
  dialog->open();
}

void ReceptionWindow::exportTo(const QString& file) {
  if (exporting_) {
    return;
  }
  QHash<qint64, QString> tags;
  for (const ReceptionSource& source : model_->sources().all()) {
    tags.insert(source.id, model_->sources().tag(source));
  }
  exporting_ = std::make_unique<CsvExport>(log_, model_->query(), tags, file);
  showProgress();
  export_->setEnabled(false);
  exportTimer_.start(kExportLookMilliseconds);
}

void ReceptionWindow::showProgress() {
  progress_ = named(
      makeProgressDialog(tr("Export Receptions"), tr("Exporting the receptions..."), 1000, this),
      "exporting");
  progress_->setMinimumDuration(500);
  connect(progress_, &QProgressDialog::canceled, this, [this] { exporting_->cancel(); });
}

void ReceptionWindow::followExport() {
  if (!exporting_->over()) {
    progress_->setValue(exporting_->progress());
    return;
  }
  exportTimer_.stop();
  const QString error = exporting_->cancelled() ? QString() : exporting_->error();
  exporting_.reset();
  delete progress_;
  export_->setEnabled(true);
  if (!error.isEmpty()) {
    tellExportFailed(error);
  }
}

void ReceptionWindow::tellExportFailed(const QString& error) {
  auto* box = makeMessageBox(QMessageBox::Warning, tr("Export Receptions"),
                             tr("The receptions could not be exported: %1").arg(error),
                             QMessageBox::Ok, this);
  box->setAttribute(Qt::WA_DeleteOnClose);
  box->open();
}

}  // namespace tarnvex::desktop
