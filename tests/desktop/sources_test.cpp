// Rules for the sources that the compiler doesn't check.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <regex>
#include <sstream>
#include <string>

namespace {

namespace fs = std::filesystem;

/// Calls `look` with the path below src/ and the text of each source file.
template <class Look>
void forEachSource(Look look) {
  int files = 0;
  for (const auto& entry : fs::recursive_directory_iterator(TARNVEX_SOURCES)) {
    const auto extension = entry.path().extension();
    if (extension == ".h" || extension == ".cpp") {
      std::ifstream file(entry.path(), std::ios::binary);
      std::ostringstream text;
      text << file.rdbuf();
      look(fs::relative(entry.path(), TARNVEX_SOURCES).generic_string(), text.str());
      ++files;
    }
  }
  EXPECT_GT(files, 50) << "looked in the wrong place";
}

bool holds(const std::string& text, const std::regex& pattern) {
  return std::regex_search(text, pattern);
}

TEST(Sources, TurnTheEventLoopInOnePlace) {
  const std::regex turning(
      R"(processEvents|\bexec\s*\(|QEventLoop\s+\w|\b(QThread::)?[mu]?sleep\s*\()"
      R"(|waitFor(ReadyRead|BytesWritten|Started|Finished|Connected|Disconnected|NewConnection|Done)\b)");
  bool foundInPlace = false;
  forEachSource([&](const std::string& path, const std::string& text) {
    if (path.starts_with("desktop/ports/qt_event_loop.")) {
      foundInPlace = foundInPlace || holds(text, turning);
    } else if (path != "desktop/ports/reception_database.cpp") {  // its exec runs SQL
      EXPECT_FALSE(holds(text, turning)) << path;
    }
  });
  EXPECT_TRUE(foundInPlace) << "the pattern must find this";
}

/// So that no text from a file or the line is taken for markup.
TEST(Sources, MakeLabelsTipsAndDialogsInOnePlace) {
  const std::regex dialogs(
      R"(new Q(Message|Input|Progress)(Box|Dialog)|QMessageBox [a-z]|Q)"
      R"((MessageBox|InputDialog)::(about|warning|critical|information|question|get)\w*\()");
  const std::regex made(
      R"re(new QLabel|: QLabel\(|setToolTip\((?!\s*(plainTip\(|(QObject::)?tr\((\s*"[^"]*")+\)\)))|)re"
      R"re(QToolTip::showText\((?![^;]*(plainTip\(|tr\(\s*"[^"%]*"\)|[.>]tip,))|setHtml\(|setTextFormat\(Qt::(Rich|Auto)Text)re");
  EXPECT_TRUE(holds("box->setToolTip(name);", made));
  EXPECT_TRUE(holds("box->setToolTip(tr(\"Opens %1\").arg(path));", made));
  EXPECT_FALSE(holds("box->setToolTip(tr(\"Opens\"\n  \" it\"));", made));
  forEachSource([&](const std::string& path, const std::string& text) {
    // The second makes a page of the manual, and the third one its own plain label.
    if (path != "desktop/windows/plain_text.cpp" && path != "desktop/windows/help_window.cpp" &&
        path != "desktop/windows/recording_light.cpp") {
      EXPECT_FALSE(holds(text, made)) << path;
    }
    EXPECT_EQ(holds(text, dialogs), path == "desktop/ports/plain_dialogs.cpp") << path;
  });
}

}  // namespace
