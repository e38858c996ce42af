// SPDX-License-Identifier: MIT
// The Asio names that are used everywhere, and the rule for awaiting.
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

// The result of a coroutine, which starts when it is awaited or spawned and resumes on its own
// executor. Await a call in the expression that makes it, with two exceptions: GCC 12 destroys an
// object twice if a `co_await` expression contains it as a temporary lambda or a temporary `{…}` of
// an aggregate type, or chooses it with `?:`. Such a call gets a statement of its own:
//
//   auto scanning = runOn(workers, [self] { return self->scan(); });
//   co_await std::move(scanning);
//
// Temporaries of types with constructors, and variables, may stand inside the expression.
// `tools/check-awaits` finds the lambdas.
template <class T = void>
using Awaitable = asio::awaitable<T>;

}  // namespace glintboard
