// Where main windows open: at a first start, and when the radio is exchanged; and what a small
// screen shows of them.
#include <QScreen>
#include <QScrollArea>

#include "desktop/program_rig.h"
#include "desktop/window_fixture.h"

namespace tarnvex::test {
namespace {

class WindowPlace : public testing::Test, protected Below {
 protected:
  /// The windows go before the forms, also those that were closed a moment ago.
  ~WindowPlace() override {
    windows.closeMain();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }
  /// Opens the windows of the two radios one after the other, as a switch does.
  desktop::MainWindow& exchange() {
    windows.closeMain();
    windows.openMain(bc245);
    return *windows.mainWindow();
  }
  desktop::MainWindow& open() {
    windows.openMain(bc895);
    return *windows.mainWindow();
  }
  void store(const char* radio, const char* place) { settings.values[{radio, "Window"}] = place; }

  shell::Form4 bc895{services, outside};
  shell::Form2 bc245{services, outside};
};

TEST_F(WindowPlace, IsTheDesktopsChoiceAtAFirstStart) {
  const auto& window = open();
  EXPECT_FALSE(window.testAttribute(Qt::WA_Moved));
  EXPECT_LE(window.height(), window.screen()->availableGeometry().height());
}

TEST_F(WindowPlace, StaysWhenTheOtherRadiosWindowHasAnotherSize) {
  const QRect room = QGuiApplication::primaryScreen()->availableGeometry();
  store("BC895", "20 60 500 400");
  store("BC245", "0 0 510 420");
  const QPoint corner = open().geometry().topLeft();
  EXPECT_EQ(corner, QPoint(20, 60));
  EXPECT_EQ(exchange().geometry().topLeft(), corner) << "there is room for it";
  windows.closeMain();

  store("BC895", "20 380 500 400");
  store("BC245", "0 0 510 700");
  open();
  const QRect larger = exchange().frameGeometry();
  EXPECT_GE(larger.top(), room.top());
  EXPECT_LE(larger.bottom(), room.bottom());
}

TEST_F(WindowPlace, StaysMaximisedAndRemembersThePlaceWithoutThat) {
  store("BC895", "20 60 500 400");
  store("BC245", "0 0 510 420");
  auto& first = open();
  first.showMaximized();
  const QRect normal = first.normalGeometry();
  auto& second = exchange();
  EXPECT_TRUE(second.isMaximized());
  EXPECT_EQ((settings.values[{"BC895", "Window"}]), QStringLiteral("%1 %2 %3 %4")
                                                        .arg(normal.x())
                                                        .arg(normal.y())
                                                        .arg(normal.width())
                                                        .arg(normal.height())
                                                        .toStdString());
  second.showNormal();
  EXPECT_EQ(second.geometry().topLeft(), normal.topLeft());
  windows.closeMain();
  EXPECT_TRUE(open().windowState() == Qt::WindowNoState) << "as the last window was";
  windows.closeMain();
}

TEST_F(WindowPlace, IsMaximisedAgainAtTheNextStart) {
  settings.values[{"BC895", "Maximised"}] = "1";
  EXPECT_TRUE(open().isMaximized());
}

TEST_F(WindowPlace, IsKeptUntilNothingUsesTheWindow) {
  const auto turn = [] {
    QEventLoop inner;
    QTimer::singleShot(0, &inner, &QEventLoop::quit);
    inner.exec();
  };
  const QPointer<QWidget> window = &open();
  gate.enter([&] {
    windows.closeMain();
    turn();
    EXPECT_TRUE(window) << "one of its menus may have called the core";
  });
  turn();
  EXPECT_FALSE(window);
}

TEST(WindowPlaceAtTheExit, IsMissedAloudIfItCantBeSaved) {
  ProgramRig rig;
  const QString settings = rig.folder.filePath("Tarnvex.conf");
  bool told = false;
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, [&] {
    if (rig.box() != nullptr && rig.boxStands("Settings")) {
      told = true;
      rig.press(QMessageBox::Ok);
    }
  });
  user.start(5);
  rig.play({{"scanning", rig.bc895("Frequency: Scanning"), [&] {
               QFile::remove(settings);
               QDir().mkdir(settings);
             }}});
  EXPECT_TRUE(told);
}

/// Text at 125 %.
class LargeText {
 protected:
  LargeText() : before_(QApplication::font()) {
    QFont large = before_;
    large.setPointSizeF(before_.pointSizeF() * 1.25);
    QApplication::setFont(large);
  }
  ~LargeText() { QApplication::setFont(before_); }
  Q_DISABLE_COPY_MOVE(LargeText)

 private:
  QFont before_;
};

template <class Form>
class SmallScreen : private LargeText, public WindowTest<Form> {
 protected:
  void expectAllInReach() {
    const QSize screen(819, 480);
    EXPECT_EQ(this->window.minimumSizeHint().expandedTo(screen), screen);
    this->window.resize(screen);
    for (int tab = 0; tab < 4; ++tab) {
      this->openTab(tab);
      this->loop.turn();
      for (QWidget* widget : this->window.template findChildren<QWidget*>()) {
        if (widget->isVisible() && (widget->focusPolicy() & Qt::TabFocus) != 0) {
          expectInReach(*widget);
        }
      }
    }
  }
  /// A page that scrolls may have to be scrolled first.
  static void expectInReach(QWidget& widget) {
    QSize whole = widget.size();
    for (QWidget* around = widget.parentWidget(); around; around = around->parentWidget()) {
      if (auto* area = qobject_cast<QScrollArea*>(around)) {
        const QPoint middle = widget.mapTo(area->widget(), widget.rect().center());
        area->ensureVisible(middle.x(), middle.y(), widget.width() / 2 + 1,
                            widget.height() / 2 + 1);
        whole = whole.boundedTo(area->viewport()->size());
      }
    }
    const QSize seen = widget.visibleRegion().boundingRect().size();
    EXPECT_TRUE(seen == whole && seen.height() > 12)
        << widget.objectName().toStdString() << ' ' << seen.width() << 'x' << seen.height();
  }
};

using SmallBc895 = SmallScreen<shell::Form4>;
using SmallBc245 = SmallScreen<shell::Form2>;

TEST_F(SmallBc895, HasEveryControlInReach) {
  expectAllInReach();
}

TEST_F(SmallBc245, HasEveryControlInReach) {
  expectAllInReach();
}

}  // namespace
}  // namespace tarnvex::test
