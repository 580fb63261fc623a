#pragma once

#include <QString>
#include <QWidget>

#include <string>
#include <string_view>

namespace tarvex {

/// Text of the core (UTF-8) for a window, and back.
QString ToQt(std::string_view text);
std::string FromQt(const QString& text);

/// Closes a window; a request to end the program that its handlers make is carried on.
bool CloseWindow(QWidget& window);

/// Gives a widget its object name and, where it can have the focus, its accessible name.
void NameControl(QWidget& widget, const char* objectName, const QString& accessibleName = {});

}
