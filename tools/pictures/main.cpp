#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QBitmap>
#include <QDeadlineTimer>
#include <QFile>
#include <QListWidget>
#include <QTimer>
#include <array>
#include <cstdio>
#include <functional>

#include "desktop/program.h"
#include "link/scanner_commands.h"

/// Makes pictures from the program itself, on a simulated radio that it steers through the radio's
/// control pipe: tarnvex-pictures FOLDER PIPE makes the manual's (see scripts/help-pictures), and
/// with a size, such as 1024x600, it pictures every page and dialog in windows of that size (see
/// scripts/pictures). A new picture is a new row of shots. Ends with 0 if all of them were taken.
namespace {

using tarnvex::desktop::Program;

constexpr int kLookMilliseconds = 20;
constexpr int kShotMilliseconds = 30000;
/// What is shown settles for that long before it is taken.
constexpr int kCalmMilliseconds = 700;

enum Tab { kStation, kTrunked, kOptions, kHits };

/// One picture: what the radio is told, what the user does once the first condition holds, and what
/// is taken once the second does. Without a widget to take, it only prepares the next one.
struct Shot {
  QString file;
  QByteArray radio;
  std::function<bool()> ready;
  std::function<void()> act;
  std::function<bool()> shown;
  std::function<QWidget*()> what;
  /// Only that much of its height, if it isn't 0.
  int height = 0;
};

class Photographer {
 public:
  /// `whole` is the size of the windows that are pictured whole; without one, the manual's pictures
  /// are made.
  Photographer(Program& program, const QString& folder, const QString& pipe, const QSize& whole)
      : program_(program), folder_(folder), radio_(pipe), whole_(whole) {
    if (!radio_.open(QIODevice::WriteOnly | QIODevice::Unbuffered)) {
      std::fputs("No radio to steer.\n", stderr);
    }
    if (whole_.isValid()) {
      listWindows();
    } else {
      listShots();
    }
    QObject::connect(&look_, &QTimer::timeout, [this] { look(); });
    look_.start(kLookMilliseconds);
    patience_.setRemainingTime(kShotMilliseconds);
  }

  [[nodiscard]] bool done() const { return at_ == shots_.size(); }

 private:
  void listShots();
  void listWindows();
  void addPages(const QString& radio, const QByteArray& first);
  void addDialog(const QString& radio, const char* action, const char* window);
  void look();
  void take(const Shot& shot);
  void save(const Shot& shot);
  [[nodiscard]] bool isSized() const;
  void leave();

  [[nodiscard]] tarnvex::shell::MainForm* form() const { return program_.application.mainForm(); }
  [[nodiscard]] bool tagHolds(const char* text) const {
    const auto* desk = dynamic_cast<tarnvex::shell::Form4*>(form());
    const auto* hand = dynamic_cast<tarnvex::shell::Form2*>(form());
    const auto* panel = desk != nullptr   ? &desk->panel.Alpha
                        : hand != nullptr ? &hand->panel.Alpha
                                          : nullptr;
    return panel != nullptr && panel->caption().find(text) != std::string::npos;
  }
  static QWidget* window(const QString& name);
  [[nodiscard]] bool isUpright() const {
    return dynamic_cast<tarnvex::shell::Form2*>(form()) != nullptr;
  }
  /// What the user does.
  void show(Tab tab) const {
    form()->SSTab1.setTab(tab);
    program_.windows.mainWindow()->resize(whole_.isValid() ? whole_ : QSize(kWidth, kHeight));
  }
  template <class Widget = QWidget>
  [[nodiscard]] Widget* find(const char* name) const {
    auto* window = program_.windows.mainWindow();
    return window == nullptr ? nullptr : window->findChild<Widget*>(name);
  }
  /// The frame of the "Options" page that a control stands in.
  [[nodiscard]] QWidget* frameOf(const char* name) const {
    auto* widget = find(name);
    return widget == nullptr ? nullptr : widget->parentWidget();
  }
  void choose(const char* action) const { find<QAction>(action)->trigger(); }
  void tickBanks() const;
  void showTicked(const char* name) const;
  static QWidget* withBanks(QWidget* dialog);
  void openLockouts() const;
  static void closeAll();

