#include "io/DescriptorBuffer.h"

#include <cerrno>

#include "io/WriteAll.h"

namespace lakresvos::render {

DescriptorBuffer::DescriptorBuffer(int descriptor) : descriptor_(descriptor), pending_(1 << 16) {
  setp(pending_.data(), pending_.data() + pending_.size());
}

DescriptorBuffer::int_type DescriptorBuffer::overflow(int_type c) {
  if (sync() != 0) {
    return traits_type::eof();
  }
  if (!traits_type::eq_int_type(c, traits_type::eof())) {
    sputc(traits_type::to_char_type(c));
  }
  return traits_type::not_eof(c);
}

int DescriptorBuffer::sync() {
  if (error_ == 0 &&
      !WriteAll(descriptor_, {pbase(), static_cast<std::size_t>(pptr() - pbase())})) {
    error_ = errno;
  }
  setp(pending_.data(), pending_.data() + pending_.size());
  return error_ == 0 ? 0 : -1;
}

}  // namespace lakresvos::render
