#include <cstdint>
#include <functional>
#include <string_view>

#include <lakresvos/tabulate/Dictionary.h>

#include "data/IdTable.h"

namespace lakresvos::tabulate {

static_assert(Dictionary::kNone == IdTable::kNone);

namespace {

constexpr std::size_t kMaxShort = 7;  // in bytes
constexpr int kLengthShift = 8 * kMaxShort;
constexpr std::uint64_t kLongMark = std::uint64_t{1} << 63;

std::uint64_t ReadByte(std::string_view text, std::size_t at) {
  return std::uint64_t{static_cast<unsigned char>(text[at])} << 8 * at;
}

/// Four bytes at their places, which a compiler reads at once.
std::uint64_t ReadFour(std::string_view text, std::size_t at) {
  std::uint64_t four = 0;
  for (std::size_t i = 0; i < 4; ++i) {
    four |= std::uint64_t{static_cast<unsigned char>(text[at + i])} << 8 * i;
  }
  return four << 8 * at;
}

}  // namespace

Dictionary::Dictionary() : ids_(std::make_unique<IdTable>()) {}
Dictionary::Dictionary(Dictionary&& other) noexcept = default;
Dictionary& Dictionary::operator=(Dictionary&& other) noexcept = default;
Dictionary::~Dictionary() = default;

/// A short text's own bytes and length, so that no other text has its hash.
std::uint64_t Dictionary::Hash(std::string_view text) {
  std::size_t const size = text.size();
  if (size > kMaxShort) {
    return std::hash<std::string_view>()(text) | kLongMark;
  }
  std::uint64_t const length = std::uint64_t{size} << kLengthShift;
  if (size >= 4) {
    return length | ReadFour(text, 0) | ReadFour(text, size - 4);
  }
  return size == 0
             ? 0
             : length | ReadByte(text, 0) | ReadByte(text, size / 2) | ReadByte(text, size - 1);
}

void Dictionary::Prefetch(std::uint64_t hash) const {
  ids_->Prefetch(hash);
}

std::uint32_t Dictionary::Intern(std::string_view text) {
  return InternHashed(text, Hash(text));
}

std::uint32_t Dictionary::InternHashed(std::string_view text, std::uint64_t hash) {
  std::uint32_t const known = FindHashed(text, hash);
  if (known != kNone) {
    return known;
  }
  std::size_t const before = text_.size();
  text_.append(text);
  try {
    ends_.push_back(text_.size());
    ids_->Add(hash);
  } catch (...) {
    ends_.resize(ids_->size());
    text_.resize(before);
    throw;
  }
  return static_cast<std::uint32_t>(ends_.size() - 1);
}

std::uint32_t Dictionary::Find(std::string_view text) const {
  return FindHashed(text, Hash(text));
}

std::uint32_t Dictionary::FindHashed(std::string_view text, std::uint64_t hash) const {
  return ids_->Find(
      hash, [&](std::uint32_t id) { return text.size() <= kMaxShort || (*this)[id] == text; });
}

}  // namespace lakresvos::tabulate
