// SPDX-License-Identifier: MIT
// What the JSON codec knows about plain structs.
#pragma once

#include <boost/describe.hpp>
#include <boost/mp11.hpp>
#include <string_view>

namespace glintboard {

// A struct whose members are described, and whose JSON form is an object of them.
template <class T>
concept Record = boost::describe::has_describe_members<T>::value;

namespace detail {
template <class A, class B>
using NameLess = boost::mp11::mp_bool<(std::string_view(A::name) < std::string_view(B::name))>;
}

// The members of a record, sorted by name at compile time: the order in which they are written.
template <Record T>
using SortedMembers =
    boost::mp11::mp_sort<boost::describe::describe_members<T, boost::describe::mod_public>,
                         detail::NameLess>;

// Reading rules of a record beyond its members' types; specialised where a record has any.
template <class T>
struct RecordRules {
  // Whether a member that is missing or null keeps its default value instead of failing the read.
  static constexpr bool mayBeAbsent(std::string_view) { return false; }
  // Derives what was absent. `isPresent(name)` tells which members were read.
  template <class IsPresent>
  static void complete(T&, IsPresent) {}
};

}  // namespace glintboard
