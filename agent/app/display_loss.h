// SPDX-License-Identifier: MIT
// A service that outlives the display it was started on.
#pragma once

#include <string>
#include <vector>

namespace glintboard {

// While this exists, `exit`, `_exit` and a fatal message of Qt, on any thread, do not end the
// process but execute the program again in it, with another command line. Qt and Xlib end a process
// in these ways when the display is gone. Nothing is torn down before: no exit handler or
// destructor runs, and what was being written is left as by a crash. All descriptors but the
// standard ones are closed. Child processes end as usual. One at a time, on the main thread; the
// agent itself ends with std::_Exit meanwhile.
//
// Until the start is over a crash counts too: Qt 6.4 uses replies of an X server that dies while it
// connects, and the seat of a compositor that has none, without looking whether they are there.
class DisplayLoss {
 public:
  // `command` is the whole command line, with the program's name first.
  explicit DisplayLoss(std::vector<std::string> command);
  ~DisplayLoss();
  // From now on a crash ends the process. Any thread.
  static void startIsOver();
  DisplayLoss(const DisplayLoss&) = delete;
  DisplayLoss& operator=(const DisplayLoss&) = delete;

 private:
  std::vector<std::string> command_;
  std::vector<char*> arguments_;
};

}  // namespace glintboard
