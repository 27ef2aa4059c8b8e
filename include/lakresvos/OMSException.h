#ifndef LAKRESVOS_OMSEXCEPTION_H
#define LAKRESVOS_OMSEXCEPTION_H

#include <exception>
#include <string>

#include <lakresvos/Export.h>

/// The exception of the library: a caller passed a bad argument.
///
/// Thread safety: an object may be read from several threads.
class LAKRESVOS_EXPORT OMSException : public std::exception {
 public:
  /// @param message the class and operation, " -- " and the failed condition.
  /// @param value1  the first offending value, 0 when there is none.
  /// @param value2  the second offending value, 0 when there is none.
  OMSException(std::string const& message, double value1, double value2);
  OMSException(OMSException const&) = default;
  OMSException& operator=(OMSException const&) = default;
  ~OMSException() override;

  /// The message followed by ", value 1 == " and the first value, ", value 2 == " and the second.
  /// Valid as long as the exception.
  char const* what() const noexcept override;

  std::string const& Message() const { return message_; }
  double Value1() const { return value1_; }
  double Value2() const { return value2_; }

 private:
  std::string message_;
  double value1_;
  double value2_;
  std::string what_;
};

#endif
