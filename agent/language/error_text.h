// SPDX-License-Identifier: MIT
// The text of an error for the user.
#pragma once

#include <QString>
#include <boost/system/error_code.hpp>
#include <exception>

namespace glintboard {

// The error's text in the user's language. Any thread.
QString errorText(const std::exception& error);
QString errorText(const boost::system::error_code& error);

}  // namespace glintboard
