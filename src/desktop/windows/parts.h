#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QTableView>

namespace tarnvex::desktop {

/// Gives a widget, a menu or an action its object name, by which tests find it.
template <class Object>
Object* named(Object* object, const char* name) {
  object->setObjectName(QLatin1String(name));
  return object;
}

/// Also says what a screen reader calls a widget whose own text doesn't say it.
template <class Widget>
Widget* named(Widget* widget, const char* name, const QString& spoken) {
  widget->setAccessibleName(spoken);
  return named(widget, name);
}

/// A line for words to look for, with a button that clears it.
QLineEdit* makeSearchLine(const char* name, const QString& placeholder, const QString& spoken);

/// The program's icon, as high as so many lines of text.
QLabel* makeIcon(int lines);

/// A label whose text is `scale` times as large as usual.
QLabel* makeLine(const QString& text, double scale, bool bold);

/// What the program's tables have in common: plain rows of one height, which Tab leaves.
void makePlain(QTableView* table);

}  // namespace tarnvex::desktop
