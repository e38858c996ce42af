// SPDX-License-Identifier: MIT
// What the JSON codec knows about plain structs. A struct takes part by BOOST_DESCRIBE_STRUCT and
// needs no code of its own.
#pragma once

#include <boost/describe.hpp>
#include <boost/mp11.hpp>
#include <string_view>

namespace glintboard {

// A struct whose members are described. Its JSON form is an object whose keys are the members'
// names.
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
  // Called after a successful read to derive what was absent. `isPresent(name)` says whether the
  // member had a value; `name` must be a member's.
  template <class IsPresent>
  static void complete(T&, IsPresent) {}
};

}  // namespace glintboard
