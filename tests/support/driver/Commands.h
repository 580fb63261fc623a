#pragma once

#include <string>
#include <vector>

namespace tarvex::driver {

using Fields = std::vector<std::string>;

// Visible widgets are named by objectName; "A/B" is the B within an A.
//
//   text NAME    the text that a widget shows, or the title of a window
//   lines NAME   the lines of a list, with | between them
//   click NAME   the mouse on the middle of a widget
//   item NAME    the mouse on the item of a list or tree that has the last part of the name as its text
//   drag NAME    the handle of a bar from its left end to the right end, a pixel each millisecond
//   menu NAME    a menu entry that is shown and enabled
//   key KEY      a key or combination, such as Ctrl+R, to the modal window, the active one or the only one
//   type TEXT    one key for each character, to the same window
//   close NAME   the close button of a window's frame
//   random N     an input of a user who presses anything, chosen by a number
//   wait shown NAME, wait text NAME PART, wait released NAME (a bar)
//   wait idle    until the hourglass is gone
//   beat         by how many milliseconds the event loop was late, at worst, since the last time

/// Carries out one command; the text of its answer. Raises std::runtime_error when it cannot be carried out.
std::string RunCommand(const Fields& command);

/// Whether the command sends input, whose handlers may open a window and return much later.
bool IsInput(const Fields& command);

/// Whether what a wait command waits for is so now.
bool ConditionHolds(const Fields& command);

}