  /// As wide as the help shows it.
  static constexpr int kWidth = 720;
  static constexpr int kHeight = 450;
  static constexpr QSize kUpright{840, 600};
  static constexpr int kTableHeight = 240;

  Program& program_;
  QString folder_;
  QFile radio_;
  QSize whole_;
  QTimer look_;
  QDeadlineTimer patience_;
  std::vector<Shot> shots_;
  std::size_t at_ = 0;
  bool acted_ = false;
  std::optional<QDeadlineTimer> calm_;
};

QWidget* Photographer::window(const QString& name) {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->objectName() == name && window->isVisible()) {
      return window;
    }
  }
  return nullptr;
}

void Photographer::tickBanks() const {
  for (int bank = 0; bank < 4; ++bank) {
    find<QAbstractButton>(qPrintable(QStringLiteral("MSBank(%1)").arg(bank)))->click();
  }
}

/// For the picture alone: nothing is recorded here.
void Photographer::showTicked(const char* name) const {
  auto* box = find<QAbstractButton>(name);
  const QSignalBlocker silence(box);
  box->setChecked(true);
}

QWidget* Photographer::withBanks(QWidget* dialog) {
  auto* banks = dialog->findChild<QListWidget*>("List1");
  banks->item(0)->setSelected(true);
  banks->item(2)->setSelected(true);
  return dialog;
}

void Photographer::openLockouts() const {
  program_.gate.enter([this] {
    for (const double skipped : {151.625, 154.57, 158.745}) {
      program_.link.SendCommand(tarnvex::link::command::skipFrequency(skipped));
    }
    form()->typeKey('L');
  });
}

void Photographer::closeAll() {
  for (QWidget* window : QApplication::topLevelWidgets()) {
    if (window->isVisible() && dynamic_cast<tarnvex::desktop::MainWindow*>(window) == nullptr) {
      window->close();
    }
  }
}

void Photographer::listShots() {
  const auto tagged = [this](const char* tag) { return [this, tag] { return tagHolds(tag); }; };
  const auto panel = [this] { return find("panel"); };
  const auto nothing = [] {};
  const auto always = [] { return true; };
  const auto isDesk = [this] { return dynamic_cast<tarnvex::shell::Form4*>(form()) != nullptr; };
  const auto isHand = [this] { return isUpright(); };
  const auto stands = [](const char* name) { return [name] { return window(name) != nullptr; }; };
  const auto dialog = [](const char* name) { return [name] { return window(name); }; };
  const auto frame = [this](const char* control) {
    return [this, control] { return frameOf(control); };
  };
  const auto hits = [this](int count) {
    return [this, count] { return form()->hitLists.List1.count() >= count; };
  };
  const auto tabs = [this] { return find("SSTab1"); };
  const auto page = [this](Tab tab) { return [this, tab] { show(tab); }; };
  shots_ = {
      {"bc895-panel", "scene quiet\nmode MD00\nreception 1 60", tagged("Fire"), page(kOptions),
       always, panel},
      {"com-ports", "", isDesk, nothing, always, frame("Option1")},
      {"multiscan", "", isDesk, [this] { tickBanks(); }, always, frame("Option5")},
      {"recording", "", isDesk, [this] { showTicked("chkRecord"); }, always, frame("chkRecord")},
      {"custom-search", "", isDesk, nothing, always, frame("LLimit")},
      {"station-program", "", isDesk, page(kStation), always, tabs, kTableHeight},
      {"trunked-data", "", isDesk,
       [this] {
         show(kTrunked);
         form()->trunkBank.userChoose(1);
       },
       always, tabs, kTableHeight},
      {"upload", "", isDesk, [this] { choose("mnuUpload"); }, stands("frmUpload"),
       [] { return withBanks(window("frmUpload")); }},
      {"", "scene quiet\nmode MD02", isDesk,
       [this] {
         closeAll();
         show(kHits);
       },
       always, nullptr},
      {"", "reception 1 1", isDesk, nothing, hits(1), nullptr},
      {"", "reception 121 5", isDesk, nothing, hits(2), nullptr},
      {"", "reception 94 5", isDesk, nothing, hits(3), nullptr},
      {"", "reception 1 5", isDesk, nothing,
       [this] { return form()->hitLists.List1.item(0).find("Hits: 2") != std::string::npos; },
       nullptr},
      {"search-results", "scene city\nmode MD07", isDesk, nothing,
       [this] { return form()->hitLists.List2.count() > 3; }, tabs, kTableHeight},
      {"lockouts", "scene quiet\ntempo 1\nmode MD02",
       [this] { return program_.state.CurrentMode == "MD02"; }, [this] { openLockouts(); },
       stands("frmLockouts"), dialog("frmLockouts")},
      {"quick-view", "mode MD00\nreception 1 60", tagged("Fire"),
       [this] {
         closeAll();
         choose("mnuQV");
       },
       stands("QuickView"), dialog("QuickView")},
      {"bc245-panel", "become bc245\nscene quiet\nmode MD00\nreception 61 90", tagged("Airport"),
       page(kOptions), always, panel},
      {"bc245-options", "", isHand, nothing, always, frame("Check1"), 285},
      {"speed-enhancement", "", isHand, [this] { tickBanks(); }, always, frame("Option5"), 100},
      {"fleet-map", "", isHand, [this] { choose("mnuCustom"); }, stands("Form5"), dialog("Form5")},
      {"download-ids", "", isHand,
       [this] {
         closeAll();
         choose("mnuOwnloadTrunk");
       },
       stands("frmDownloadtrs"), [] { return withBanks(window("frmDownloadtrs")); }},
  };
}

