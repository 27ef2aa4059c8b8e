#ifndef TESTS_SUPPORT_VIRTUALSLOT_H
#define TESTS_SUPPORT_VIRTUALSLOT_H

#include <cstddef>
#include <cstring>
#include <type_traits>

/// The slot of a virtual member function in the virtual table of its class, -1 for any other member
/// function. A virtual destructor takes two slots.
///
/// The Itanium C++ ABI holds a pointer to a virtual member as its offset into the table plus 1.
/// Overloaded members are told apart by a cast:
///
///     VirtualSlot(static_cast<void (Base::*)(int)>(&Base::Visit))
template <class Member>
std::ptrdiff_t VirtualSlot(Member member) {
  static_assert(std::is_member_function_pointer_v<Member>);
  struct {
    std::ptrdiff_t function;
    std::ptrdiff_t adjustment;
  } parts;
  static_assert(sizeof parts == sizeof member);
  std::memcpy(&parts, &member, sizeof parts);
  constexpr auto kEntry = static_cast<std::ptrdiff_t>(sizeof(void*));
  return parts.function % 2 != 0 ? (parts.function - 1) / kEntry : -1;
}

#endif
