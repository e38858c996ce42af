// SPDX-License-Identifier: MIT
// The address in the QR code.
#include "fuzz/fuzz.h"
#include "protocol/pairing_qr_payload.h"

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace glintboard;
  const auto payload = PairingQRPayload::parse(fuzz::textOf(data, size));
  if (payload) {
    const auto address = payload->encodedURL();
    fuzz::require(address && PairingQRPayload::parse(*address) == payload,
                  "an address that was read can be written and read again");
  }
  return 0;
}