void Photographer::addPages(const QString& radio, const QByteArray& first) {
  const std::array pages = {"station", "trunked", "options", "hits"};
  for (int tab = kStation; tab <= kHits; ++tab) {
    const bool begins = tab == kStation;
    shots_.push_back(
        {radio + QLatin1Char('-') + QLatin1String(pages[static_cast<std::size_t>(tab)]),
         begins ? first : QByteArray(),
         [this, radio] { return isUpright() == (radio == QLatin1String("bc245")); },
         [this, tab] { show(static_cast<Tab>(tab)); }, [] { return true; },
         [this] { return program_.windows.mainWindow(); }});
  }
}

void Photographer::addDialog(const QString& radio, const char* action, const char* name) {
  shots_.push_back({radio + QLatin1Char('-') + QLatin1String(name), "", [] { return true; },
                    [this, action] {
                      closeAll();
                      choose(action);
                    },
                    [name] { return window(name) != nullptr; }, [name] { return window(name); }});
}

void Photographer::listWindows() {
  addPages("bc895", "scene quiet\nmode MD00\nreception 1 90");
  for (const auto& [action, name] :
       {std::pair{"mnuUpload", "frmUpload"}, std::pair{"mnuDownload", "frmDownload"},
        std::pair{"mnuExport", "Form8"}, std::pair{"mnuAbout", "frmAbout"},
        std::pair{"mnuContents", "help"}, std::pair{"mnuQV", "QuickView"}}) {
    addDialog("bc895", action, name);
  }
  shots_.push_back({{},
                    "",
                    [] { return true; },
                    [] { closeAll(); },
                    [] { return window("Form4") != nullptr; },
                    nullptr});
  addPages("bc245", "become bc245\nscene quiet\nmode MD00\nreception 61 90");
  for (const auto& [action, name] :
       {std::pair{"mnuCustom", "Form5"}, std::pair{"mnuOwnloadTrunk", "frmDownloadtrs"},
        std::pair{"mnuUploadTrunk", "frmUploadtrs"}, std::pair{"mnuQV", "Form9"}}) {
    addDialog("bc245", action, name);
  }
  shots_.push_back({{},
                    "",
                    [] { return true; },
                    [] { closeAll(); },
                    [] { return window("Form2") != nullptr; },
                    nullptr});
}

