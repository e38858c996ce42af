// A service that outlives the display it was started on.
#pragma once

#include <string>
#include <vector>

namespace glintboard {

// While this exists, a library that ends the process, as Qt and Xlib do when their display is
// gone, starts the program again in its place instead: the same process with a new command line.
// Everything that is open is closed by that, and what was being written is as after a crash. One
// at a time, on the main thread; the agent itself ends with std::_Exit meanwhile.
class DisplayLoss {
 public:
  // `command` is the whole command line, with the program's name first.
  explicit DisplayLoss(std::vector<std::string> command);
  ~DisplayLoss();
  DisplayLoss(const DisplayLoss&) = delete;
  DisplayLoss& operator=(const DisplayLoss&) = delete;

 private:
  std::vector<std::string> command_;
  std::vector<char*> arguments_;
};

}  // namespace glintboard
