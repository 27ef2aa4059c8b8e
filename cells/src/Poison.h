#ifndef CELLS_POISON_H
#define CELLS_POISON_H

#include <cstddef>

#if defined(__has_feature)
#if __has_feature(address_sanitizer)
#define CELLS_POISONS 1
#endif
#elif defined(__SANITIZE_ADDRESS__)
#define CELLS_POISONS 1
#endif

#ifdef CELLS_POISONS
#include <sanitizer/asan_interface.h>
#endif

/// Tells the address sanitizer which bytes of an arena nobody may touch; without it these do
/// nothing.
namespace poison {

#ifdef CELLS_POISONS
inline constexpr bool kActive = true;
inline void Forbid(void const* bytes, std::size_t size) {
  ASAN_POISON_MEMORY_REGION(bytes, size);
}
inline void Permit(void const* bytes, std::size_t size) {
  ASAN_UNPOISON_MEMORY_REGION(bytes, size);
}
#else
inline constexpr bool kActive = false;
inline void Forbid(void const*, std::size_t) {}
inline void Permit(void const*, std::size_t) {}
#endif

}  // namespace poison

#endif
