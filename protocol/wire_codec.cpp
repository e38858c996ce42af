// SPDX-License-Identifier: MIT
#include "protocol/wire_codec.h"

#include "protocol/utf8.h"

namespace glintboard {

std::string WireCodec::checkedText(std::string bytes) {
  if (!isValidUtf8(bytes)) {
    throw WireCodecError(WireCodecError::Code::invalidUTF8);
  }
  return bytes;
}

}  // namespace glintboard
