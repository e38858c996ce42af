// SPDX-License-Identifier: MIT
// The few Asio names that the system writes everywhere.
#pragma once

#include <boost/asio/any_io_executor.hpp>
#include <boost/asio/as_tuple.hpp>
#include <boost/asio/awaitable.hpp>
#include <boost/asio/co_spawn.hpp>
#include <boost/asio/post.hpp>
#include <boost/asio/steady_timer.hpp>
#include <boost/asio/this_coro.hpp>
#include <boost/asio/use_awaitable.hpp>
#include <boost/system/error_code.hpp>

namespace glintboard {

namespace asio = boost::asio;
using boost::system::error_code;

template <class T = void>
using Awaitable = asio::awaitable<T>;

}  // namespace glintboard
