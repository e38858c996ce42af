// SPDX-License-Identifier: MIT
#include "agent/language/error_text.h"

#include <locale.h>

#include <QCoreApplication>
#include <boost/system/system_category.hpp>
#include <cstring>
#include <system_error>

#include "platform/user_error.h"

namespace glintboard {
namespace {

// The system's text for an errno in the user's language. The process's own message locale is
// English.
QString reason(int number) {
  static const locale_t language = ::newlocale(LC_CTYPE_MASK | LC_MESSAGES_MASK, "", nullptr);
  return QString::fromLocal8Bit(language == nullptr ? ::strerror(number)
                                                    : ::strerror_l(number, language));
}

}  // namespace

QString errorText(const std::exception& error) {
  const auto english = QString::fromUtf8(error.what());
  if (const auto* forUser = dynamic_cast<const UserError*>(&error)) {
    const QString pattern = QCoreApplication::translate("UserError", forUser->pattern);
    return QString::fromStdString(UserError::filled(pattern.toStdString(), forUser->parts));
  }
  if (const auto* system = dynamic_cast<const std::system_error*>(&error)) {
    const auto englishReason = QString::fromStdString(system->code().message());
    return QString(english).replace(englishReason, reason(system->code().value()));
  }
  return english;
}

QString errorText(const boost::system::error_code& error) {
  return error.category() == boost::system::system_category()
             ? reason(error.value())
             : QString::fromStdString(error.message());
}

}  // namespace glintboard
