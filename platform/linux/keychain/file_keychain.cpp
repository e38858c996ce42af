// SPDX-License-Identifier: MIT
#include "platform/linux/keychain/file_keychain.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <system_error>

#include "platform/atomic_file.h"
#include "platform/file_descriptor.h"
#include "platform/file_name.h"

namespace glintboard {
namespace {

[[noreturn]] void fail(int code) {
  throw std::system_error(code, std::generic_category());
}

void check(int result) {
  if (result != 0) {
    fail(errno);
  }
}

void requireOwn(const struct stat& status) {
  if (status.st_uid != ::geteuid()) {
    fail(EPERM);
  }
}

// Where another user could have prepared it, an item names phones that this user never paired.
void requireOwn(const std::filesystem::path& path) {
  struct stat status{};
  check(::stat(path.c_str(), &status));
  requireOwn(status);
}

bool isThere(const std::filesystem::path& file) {
  struct stat status{};
  if (::lstat(file.c_str(), &status) == 0) {
    return true;
  }
  if (errno != ENOENT) {
    fail(errno);
  }
  return false;
}

// Calls `operation` and turns what it throws into a status.
template <class Operation>
KeychainStatus statusOf(Operation operation) {
  try {
    return operation();
  } catch (const std::system_error& error) {
    if (error.code() == std::errc::no_such_file_or_directory) {
      return keychainItemNotFound;
    }
    return error.code().value() > 0 ? -error.code().value() : -EIO;
  } catch (const std::exception&) {
    return -ENOMEM;
  }
}

}  // namespace

KeychainStatus FileKeychain::copyMatching(const KeychainQuery& query, std::string& data) {
  return statusOf([&] {
    const auto file = fileOf(query);
    requireOwn(folder_);
    requireOwn(file);
    data = readWholeFile(file);
    return keychainSuccess;
  });
}

KeychainStatus FileKeychain::update(const KeychainQuery& query, const std::string& data) {
  return statusOf([&] {
    const auto file = fileOf(query);
    if (!isThere(file)) {
      return keychainItemNotFound;
    }
    prepareFolder();
    writeAtomically(file, data, 0600);
    return keychainSuccess;
  });
}

KeychainStatus FileKeychain::add(const KeychainQuery& query, const std::string& data) {
  return statusOf([&] {
    const auto file = fileOf(query);
    prepareFolder();
    if (isThere(file)) {
      return keychainDuplicateItem;
    }
    writeAtomically(file, data, 0600);
    return keychainSuccess;
  });
}

KeychainStatus FileKeychain::remove(const KeychainQuery& query) {
  return statusOf([&] {
    check(::unlink(fileOf(query).c_str()));
    // A crash must not bring a removed secret back.
    const FileDescriptor folder(::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder) {
      ::fsync(folder.get());
    }
    return keychainSuccess;
  });
}

std::filesystem::path FileKeychain::fileOf(const KeychainQuery& query) const {
  if (!isFileName(query.account)) {
    fail(EINVAL);
  }
  return folder_ / (query.account + ".json");
}

void FileKeychain::prepareFolder() const {
  if (::mkdir(folder_.c_str(), 0700) != 0 && errno == ENOENT) {
    std::filesystem::create_directories(folder_.parent_path());
    check(::mkdir(folder_.c_str(), 0700));
  }
  const FileDescriptor folder(::open(folder_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  struct stat status{};
  check(folder ? ::fstat(folder.get(), &status) : -1);
  requireOwn(status);
  if ((status.st_mode & 077u) != 0) {
    check(::fchmod(folder.get(), 0700));
  }
}

}  // namespace glintboard
