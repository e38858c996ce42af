#include "protocol/json_reader.h"

namespace glintboard {

bool JsonReader::read(const boost::json::value& value, std::string& output) {
  const auto* text = value.if_string();
  if (text == nullptr) {
    return refuse("not a text");
  }
  output.assign(text->data(), text->size());
  return true;
}

bool JsonReader::read(const boost::json::value& value, std::int64_t& output) {
  boost::system::error_code error;
  output = value.to_number<std::int64_t>(error);
  return !error || refuse("not an integer");
}

bool JsonReader::read(const boost::json::value& value, double& output) {
  boost::system::error_code error;
  output = value.to_number<double>(error);
  return !error || refuse("not a number");
}

bool JsonReader::read(const boost::json::value& value, Uuid& output) {
  const auto* text = value.if_string();
  const auto uuid = text != nullptr ? parseUuid(*text) : std::nullopt;
  output = uuid.value_or(Uuid{});
  return uuid.has_value() || refuse("not a UUID");
}

bool JsonReader::read(const boost::json::value& value, WireDate& output) {
  const auto* text = value.if_string();
  const auto date = text != nullptr ? WireDate::parse(*text) : std::nullopt;
  output = date.value_or(WireDate{});
  return date.has_value() || refuse("not a date");
}

bool JsonReader::read(const boost::json::value& value, ReferenceDate& output) {
  return read(value, output.secondsSinceReference);
}

bool JsonReader::read(const boost::json::value& value, std::map<std::string, std::string>& output) {
  const auto* object = value.if_object();
  if (object == nullptr) {
    return refuse("not an object");
  }
  for (const auto& [key, item] : *object) {
    if (!read(item, output[key])) {
      return within(key);
    }
  }
  return true;
}

bool JsonReader::refuse(std::string_view reason) {
  reason_ = reason;
  return false;
}

bool JsonReader::within(std::string_view name) {
  const bool isPath = reason_.find(": ") != std::string::npos;
  reason_.insert(0, isPath ? "." : ": ").insert(0, name);
  return false;
}

Decoded<boost::json::value> parseJson(std::string_view text, boost::json::storage_ptr storage) {
  boost::system::error_code error;
  auto value = boost::json::parse(text, error, std::move(storage));
  if (error) {
    return DecodeError{"not JSON: " + error.message()};
  }
  return value;
}

}  // namespace glintboard