void Photographer::look() {
  if (done()) {
    return;
  }
  const Shot& shot = shots_[at_];
  if (patience_.hasExpired()) {
    std::fprintf(stderr, "Waited in vain for picture %zu, \"%s\".\n", at_, qPrintable(shot.file));
    leave();
    return;
  }
  if (!acted_) {
    if (!shot.radio.isEmpty() && !calm_) {
      radio_.write(shot.radio + '\n');
    }
    calm_ = QDeadlineTimer(kCalmMilliseconds);
    if (form() != nullptr && form()->Scantimer.enabled() && shot.ready()) {
      acted_ = true;
      shot.act();
    }
    return;
  }
  if (!shot.shown() || !isSized()) {
    calm_ = QDeadlineTimer(kCalmMilliseconds);
  } else if (calm_->hasExpired()) {
    take(shot);
  }
}

/// Whether the main window has its size; a window that has just come may have missed it.
bool Photographer::isSized() const {
  auto* window = program_.windows.mainWindow();
  const QSize manual = isUpright() ? kUpright : QSize(kWidth, kHeight);
  const QSize wanted = (whole_.isValid() ? whole_ : manual).expandedTo(window->minimumSizeHint());
  if (window->size() == wanted) {
    return true;
  }
  window->resize(wanted);
  return false;
}

void Photographer::take(const Shot& shot) {
  if (shot.what) {
    save(shot);
  }
  acted_ = false;
  calm_.reset();
  patience_.setRemainingTime(kShotMilliseconds);
  if (++at_; done()) {
    leave();
  }
}

void Photographer::save(const Shot& shot) {
  QWidget* widget = shot.what();
  if (widget->isWindow() && widget != program_.windows.mainWindow()) {
    // Whatever the screen has room for.
    widget->resize(widget->sizeHint());
  }
  QPixmap picture = widget->grab();
  if (widget->objectName() == QLatin1String("panel")) {
    // Nothing but the radio, for pages of any colour.
    picture.fill(Qt::transparent);
    widget->render(&picture, {}, {}, QWidget::DrawChildren);
    picture = picture.copy(QRegion(picture.mask()).boundingRect());
  }
  if (shot.height > 0) {
    picture = picture.copy(0, 0, picture.width(), int(shot.height * picture.devicePixelRatio()));
  }
  const QString scale = picture.devicePixelRatio() > 1 ? QStringLiteral("@2x") : QString();
  picture.save(folder_ + '/' + shot.file + scale + ".png", "PNG", 0);
}

void Photographer::leave() {
  look_.stop();
  program_.gate.enter([this] {
    program_.state.MemoryModified = false;
    form()->unload();
  });
}

/// Invalid for anything but "WIDTHxHEIGHT".
QSize sizeOf(const QString& text) {
  const QStringList sides = text.split(QLatin1Char('x'));
  return sides.size() == 2 ? QSize(sides[0].toInt(), sides[1].toInt()) : QSize();
}

/// The palette of a common dark desktop.
void darken() {
  QPalette palette(QColor(0x31, 0x36, 0x3b), QColor(0x31, 0x36, 0x3b));
  palette.setColor(QPalette::Base, QColor(0x23, 0x26, 0x29));
  palette.setColor(QPalette::AlternateBase, QColor(0x2a, 0x2e, 0x32));
  palette.setColor(QPalette::Highlight, QColor(0x3d, 0xae, 0xe9));
  QApplication::setPalette(palette);
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList arguments = QApplication::arguments();
  if (arguments.size() < 3 || arguments.size() > 4) {
    std::fputs("Usage: tarnvex-pictures FOLDER PIPE [WIDTHxHEIGHT]\n", stderr);
    return 2;
  }
  if (qEnvironmentVariableIsSet("TARNVEX_DARK")) {
    darken();
  }
  Program program;
  const Photographer photographer(program, arguments[1], arguments[2], sizeOf(arguments.value(3)));
  const int status = program.run();
  return photographer.done() ? status : 1;
}
