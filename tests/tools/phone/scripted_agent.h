// The scripted agent as a child process of a test.
#pragma once

#include <string>

#include "platform/file_descriptor.h"

namespace glintboard::test {

// Runs as long as the object; the end of its standard input ends it.
class ScriptedAgent {
 public:
  // Throws std::runtime_error when it does not come up.
  ScriptedAgent();
  ScriptedAgent(const ScriptedAgent&) = delete;
  ScriptedAgent& operator=(const ScriptedAgent&) = delete;
  ~ScriptedAgent();

  // As --host takes it.
  const std::string& host() const { return host_; }

 private:
  FileDescriptor input_;
  int process_ = -1;
  std::string host_;
};

}  // namespace glintboard::test
