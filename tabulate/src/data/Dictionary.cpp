#include <functional>

#include <lakresvos/tabulate/Dictionary.h>

#include "data/IdTable.h"

namespace lakresvos::tabulate {

static_assert(Dictionary::kNone == IdTable::kNone);

namespace {

std::size_t Hash(std::string_view text) {
  return std::hash<std::string_view>()(text);
}

}  // namespace

Dictionary::Dictionary() : ids_(std::make_unique<IdTable>()) {}
Dictionary::Dictionary(Dictionary&& other) noexcept = default;
Dictionary& Dictionary::operator=(Dictionary&& other) noexcept = default;
Dictionary::~Dictionary() = default;

std::uint32_t Dictionary::Intern(std::string_view text) {
  std::size_t const hash = Hash(text);
  std::uint32_t const known =
      ids_->Find(hash, [&](std::uint32_t id) { return (*this)[id] == text; });
  if (known != kNone) {
    return known;
  }
  ids_->Add(hash);
  text_.append(text);
  ends_.push_back(text_.size());
  return static_cast<std::uint32_t>(ends_.size() - 1);
}

std::uint32_t Dictionary::Find(std::string_view text) const {
  return ids_->Find(Hash(text), [&](std::uint32_t id) { return (*this)[id] == text; });
}

}  // namespace lakresvos::tabulate
