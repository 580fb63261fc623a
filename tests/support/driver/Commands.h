#pragma once

#include <string>
#include <vector>

namespace tarvex::driver {

using Fields = std::vector<std::string>;

// Widgets are named by objectName; "A/B" is the B within an A. Of several, a visible one in the topmost window is
// meant.
//
//   windows                     every visible window, a line each: objectName, class, title
//   widgets NAME                every named widget within, a line each: objectName, class, visible, enabled
//   text NAME                   the text that a widget shows
//   property NAME PROPERTY      a property as text
//   action NAME PROPERTY        a property of a menu entry
//   focus                       objectName of the widget that has the focus
//   grab NAME FILE              a picture of the widget
//   click NAME [right|double]   the mouse on the middle of a widget
//   menu NAME                   the mouse on a menu entry, from the menu bar down
//   key KEYS                    a key or combination, such as Ctrl+R, to the active window
//   type TEXT                   one key for each character, to the active window
//   close NAME                  the close button of a window's frame
//   wait shown|hidden NAME, wait text NAME PART, wait property NAME PROPERTY VALUE

/// Carries out one command; the text of its answer. Raises std::runtime_error when it cannot be carried out.
std::string RunCommand(const Fields& command);

/// Whether the command sends input, whose handlers may open a window and return much later.
bool IsInput(const Fields& command);

/// Whether what a wait command waits for is so now.
bool ConditionHolds(const Fields& command);

/// The visible windows, for messages.
std::string DescribeWindows();

}
