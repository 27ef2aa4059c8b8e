#ifndef LAKRESVOS_RENDER_IO_SCOPEDCLOCALE_H
#define LAKRESVOS_RENDER_IO_SCOPEDCLOCALE_H

#include <locale.h>
#include <new>

namespace lakresvos::render {

/// As long as it lives, the C library writes numbers in this thread as programs read them, whatever
/// the locale of the process.
class ScopedCLocale {
 public:
  /// @throws std::bad_alloc.
  ScopedCLocale() : locale_(newlocale(LC_ALL_MASK, "C", nullptr)) {
    if (locale_ == nullptr) {
      throw std::bad_alloc();
    }
    former_ = uselocale(locale_);
  }
  ScopedCLocale(ScopedCLocale const&) = delete;
  ScopedCLocale& operator=(ScopedCLocale const&) = delete;
  ~ScopedCLocale() {
    uselocale(former_);
    freelocale(locale_);
  }

 private:
  locale_t locale_;
  locale_t former_;
};

}  // namespace lakresvos::render

#endif
