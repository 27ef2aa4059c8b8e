#include <sstream>

#include <lakresvos/OMSException.h>

OMSException::OMSException(std::string const& message, double value1, double value2)
    : message_(message), value1_(value1), value2_(value2) {
  std::ostringstream text;
  text.exceptions(std::ios::badbit);  // a stream that runs out of memory leaves out the rest
  text << message << ", value 1 == " << value1 << ", value 2 == " << value2;
  what_ = text.str();
}

OMSException::~OMSException() = default;

char const* OMSException::what() const noexcept {
  return what_.c_str();
}
